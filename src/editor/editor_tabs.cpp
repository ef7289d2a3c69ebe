#include "core/field_entries.h"
#include "core/handler.h"
#include "editor/editor.h"
#include "platform/surroundings.h"

#include <memory>
#include <string>

namespace headerdtc {
namespace {

// ---- the families' tabs ------------------------------------------------------------------------

bool holdsOnlyEmptyCells(const Grid& grid) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        for (int column = criteria_column::Key; column < grid.Cols(); ++column) {
            if (!grid.TextMatrix(row, column).empty()) return false;
        }
    }
    return true;
}

// What the author has stored and a new data provider discards, noted while it is still there. The
// notice of the translation choices is the one of the return fields that they belong to.
void noteTranslations(const FamilyControls& family, ChangedProperties& changed) {
    if (family.I18NFieldnamesList.SelCount() > 0 || family.I18NFieldValuesList.SelCount() > 0)
        changed.add(familyName(family.family, "ReturnFields"));
}

// Everything on the family's tab, and the translation choices.
void noteFamilyTab(const FamilyControls& family, ChangedProperties& changed) {
    noteTranslations(family, changed);
    if (family.SelectedFieldsList.ListCount() > 0)
        changed.add(familyName(family.family, "ReturnFields"));
    if (family.FieldsList.ListCount() > 0)
        changed.add(familyName(family.family, "AvailableFields"));
    if (!holdsOnlyEmptyCells(family.CriteriaGrid))
        changed.add(familyName(family.family, "Criteria"));
}

// The name under which a family's fields are looked up. The key fields, and both of ZEKO, are those
// of the data provider as last taken over.
const std::string& providerOfFields(Family family, const HeaderDTC& dtc) {
    return family == Family::EAI ? dtc.DataProvidersCombo.Text() : dtc.dataProvider;
}

void discard(FamilyControls& family, ChangedProperties& changed) {
    noteFamilyTab(family, changed);
    family.I18NFieldnamesList.Clear();
    family.I18NFieldValuesList.Clear();
    family.FieldsList.Clear();
    family.SelectedFieldsList.Clear();
    family.CriteriaGrid.Clear();
    writeCriteriaHeaders(family.CriteriaGrid);
}

void refill(HeaderDTC& dtc, FamilyControls& family, ChangedProperties& changed) {
    const Family which = family.family;
    const auto source = dtc.surroundings.dataSources.createDataSource();
    for (const std::string& entry : fieldEntries(which, *source, providerOfFields(which, dtc))) {
        family.FieldsList.AddItem(entry);
        changed.add(familyName(which, "AvailableFields"));
    }
    const std::string keyFieldnames = familyName(which, "KeyFieldnames");
    if (family.KeyFieldsCombo.ListCount() > 0) changed.add(keyFieldnames);
    family.KeyFieldsCombo.Clear();
    family.KeyFieldValueText.Text("");
    for (const std::string& field : keyFieldNames(which, *source, dtc.dataProvider)) {
        family.KeyFieldsCombo.AddItem(field);
        changed.add(keyFieldnames);
    }
}

// A family's tab follows the data provider: entering it after another provider was chosen offers
// the fields of that provider and discards the return fields, criteria and translation choices made
// for the one before. A data source that fails leaves the tab without the fields that it did not
// give.
void PrepareFamilyTab(HeaderDTC& dtc, Family which) {
    FamilyControls& family = dtc.family(which);
    const std::string name = "Prepare" + std::string(family.traits.prefix) + "Tab";
    runHandler(dtc, name, [&](ChangedProperties& changed) {
        if (family.DataProviderText.Text() != dtc.dataProvider) {
            // Taken over first: a data source that fails leaves the tab empty, and is not asked
            // again until another provider is chosen.
            family.DataProviderText.Text(dtc.dataProvider);
            discard(family, changed);
            refill(dtc, family, changed);
        }
        refreshFieldButtons(family.FieldsList, family.SelectedFieldsList, family.AddField,
                            family.RemoveField);
    });
}

