#include "core/header_dtc.h"

#include "platform/error_trap.h"
#include "platform/text.h"

#include <limits>

namespace headerdtc {
namespace {

// Column widths in twips.
constexpr int CriteriaColumnWidths[] = {200, 1800, 550, 2052, 255};
constexpr int LinksColumnWidths[] = {200, 2315, 2315};
constexpr int CriteriaRowHeight = 323;  // high enough for the in-place combo boxes

template <std::size_t Count>
void setColumnWidths(Grid& grid, const int (&widths)[Count]) {
    for (std::size_t column = 0; column < Count; ++column)
        grid.ColWidth(static_cast<int>(column), widths[column]);
}

long cellIndex(const Grid& grid, int row, int column) {
    const long index = static_cast<long>(grid.Cols()) * row + column;
    if (index > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    return index;
}

}  // namespace

HeaderDTC::HeaderDTC(const Surroundings& outside, ModalLoop& modalLoop)
    : surroundings(outside),
      desktop(modalLoop),
      surface(desktop, "UserControl", Form::Kind::Surface),
      SSTab1(surface, "SSTab1", {std::begin(TabPages), std::end(TabPages)}),
      DataProvidersCombo(surface, "DataProvidersCombo", ComboBox::Style::DropDownList),
      SaveCommand(surface, "SaveCommand", "Save"),
      IncludeASPText(surface, "IncludeASPText"),
      BrowseForIncludeASPCommand(surface, "BrowseForIncludeASPCommand", "..."),
      IncludeASPAddCommand(surface, "IncludeASPAddCommand", "Add"),
      IncludeASPDeleteCommand(surface, "IncludeASPDeleteCommand", "Delete"),
      IncludeASPList(surface, "IncludeASPList", ListBox::Selection::Single),
      XSLFilenameText(surface, "XSLFilenameText"),
      BrowseForXSLFileCommand(surface, "BrowseForXSLFileCommand", "..."),
      EnableExtraFiltersCheck(surface, "EnableExtraFiltersCheck",
                              "Enable end user to filter on available filters"),
      I18NDataProviderText(surface, "I18NDataProviderText"),
      EAI(surface, Family::EAI),
      ZEKO(surface, Family::ZEKO),
      BrowseDialog(outside.fileDialog, "Browse for include ASP"),
      userDefinedScripts(std::make_shared<ScriptDictionary>()) {
    DataProvidersCombo.labelled("DataProvider:").withToolTip("Select a dataprovider");
    IncludeASPText.labelled("Include ASP:");
    IncludeASPAddCommand.withToolTip("Add the specified ASP");
    IncludeASPDeleteCommand.withToolTip("Remove the selected ASP from the include list");
    for (Control* control :
         {static_cast<Control*>(&DataProvidersCombo), static_cast<Control*>(&SaveCommand),
          static_cast<Control*>(&IncludeASPText),
          static_cast<Control*>(&BrowseForIncludeASPCommand),
          static_cast<Control*>(&IncludeASPAddCommand),
          static_cast<Control*>(&IncludeASPDeleteCommand), static_cast<Control*>(&IncludeASPList),
          static_cast<Control*>(&XSLFilenameText), static_cast<Control*>(&BrowseForXSLFileCommand),
          static_cast<Control*>(&EnableExtraFiltersCheck)}) {
        control->onTabPage(GeneralTabPage);
    }
    I18NDataProviderText.labelled("DataProvider:").onTabPage(I18NTabPage);
    I18NDataProviderText.Locked(true);
}

HeaderDTC::~HeaderDTC() = default;

void HeaderDTC::UserControl_Initialize() {
    trapErrors(surroundings.messages, "Initialize", [this] {
        ZEKO.warnAboutDeleteKey = EAI.warnAboutDeleteKey = true;
        spareFlag = 0;
        SSTab1.Tab(GeneralTabPage);
        for (const Family which : BothFamilies) {
            for (const std::string_view op : CriteriumOperators)
                family(which).OperatorsCombo.AddItem(std::string(op));
        }
        for (const Family which : BothFamilies) {
            Grid& grid = family(which).CriteriaGrid;
            grid.RowHeightMin(CriteriaRowHeight);
            setColumnWidths(grid, CriteriaColumnWidths);
            writeCriteriaHeaders(grid);
        }
        for (const Family which : BothFamilies) {
            Grid& grid = family(which).LinksGrid;
            setColumnWidths(grid, LinksColumnWidths);
            writeLinksHeaders(grid);
        }
        for (const Family which : BothFamilies) {
            family(which).criteriaRows = {};
            family(which).linkRows = {};
            family(which).CriteriaType.RemoveAll();
        }
        userDefinedScripts = std::make_shared<ScriptDictionary>();
        XSLFilenameText.Text("xsl/Generic.xsl");
        if (procedures.PrepareGeneralTab) procedures.PrepareGeneralTab();
    });
}

void HeaderDTC::UserControl_InitProperties() {
    userDefinedScripts = std::make_shared<ScriptDictionary>();
    nrOfUserDefinedScripts = 0;
}

void HeaderDTC::SetCriteriumValue(int tab, int row, const std::string& name,
                                  const std::string& script, std::int32_t valueType) {
    const std::string trimmed(trimBlanks(name));
    const bool knownFamily =
        tab == static_cast<int>(Family::EAI) || tab == static_cast<int>(Family::ZEKO);
    if (knownFamily) {
        auto& types = family(static_cast<Family>(tab)).CriteriaType;
        types.Remove(trimmed);
        types.Add(trimmed, valueType);
    }
    userDefinedScripts->Remove(trimmed);
    if (valueType == USERSCRIPT) userDefinedScripts->Add(trimmed, script);
    if (!knownFamily) return;
    const auto which = static_cast<Family>(tab);
    family(which).CriteriaGrid.TextArray(CriteriaGridIndex(row, criteria_column::Value), trimmed);
    if (procedures.PrepareFamilyTab) procedures.PrepareFamilyTab(which);
}

long HeaderDTC::CriteriaGridIndex(int row, int column) const {
    return cellIndex(ZEKO.CriteriaGrid, row, column);
}

long HeaderDTC::LinksGridIndex(int row, int column) const {
    return cellIndex(ZEKO.LinksGrid, row, column);
}

std::string HeaderDTC::IProvideRuntimeText_GetRuntimeText() {
    return procedures.GetRuntimeText ? procedures.GetRuntimeText() : std::string();
}

void HeaderDTC::PropertyChanged(std::string_view property) {
    surroundings.changes.propertyChanged(property);
}

void writeCriteriaHeaders(Grid& grid) {
    grid.TextMatrix(0, criteria_column::Key, "Key");
    grid.TextMatrix(0, criteria_column::Value, "Value");
}

void writeLinksHeaders(Grid& grid) {
    grid.TextMatrix(0, links_column::From, "From");
    grid.TextMatrix(0, links_column::To, "To");
}

}  // namespace headerdtc
