#include "editor/editor_tabs.h"

#include "core/handler.h"
#include "core/handler_tools.h"
#include "editor/discarded_work.h"
#include "platform/message_box.h"
#include "platform/text_files.h"

namespace headerdtc {
namespace {

constexpr const char* DiagnosticFile = "c:\\temp\\DTC.TXT";

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

// A procedure of a room that is not there does nothing.
void prepare(const std::function<void(Family)>& procedure, Family family) {
    if (procedure) procedure(family);
}

}  // namespace

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

}  // namespace headerdtc
