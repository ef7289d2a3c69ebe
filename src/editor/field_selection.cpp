#include "core/handler.h"
#include "editor/editor.h"
#include "editor/translation_removal.h"

namespace headerdtc {
namespace {

// Where the twins differ.
struct MoveTraits {
    Family family;
    // The moved field is marked as selected and its list gets the focus.
    bool marksMovedField;
};

constexpr MoveTraits MoveTraitsTable[] = {
    {Family::EAI, true},
    {Family::ZEKO, false},
};

const MoveTraits& moveTraitsOf(Family family) {
    return MoveTraitsTable[family == Family::EAI ? 0 : 1];
}

void noteReturnFields(const FamilyControls& family, ChangedProperties& changed) {
    changed.add(familyName(family.family, "ReturnFields"));
}

// Fields go from one list to the other.
void noteBothLists(const FamilyControls& family, ChangedProperties& changed) {
    noteReturnFields(family, changed);
    changed.add(familyName(family.family, "AvailableFields"));
}

void addReturnField(FamilyControls& family, const std::string& field, ChangedProperties& changed) {
    family.I18NFieldnamesList.AddItem(field);
    family.I18NFieldValuesList.AddItem(field);
    family.FromLinkFieldsCombo.AddItem(field);
    family.SelectedFieldsList.AddItem(field);
    noteBothLists(family, changed);
}

void refreshButtons(FamilyControls& family) {
    refreshFieldButtons(family.FieldsList, family.SelectedFieldsList, family.AddField,
                        family.RemoveField);
}

void finishMove(FamilyControls& family, ChangedProperties& changed) {
    noteReturnFields(family, changed);
    if (!moveTraitsOf(family.family).marksMovedField) return;
    ListBox& fields = family.SelectedFieldsList;
    fields.Selected(fields.ListIndex(), true);
    fields.SetFocus();
}

// Choosing and ordering the return fields on the families' tabs. A field that is added is offered
// for translation and as the from side of a link too; one that is removed is no longer offered for
// translation, but stays a from side until the data provider changes.
class FieldSelection {
  public:
    explicit FieldSelection(HeaderDTC& dtc);

  private:
    void AddField_Click(FamilyControls& family, ChangedProperties& changed);
    void FieldsList_DblClick(FamilyControls& family, ChangedProperties& changed);
    void RemoveField_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveUpCommand_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveDownCommand_Click(FamilyControls& family, ChangedProperties& changed);

    Subscriptions subscriptions_;
};

FieldSelection::FieldSelection(HeaderDTC& dtc) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        const auto add = handlersOf(dtc, family, this, subscriptions_);
        add(family.AddField.Click, "AddField_Click", &FieldSelection::AddField_Click);
        add(family.FieldsList.DblClick, "FieldsList_DblClick",
            &FieldSelection::FieldsList_DblClick);
        add(family.RemoveField.Click, "RemoveField_Click", &FieldSelection::RemoveField_Click);
        add(family.MoveUpCommand.Click, "MoveUpCommand_Click",
            &FieldSelection::MoveUpCommand_Click);
        add(family.MoveDownCommand.Click, "MoveDownCommand_Click",
            &FieldSelection::MoveDownCommand_Click);
    }
}

// Without a selected field the focus still moves on, and without a focus either this fails.
void FieldSelection::AddField_Click(FamilyControls& family, ChangedProperties& changed) {
    ListBox& available = family.FieldsList;
    const int focus = available.ListIndex();
    for (int i = 0; i < available.ListCount(); ++i) {
        if (available.Selected(i)) addReturnField(family, available.List(i), changed);
    }
    removeSelected(available);
    selectAfterRemoval(available, focus);
    refreshButtons(family);
}

void FieldSelection::FieldsList_DblClick(FamilyControls& family, ChangedProperties& changed) {
    ListBox& available = family.FieldsList;
    const int focus = available.ListIndex();
    if (focus >= 0) {
        addReturnField(family, available.Text(), changed);
        available.RemoveItem(focus);
        selectAfterRemoval(available, focus);
    }
    refreshButtons(family);
}

void FieldSelection::RemoveField_Click(FamilyControls& family, ChangedProperties& changed) {
    ListBox& selected = family.SelectedFieldsList;
    if (selected.SelCount() > 0) {
        TranslationRemoval translations(family, changed);
        int lowest = 0;
        for (int i = selected.ListCount() - 1; i >= 0; --i) {
            if (!selected.Selected(i)) continue;
            const std::string field = selected.List(i);
            // Noted first: a removal that fails half way may have taken a translation with it.
            noteBothLists(family, changed);
            translations.remove(field);
            family.FieldsList.AddItem(field);
            selected.RemoveItem(i);
            lowest = i;
        }
        selectAfterRemoval(selected, lowest);
    }
    refreshButtons(family);
}

void FieldSelection::MoveUpCommand_Click(FamilyControls& family, ChangedProperties& changed) {
    if (moveItemUp(family.SelectedFieldsList)) finishMove(family, changed);
}

void FieldSelection::MoveDownCommand_Click(FamilyControls& family, ChangedProperties& changed) {
    if (moveItemDown(family.SelectedFieldsList)) finishMove(family, changed);
}

}  // namespace

Behaviour chooseFields(HeaderDTC& dtc) {
    return std::make_shared<FieldSelection>(dtc);
}

}  // namespace headerdtc