// ---- moving between the tabs ------------------------------------------------------------------

constexpr const char* DiagnosticFile = "c:\\temp\\DTC.TXT";

// Moving between the tabs, and the General tab's own controls. Every tab has a step for being
// left and one for being entered; the table of them is in the source file.
class EditorTabs {
  public:
    // Fills in the control's PrepareGeneralTab.
    explicit EditorTabs(HeaderDTC& dtc);

    // ---- leaving a tab ---------------------------------------------------------------------
    // Takes the chosen data provider over.
    void SaveGeneralState();
    // The controls of these tabs are the configuration, so there is nothing to copy out of them.
    void SaveEAIState() {}
    void SaveZEKOState() {}
    void SaveI18NState() {}
    void SaveEAILinkState() {}
    void SaveZEKOLinkState() {}

    // ---- entering a tab --------------------------------------------------------------------
    // Reads the list of data providers, once per control: the first time that there is a data
    // source, whether or not it answers.
    void PrepareGeneralTab();
    void PrepareEAITab();
    void PrepareZEKOTab();
    // Empties the translation lists of a family whose own tab does not follow the data provider
    // yet.
    void PrepareI18NTab();
    void PrepareEAILinkTab();
    void PrepareZEKOLinkTab();

  private:
    void SSTab1_Click(int tabLeft);
    void DataProvidersCombo_Click();
    void EnableExtraFiltersCheck_Click();
    void UserControl_KeyPress();
    void SaveCommand_Click();

    HeaderDTC& dtc_;
    // Kept for the control's life.
    std::unique_ptr<DataSource> dataSource_;
    Subscriptions subscriptions_;
};

// What runs when a tab is left and when it is entered, by the tab's index.
struct TabSteps {
    void (EditorTabs::*save)();
    void (EditorTabs::*prepare)();
};

constexpr TabSteps StepsOfTabs[] = {
    {&EditorTabs::SaveGeneralState, &EditorTabs::PrepareGeneralTab},
    {&EditorTabs::SaveEAIState, &EditorTabs::PrepareEAITab},
    {&EditorTabs::SaveZEKOState, &EditorTabs::PrepareZEKOTab},
    {&EditorTabs::SaveI18NState, &EditorTabs::PrepareI18NTab},
    {&EditorTabs::SaveEAILinkState, &EditorTabs::PrepareEAILinkTab},
    {&EditorTabs::SaveZEKOLinkState, &EditorTabs::PrepareZEKOLinkTab},
};

// A procedure is empty where its room is not part of the program.
void prepare(const std::function<void(Family)>& procedure, Family family) {
    if (procedure) procedure(family);
}

EditorTabs::EditorTabs(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.PrepareGeneralTab = [this] { PrepareGeneralTab(); };
    subscriptions_ += dtc_.SSTab1.Click.subscribe([this](int tabLeft) { SSTab1_Click(tabLeft); });
    subscriptions_ +=
        dtc_.DataProvidersCombo.Click.subscribe([this] { DataProvidersCombo_Click(); });
    subscriptions_ +=
        dtc_.EnableExtraFiltersCheck.Click.subscribe([this] { EnableExtraFiltersCheck_Click(); });
    subscriptions_ += dtc_.surface.KeyPress.subscribe([this](int) { UserControl_KeyPress(); });
    subscriptions_ += dtc_.SaveCommand.Click.subscribe([this] { SaveCommand_Click(); });
}

void EditorTabs::SSTab1_Click(int tabLeft) {
    runHandler(dtc_, "SSTab1_Click", [&](ChangedProperties&) {
        const int tabEntered = dtc_.SSTab1.Tab();
        if (tabLeft == tabEntered) return;
        const auto save = StepsOfTabs[tabLeft].save;
        const auto prepare = StepsOfTabs[tabEntered].prepare;
        (this->*save)();
        (this->*prepare)();
    });
}

void EditorTabs::SaveGeneralState() {
    runHandler(dtc_, "SaveGeneralState",
               [&](ChangedProperties&) { dtc_.dataProvider = dtc_.DataProvidersCombo.Text(); });
}

