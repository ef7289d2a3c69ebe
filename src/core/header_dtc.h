#pragma once

#include "controls/form.h"
#include "controls/tab_strip.h"
#include "core/family_controls.h"
#include "platform/property_bag.h"
#include "platform/surroundings.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace headerdtc {

using ScriptDictionary = Dictionary<std::string>;

// The common file dialog as a control of the surface: its settings and the last chosen file
// survive from one showing to the next; cancelling leaves FileName as it was.
class CommonDialog {
  public:
    CommonDialog(FileDialog& dialog, std::string title)
        : dialog_(dialog), DialogTitle(std::move(title)) {}

    void ShowOpen() {
        const std::string chosen = dialog_.open({DialogTitle, InitDir, Filter});
        if (!chosen.empty()) FileName = chosen;
    }

  private:
    FileDialog& dialog_;

  public:
    std::string DialogTitle;
    std::string InitDir;   // a Windows path
    std::string Filter;    // "description|pattern"
    std::string FileName;  // full Windows path, empty until a file was chosen
};

// One design-time control on one page. Its editor's controls *are* the configuration: what an
// author sees, what a page stores and what is generated are the same models. HeaderDTC knows none
// of the behaviours: they are given a HeaderDTC, listen to its controls, and fill in the procedures
// that others call (Procedures below).
//
// Create it, let the behaviours subscribe, then call UserControl_Initialize once, then either
// UserControl_InitProperties (a new control) or UserControl_ReadProperties (a stored one).
class HeaderDTC {
  public:
    HeaderDTC(const Surroundings& surroundings, ModalLoop& modalLoop);
    HeaderDTC(const HeaderDTC&) = delete;
    HeaderDTC& operator=(const HeaderDTC&) = delete;
    ~HeaderDTC();

    const Surroundings surroundings;
    Desktop desktop;
    Form surface;  // named "UserControl"

    // ---- the controls, in tab order --------------------------------------------------------
    TabStrip SSTab1;
    ComboBox DataProvidersCombo;
    Button SaveCommand;
    TextBox IncludeASPText;
    Button BrowseForIncludeASPCommand, IncludeASPAddCommand, IncludeASPDeleteCommand;
    ListBox IncludeASPList;
    TextBox XSLFilenameText;
    Button BrowseForXSLFileCommand;
    CheckBox EnableExtraFiltersCheck;
    TextBox I18NDataProviderText;  // before the lists of the I18N tab, which are the families'
    FamilyControls EAI, ZEKO;
    CommonDialog BrowseDialog;

    FamilyControls& family(Family which) { return which == Family::EAI ? EAI : ZEKO; }
    const FamilyControls& family(Family which) const { return which == Family::EAI ? EAI : ZEKO; }

    // ---- state beside the controls ---------------------------------------------------------
    // The data provider that the tabs follow: DataProvidersCombo's text as last taken over.
    std::string dataProvider;
    std::string linkedDataProvider;
    std::shared_ptr<ScriptDictionary> userDefinedScripts;
    std::int16_t nrOfUserDefinedScripts = 0;
    // A link deletion is running on both link tabs.
    bool deletingLink = false;
    // The host's site object, empty until the host sets it.
    DesignTimeControlSite* site = nullptr;

    // Set up by UserControl_Initialize without a reader of its own.
    std::int16_t spareFlag = 0;

    // ---- procedures that the rooms above fill in -------------------------------------------
    struct Procedures {
        std::function<void()> PrepareGeneralTab;
        std::function<void(Family)> PrepareFamilyTab;
        std::function<void(Family)> PrepareLinkTab;
        std::function<std::string()> GetInstallDir;
        std::function<std::string()> GetRuntimeText;
        // Family number, grid row, value name, stored script, value type.
        std::function<void(int, int, const std::string&, const std::string&, std::int32_t)>
            ShowSpecifyCriteriumDialog;
    };
    Procedures procedures;

    // ---- life cycle ------------------------------------------------------------------------
    void UserControl_Initialize();
    void UserControl_InitProperties();
    // Both stop at the first failure and report it; what was done until then stays.
    void UserControl_ReadProperties(PropertyBag& bag);
    void UserControl_WriteProperties(PropertyBag& bag);
    // The same, but leaves out dictionary entries that mean nothing: empty ones that only a look-up
    // made, and of the criterion types, as far as more are there than are read back, those of no
    // criterion or of CONSTANT.
    void writePropertiesThatCount(PropertyBag& bag);

    // ---- procedures ------------------------------------------------------------------------
    // Stores a criterion's value: tab 1 = EAI, 2 = ZEKO; grid row; value name; whole script text;
    // value type. Traps nothing.
    void SetCriteriumValue(int tab, int row, const std::string& name, const std::string& script,
                           std::int32_t valueType);
    // Flat cell indices, row * columns + column. The ZEKO grids give the column count for both
    // families.
    long CriteriaGridIndex(int row, int column) const;
    long LinksGridIndex(int row, int column) const;
    // The text that the host writes into the page.
    std::string IProvideRuntimeText_GetRuntimeText();
    // Tells the host that a stored property changed.
    void PropertyChanged(std::string_view property);

    // ---- public properties -----------------------------------------------------------------
    // One member function pair for each row of core/properties.def, named as the property.
    // Indices are 0-based item positions, or flat cell indices in a grid; one that is not there
    // raises 381. A number beyond 16 bits raises 6, a row count that the grid cannot have and a
    // text that a drop-down list does not offer 380, no dictionary 91. A write ends with the
    // property-changed notice; one that fails changes nothing and gives none.
#define HEADERDTC_INDEXED_TEXT(name, ...) \
    std::string name(int index) const;    \
    void name(int index, const std::string& value);
#define HEADERDTC_COUNT(name, ...) int name() const;
#define HEADERDTC_ROW_COUNT(name, ...) \
    int name() const;                  \
    void name(int rows);
#define HEADERDTC_TEXT(name, ...) \
    std::string name() const;     \
    void name(const std::string& value);
#define HEADERDTC_SCRIPTS(name, ...)                       \
    const std::shared_ptr<ScriptDictionary>& name() const; \
    void name(std::shared_ptr<ScriptDictionary> scripts);
#define HEADERDTC_NUMBER(name, ...) \
    int name() const;               \
    void name(int number);
#include "core/properties.def"
};

// The header texts of a criteria grid ("Key", "Value") and of a links grid ("From", "To").
void writeCriteriaHeaders(Grid& grid);
void writeLinksHeaders(Grid& grid);

}  // namespace headerdtc
