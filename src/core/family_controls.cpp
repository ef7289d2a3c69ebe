#include "core/family_controls.h"

namespace headerdtc {
namespace {

constexpr auto MultiSelect = ListBox::Selection::Multiple;
constexpr auto Toggled = ListBox::Selection::Toggled;
constexpr auto DropDownList = ComboBox::Style::DropDownList;

// Twips. The grids are as wide as their columns and a scroll bar; one row more than fits brings
// the scroll bar.
constexpr int GridWidth = 5190;
constexpr int GridHeight = 1935;

void hideEditor(Control& editor, int page) {
    editor.onTabPage(page).Visible(false);
}

}  // namespace

FamilyControls::FamilyControls(Form& surface, Family which)
    : family(which),
      traits(traitsOf(which)),
      DataProviderText(surface, familyName(which, "DataProviderText")),
      FieldsList(surface, familyName(which, "FieldsList"), MultiSelect),
      AddField(surface, familyName(which, "AddField"), "Add"),
      RemoveField(surface, familyName(which, "RemoveField"), "Delete"),
      SelectedFieldsList(surface, familyName(which, "SelectedFieldsList"), MultiSelect),
      MoveUpCommand(surface, familyName(which, "MoveUpCommand"), "/\\"),
      MoveDownCommand(surface, familyName(which, "MoveDownCommand"), "\\/"),
      CriteriaGrid(surface, familyName(which, "CriteriaGrid"), criteria_column::Count),
      KeyFieldsCombo(surface, familyName(which, "KeyFieldsCombo"), DropDownList),
      OperatorsCombo(surface, familyName(which, "OperatorsCombo"), DropDownList),
      KeyFieldValueText(surface, familyName(which, "KeyFieldValueText")),
      AddCriteriumCommand(surface, familyName(which, "AddCriteriumCommand"), "Add"),
      RemoveCriteriumCommand(surface, familyName(which, "RemoveCriteriumCommand"), "Delete"),
      I18NFieldnamesList(surface, familyName(which, "I18NFieldnamesList"), Toggled),
      I18NFieldValuesList(surface, familyName(which, "I18NFieldValuesList"), Toggled),
      LinkedDataProvidersCombo(surface, familyName(which, "LinkedDataProvidersCombo"),
                               DropDownList),
      DeleteLinkCommand(surface, familyName(which, "DeleteLinkCommand"), "Delete link"),
      LinkedFieldsList(surface, familyName(which, "LinkedFieldsList"), MultiSelect),
      AddLinkedField(surface, familyName(which, "AddLinkedField"), "Add"),
      RemoveLinkedField(surface, familyName(which, "RemoveLinkedField"), "Delete"),
      SelectedLinkedFieldsList(surface, familyName(which, "SelectedLinkedFieldsList"), MultiSelect),
      MoveUpLinkedField(surface, std::string(traits.moveUpLinkedButton), "/\\"),
      MoveDownLinkedField(surface, std::string(traits.moveDownLinkedButton), "\\/"),
      LinksGrid(surface, familyName(which, "LinksGrid"), links_column::Count),
      FromLinkFieldsCombo(surface, familyName(which, "FromLinkFieldsCombo"), DropDownList),
      ToLinkFieldsCombo(surface, familyName(which, "ToLinkFieldsCombo"), DropDownList),
      AddLink(surface, familyName(which, "AddLink"), "Add"),
      RemoveLink(surface, familyName(which, "RemoveLink"), "Delete") {
    const int tab = traits.tabPage;
    DataProviderText.labelled("DataProvider:").onTabPage(tab);
    DataProviderText.Locked(true);
    FieldsList.labelled(std::string(traits.fieldsLabel))
        .withToolTip("Available fields")
        .onTabPage(tab);
    AddField.withToolTip("Add available field to selected fields").onTabPage(tab);
    RemoveField.withToolTip("Remove selected field from selected list").onTabPage(tab);
    SelectedFieldsList.labelled(std::string(traits.selectedFieldsLabel))
        .withToolTip("Selected fields")
        .onTabPage(tab);
    MoveUpCommand.labelled("Order").withToolTip("Move up").onTabPage(tab);
    MoveDownCommand.withToolTip("Move down").onTabPage(tab);
    CriteriaGrid.placed(240, 3240, GridWidth, GridHeight).onTabPage(tab);
    hideEditor(KeyFieldsCombo, tab);
    hideEditor(OperatorsCombo, tab);
    hideEditor(KeyFieldValueText, tab);
    KeyFieldValueText.withToolTip("Enter the value of the key (Don't push the 'Del' button!)");
    AddCriteriumCommand.withToolTip("Add a criterion").onTabPage(tab);
    RemoveCriteriumCommand.withToolTip("Remove selected criterion (*)").onTabPage(tab);

    I18NFieldnamesList.labelled("Translate fieldnames:")
        .withToolTip("Select fieldname(s) to translate")
        .onTabPage(I18NTabPage);
    I18NFieldValuesList.labelled("Translate fieldvalues:")
        .withToolTip("Select fieldname(s) to translate its value")
        .onTabPage(I18NTabPage);

    const int linkTab = traits.linkTabPage;
    LinkedDataProvidersCombo.labelled("Linked dataprovider:").onTabPage(linkTab);
    DeleteLinkCommand.withToolTip("Delete the link on both link tabs").onTabPage(linkTab);
    LinkedFieldsList.labelled("Available:").withToolTip("Available fields").onTabPage(linkTab);
    AddLinkedField.withToolTip("Add available field to selected fields").onTabPage(linkTab);
    RemoveLinkedField.withToolTip("Remove selected field from selected list").onTabPage(linkTab);
    SelectedLinkedFieldsList.labelled("Selected:")
        .withToolTip("Selected fields")
        .onTabPage(linkTab);
    MoveUpLinkedField.labelled("Order").withToolTip("Move up").onTabPage(linkTab);
    MoveDownLinkedField.withToolTip("Move down").onTabPage(linkTab);
    LinksGrid.placed(240, 3240, GridWidth, GridHeight).onTabPage(linkTab);
    // Not set at run time like the criteria grids': designed high enough for the combos.
    LinksGrid.RowHeightMin(323);
    hideEditor(FromLinkFieldsCombo, linkTab);
    hideEditor(ToLinkFieldsCombo, linkTab);
    AddLink.withToolTip("Add a link").onTabPage(linkTab);
    RemoveLink.withToolTip("Remove selected link (*)").onTabPage(linkTab);
}

}  // namespace headerdtc
