#pragma once

#include "controls/event.h"
#include "core/header_dtc.h"
#include "platform/data_source.h"

#include <memory>

namespace headerdtc {

// Moving between the tabs, and the General tab's own controls. Every tab has a step for being
// left and one for being entered; the table of them is in the source file.
class EditorTabs {
  public:
    // Fills in the control's PrepareGeneralTab.
    explicit EditorTabs(HeaderDTC& dtc);
    EditorTabs(const EditorTabs&) = delete;
    EditorTabs& operator=(const EditorTabs&) = delete;

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

}  // namespace headerdtc