// The data source is kept as soon as it is there: a list that could not be read is not asked for
// again, only a data source that could not be made is.
void EditorTabs::PrepareGeneralTab() {
    runHandler(dtc_, "PrepareGeneralTab", [&](ChangedProperties&) {
        if (dataSource_) return;
        dataSource_ = dtc_.surroundings.dataSources.createDataSource();
        const auto providers = dataSource_->providerNames();
        dtc_.DataProvidersCombo.Clear();
        for (const std::string& provider : providers) {
            dtc_.DataProvidersCombo.AddItem(provider);
            dtc_.ZEKO.LinkedDataProvidersCombo.AddItem(provider);
            dtc_.EAI.LinkedDataProvidersCombo.AddItem(provider);
        }
    });
}

void EditorTabs::PrepareEAITab() {
    prepare(dtc_.procedures.PrepareFamilyTab, Family::EAI);
}

void EditorTabs::PrepareZEKOTab() {
    prepare(dtc_.procedures.PrepareFamilyTab, Family::ZEKO);
}

void EditorTabs::PrepareI18NTab() {
    runHandler(dtc_, "PrepareI18NTab", [&](ChangedProperties& changed) {
        for (const Family which : {Family::EAI, Family::ZEKO}) {
            FamilyControls& family = dtc_.family(which);
            if (family.DataProviderText.Text() == dtc_.dataProvider) continue;
            noteTranslations(family, changed);
            family.I18NFieldnamesList.Clear();
            family.I18NFieldValuesList.Clear();
        }
        if (dtc_.I18NDataProviderText.Text() != dtc_.dataProvider)
            dtc_.I18NDataProviderText.Text(dtc_.dataProvider);
    });
}

void EditorTabs::PrepareEAILinkTab() {
    prepare(dtc_.procedures.PrepareLinkTab, Family::EAI);
}

void EditorTabs::PrepareZEKOLinkTab() {
    prepare(dtc_.procedures.PrepareLinkTab, Family::ZEKO);
}

// The field lists follow later, when the families' tabs are entered.
void EditorTabs::DataProvidersCombo_Click() {
    runHandler(dtc_, "DataProvidersCombo_Click", [&](ChangedProperties& changed) {
        const std::string& chosen = dtc_.DataProvidersCombo.Text();
        if (chosen != dtc_.dataProvider) {
            if (isInAuthorsHands(dtc_.DataProvidersCombo)) changed.add("DataProvider");
            dtc_.ZEKO.FromLinkFieldsCombo.Clear();
            dtc_.EAI.FromLinkFieldsCombo.Clear();
        }
        dtc_.dataProvider = chosen;
    });
}

// The value is read from the check box when the page is saved. Why the EAI buttons are refreshed
// here, and the ZEKO ones not, nobody remembers; pages rely on neither.
void EditorTabs::EnableExtraFiltersCheck_Click() {
    refreshFieldButtons(dtc_.EAI.FieldsList, dtc_.EAI.SelectedFieldsList, dtc_.EAI.AddField,
                        dtc_.EAI.RemoveField);
    if (isInAuthorsHands(dtc_.EnableExtraFiltersCheck)) dtc_.PropertyChanged("EnableExtraFilters");
}

void EditorTabs::UserControl_KeyPress() {
    dtc_.surroundings.messages.show("keypress");
}

void EditorTabs::SaveCommand_Click() {
    runHandler(dtc_, "SaveCommand_Click", [&](ChangedProperties&) {
        dtc_.surroundings.textFiles.writeText(DiagnosticFile,
                                              dtc_.IProvideRuntimeText_GetRuntimeText() + "\r\n");
    });
}

}  // namespace

Behaviour moveBetweenTabs(HeaderDTC& dtc) {
    dtc.procedures.PrepareFamilyTab = [&dtc](Family family) { PrepareFamilyTab(dtc, family); };
    return std::make_shared<EditorTabs>(dtc);
}

}  // namespace headerdtc
