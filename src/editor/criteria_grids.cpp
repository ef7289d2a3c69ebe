#include "controls/keys.h"
#include "core/handler.h"
#include "editor/editor.h"
#include "platform/error_trap.h"
#include "platform/text.h"

#include <string>
#include <utility>
#include <vector>

namespace headerdtc {
namespace {

// Where the criteria grids of the two families behave differently. Why they do is not known;
// authors are used to it.
struct CriteriaTraits {
    Family family;
    // A double click beside the value column acts like a click.
    bool doubleClickClicks;
    // A key field chosen for a row that is gone by then is dropped instead of failing.
    bool dropsKeyOfMissingRow;
};

constexpr CriteriaTraits CriteriaTraitsTable[] = {
    {Family::EAI, false, true},
    {Family::ZEKO, true, false},
};

const CriteriaTraits& criteriaTraitsOf(Family family) {
    return CriteriaTraitsTable[family == Family::EAI ? 0 : 1];
}

// The cells of a criteria grid as the page stores them: every column but the marker's, every row
// but the header. A cell is addressed by the flat index of the control, which takes the column
// count from the ZEKO grid for both families.

const std::string& criteriaCell(const HeaderDTC& dtc, const FamilyControls& family, int row,
                                int column) {
    return family.CriteriaGrid.TextArray(dtc.CriteriaGridIndex(row, column));
}

// Notes the family's "Criteria" when a stored cell becomes another. Raises 381.
void setCriteriaCell(const HeaderDTC& dtc, FamilyControls& family, int row, int column,
                     const std::string& text, ChangedProperties& changed) {
    if (criteriaCell(dtc, family, row, column) == text) return;
    family.CriteriaGrid.TextArray(dtc.CriteriaGridIndex(row, column), text);
    if (row >= family.CriteriaGrid.FixedRows() && column != criteria_column::Marker)
        changed.add(familyName(family.family, "Criteria"));
}

// Of one row. Raises 381.
std::vector<std::string> storedCells(const Grid& grid, int row) {
    std::vector<std::string> cells;
    for (int column = criteria_column::Key; column < grid.Cols(); ++column)
        cells.push_back(grid.TextMatrix(row, column));
    return cells;
}

// ---- the editors in the cells ------------------------------------------------------------------

// The in-place editors of the criteria grids: a combo box for the key field, one for the operator,
// a text box for the value. One is laid over the current cell while that is edited; its value goes
// into the grid when it loses the focus.
//
// The row written is the tracker's previous one. When the author enters another cell, the grid
// moves its marker before the editor loses the focus, so by then the row that was edited is the
// previous row; while the grid has the focus, both rows of the tracker are the current cell's.
class CriteriaEditors {
  public:
    explicit CriteriaEditors(HeaderDTC& dtc);

    // Opens the editor of the current cell, whose column is given; the marker and script columns
    // have none. Enter (13) starts with the cell's text, another key code starts a value with its
    // character. Reports failures as "CriteriaGridEdit".
    void CriteriaGridEdit(FamilyControls& family, int column, int keyCode);
    // An editor that has the focus writes its value back on the way.
    static void hide(FamilyControls& family);

  private:
    static void openCombo(ComboBox& combo, const Grid& grid, int keyCode);
    void openValueBox(FamilyControls& family, int keyCode);

    void KeyFieldsCombo_LostFocus(FamilyControls& family, ChangedProperties& changed);
    void OperatorsCombo_LostFocus(FamilyControls& family, ChangedProperties& changed);
    void KeyFieldValueText_LostFocus(FamilyControls& family, ChangedProperties& changed);
    void KeyFieldValueText_KeyDown(FamilyControls& family, ChangedProperties& changed, int keyCode,
                                   int shift);
    void KeyFieldValueText_KeyPress(FamilyControls& family, ChangedProperties& changed,
                                    int& keyCode);

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

CriteriaEditors::CriteriaEditors(HeaderDTC& dtc) : dtc_(dtc) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        const auto add = handlersOf(dtc, family, this, subscriptions_);
        add(family.KeyFieldsCombo.LostFocus, "KeyFieldsCombo_LostFocus",
            &CriteriaEditors::KeyFieldsCombo_LostFocus);
        add(family.OperatorsCombo.LostFocus, "OperatorsCombo_LostFocus",
            &CriteriaEditors::OperatorsCombo_LostFocus);
        add(family.KeyFieldValueText.LostFocus, "KeyFieldValueText_LostFocus",
            &CriteriaEditors::KeyFieldValueText_LostFocus);
        add(family.KeyFieldValueText.KeyDown, "KeyFieldValueText_KeyDown",
            &CriteriaEditors::KeyFieldValueText_KeyDown);
        add(family.KeyFieldValueText.KeyPress, "KeyFieldValueText_KeyPress",
            &CriteriaEditors::KeyFieldValueText_KeyPress);
    }
}

void CriteriaEditors::CriteriaGridEdit(FamilyControls& family, int column, int keyCode) {
    trapErrors(dtc_.surroundings.messages, "CriteriaGridEdit", [&] {
        switch (column) {
            case criteria_column::Key:
                return openCombo(family.KeyFieldsCombo, family.CriteriaGrid, keyCode);
            case criteria_column::Operator:
                return openCombo(family.OperatorsCombo, family.CriteriaGrid, keyCode);
            case criteria_column::Value:
                return openValueBox(family, keyCode);
            default:
                return;
        }
    });
}

void CriteriaEditors::openCombo(ComboBox& combo, const Grid& grid, int keyCode) {
    if (keyCode == key_code::Enter) selectEqualItems(combo, grid.Text());
    layOverCell(combo, grid);
}

// The Del key is the page editor's command to delete the whole control, hence the warning, which
// each family gives once.
void CriteriaEditors::openValueBox(FamilyControls& family, int keyCode) {
    if (family.warnAboutDeleteKey) {
        dtc_.surroundings.messages.show(
            "Don't push the 'Del' button, for it will throw away the entire DTC");
        family.warnAboutDeleteKey = false;
    }
    startEditing(family.KeyFieldValueText, family.CriteriaGrid.Text(), keyCode);
    layOverCell(family.KeyFieldValueText, family.CriteriaGrid);
}

void CriteriaEditors::hide(FamilyControls& family) {
    family.KeyFieldValueText.Visible(false);
    family.KeyFieldsCombo.Visible(false);
    family.OperatorsCombo.Visible(false);
}

void CriteriaEditors::KeyFieldsCombo_LostFocus(FamilyControls& family, ChangedProperties& changed) {
    auto& row = family.criteriaRows.previous;
    if (row < 0) row = static_cast<std::int16_t>(family.CriteriaGrid.Row());
    const bool missing = row > family.CriteriaGrid.Rows() - 1;
    if (!missing || !criteriaTraitsOf(family.family).dropsKeyOfMissingRow) {
        setCriteriaCell(dtc_, family, row, criteria_column::Key, family.KeyFieldsCombo.Text(),
                        changed);
    }
    family.KeyFieldsCombo.Visible(false);
}

void CriteriaEditors::OperatorsCombo_LostFocus(FamilyControls& family, ChangedProperties& changed) {
    setCriteriaCell(dtc_, family, family.criteriaRows.previous, criteria_column::Operator,
                    family.OperatorsCombo.Text(), changed);
    family.OperatorsCombo.Visible(false);
}

void CriteriaEditors::KeyFieldValueText_LostFocus(FamilyControls& family,
                                                  ChangedProperties& changed) {
    setCriteriaCell(dtc_, family, family.criteriaRows.previous, criteria_column::Value,
                    family.KeyFieldValueText.Text(), changed);
    family.KeyFieldValueText.Text("");
    family.KeyFieldValueText.Visible(false);
}

// Escape does not take the edit back: hiding the box takes its focus, and losing the focus writes
// its text like any other way of leaving.
void CriteriaEditors::KeyFieldValueText_KeyDown(FamilyControls& family, ChangedProperties&,
                                                int keyCode, int) {
    Grid& grid = family.CriteriaGrid;
    switch (keyCode) {
        case key_code::Enter:
            grid.SetFocus();
            break;
        case key_code::Escape:
            family.KeyFieldValueText.Visible(false);
            grid.SetFocus();
            break;
        case key_code::Up:
            grid.SetFocus();
            if (grid.Row() > grid.FixedRows()) grid.Row(grid.Row() - 1);
            break;
        case key_code::Down:
            grid.SetFocus();
            if (grid.Row() < grid.Rows() - 1) grid.Row(grid.Row() + 1);
            break;
        case key_code::Delete:
            family.KeyFieldValueText.Text("");
            break;
        default:
            break;
    }
}

// Enter has been dealt with; left alone it would beep.
void CriteriaEditors::KeyFieldValueText_KeyPress(FamilyControls&, ChangedProperties&,
                                                 int& keyCode) {
    if (keyCode == key_code::Enter) keyCode = 0;
}

// ---- the grids ---------------------------------------------------------------------------------

// What the page stores of a criterion.
struct StoredCriterium {
    StoredCriterium(const HeaderDTC& dtc, const FamilyControls& family, int row)
        : types(family.CriteriaType.begin(), family.CriteriaType.end()),
          scripts(dtc.userDefinedScripts->begin(), dtc.userDefinedScripts->end()) {
        // The row may have gone while the dialog was open.
        if (row < family.CriteriaGrid.Rows()) cells = storedCells(family.CriteriaGrid, row);
    }

    std::vector<std::string> cells;
    std::vector<std::pair<std::string, std::int32_t>> types;
    std::vector<std::pair<std::string, std::string>> scripts;
};

// The value column makes room for the scroll bar, which is as wide as the script column.
ScrollBarRoom scrollBarRoom(Grid& grid) {
    return {grid, criteria_column::Value, grid.ColWidth(criteria_column::Script)};
}

// The criteria grids of both families, a criterion a row: the "*" on the current row, adding and
// removing rows, cells that open their editor, and the script dialog behind the "..." of the last
// column.
class CriteriaGrids {
  public:
    explicit CriteriaGrids(HeaderDTC& dtc);

    // Makes a row the current one: the tracker takes it, "*" and "..." are put into it, and the
    // row left behind loses its "*" but keeps its "...". Reports under its own name.
    void MoveCriteriaAsterisk(FamilyControls& family, int row, ChangedProperties& changed);

  private:
    void AddCriteriumCommand_Click(FamilyControls& family, ChangedProperties& changed);
    void RemoveCriteriumCommand_Click(FamilyControls& family, ChangedProperties& changed);
    // Entering a cell, and the grid's getting the focus.
    void CriteriaGrid_EnterCell(FamilyControls& family, ChangedProperties& changed);
    void CriteriaGrid_KeyPress(FamilyControls& family, ChangedProperties& changed, int keyCode);
    void CriteriaGrid_Click(FamilyControls& family, ChangedProperties& changed);
    void CriteriaGrid_DblClick(FamilyControls& family, ChangedProperties& changed);
    void CriteriaGrid_Scroll(FamilyControls& family, ChangedProperties& changed);

    // Handlers that act as another one run it under its own name.
    void pressEnter(FamilyControls& family);
    void openScriptDialog(FamilyControls& family, ChangedProperties& changed);

    HeaderDTC& dtc_;
    CriteriaEditors editors_;
    Subscriptions subscriptions_;
};

CriteriaGrids::CriteriaGrids(HeaderDTC& dtc) : dtc_(dtc), editors_(dtc) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        Grid& grid = family.CriteriaGrid;
        const auto add = handlersOf(dtc, family, this, subscriptions_);
        add(family.AddCriteriumCommand.Click, "AddCriteriumCommand_Click",
            &CriteriaGrids::AddCriteriumCommand_Click);
        add(family.RemoveCriteriumCommand.Click, "RemoveCriteriumCommand_Click",
            &CriteriaGrids::RemoveCriteriumCommand_Click);
        add(grid.EnterCell, "CriteriaGrid_EnterCell", &CriteriaGrids::CriteriaGrid_EnterCell);
        add(grid.GotFocus, "CriteriaGrid_GotFocus", &CriteriaGrids::CriteriaGrid_EnterCell);
        add(grid.KeyPress, "CriteriaGrid_KeyPress", &CriteriaGrids::CriteriaGrid_KeyPress);
        add(grid.Click, "CriteriaGrid_Click", &CriteriaGrids::CriteriaGrid_Click);
        add(grid.DblClick, "CriteriaGrid_DblClick", &CriteriaGrids::CriteriaGrid_DblClick);
        add(grid.Scroll, "CriteriaGrid_Scroll", &CriteriaGrids::CriteriaGrid_Scroll);
    }
}

void CriteriaGrids::MoveCriteriaAsterisk(FamilyControls& family, int row,
                                         ChangedProperties& changed) {
    trapErrors(dtc_.surroundings.messages, "MoveCriteriaAsterisk", [&] {
        moveAsterisk(family.CriteriaGrid, family.criteriaRows, row);
        setCriteriaCell(dtc_, family, row, criteria_column::Script, "...", changed);
    });
}

void CriteriaGrids::AddCriteriumCommand_Click(FamilyControls& family, ChangedProperties& changed) {
    Grid& grid = family.CriteriaGrid;
    ScrollBarRoom room = scrollBarRoom(grid);
    grid.Rows(grid.Rows() + 1);
    changed.add(familyName(family.family, "CriteriaCount"));
    grid.Row(grid.Rows() - 1);
    MoveCriteriaAsterisk(family, grid.Row(), changed);
    room.adjust();
}

void CriteriaGrids::RemoveCriteriumCommand_Click(FamilyControls& family,
                                                 ChangedProperties& changed) {
    Grid& grid = family.CriteriaGrid;
    const int row = family.criteriaRows.current;
    if (row <= 0 || row >= grid.Rows()) return;
    ScrollBarRoom room = scrollBarRoom(grid);
    const std::string value = criteriaCell(dtc_, family, row, criteria_column::Value);
    const auto cellsBefore = storedCells(grid, row);
    const bool removes = grid.Rows() > grid.FixedRows() + 1;
    if (removes) {
        grid.RemoveItem(row);
    } else {
        grid.Clear();
        writeCriteriaHeaders(grid);
    }
    const bool hadType = family.CriteriaType.Remove(value);
    room.adjust();
    ChangedProperties ofMarker;
    MoveCriteriaAsterisk(family, grid.Row(), ofMarker);
    // The last row is emptied instead of removed, and marked again; so it may be the same as
    // before.
    if (removes || hadType || storedCells(grid, row) != cellsBefore)
        changed.add(familyName(family.family, "Criteria"));
    if (removes) changed.add(familyName(family.family, "CriteriaCount"));
}

void CriteriaGrids::CriteriaGrid_EnterCell(FamilyControls& family, ChangedProperties& changed) {
    MoveCriteriaAsterisk(family, family.CriteriaGrid.Row(), changed);
}

void CriteriaGrids::CriteriaGrid_KeyPress(FamilyControls& family, ChangedProperties&, int keyCode) {
    editors_.CriteriaGridEdit(family, family.CriteriaGrid.Col(), keyCode);
}

void CriteriaGrids::CriteriaGrid_Click(FamilyControls& family, ChangedProperties& changed) {
    if (family.CriteriaGrid.Col() != criteria_column::Value) pressEnter(family);
    if (family.CriteriaGrid.Col() == criteria_column::Script) openScriptDialog(family, changed);
}

void CriteriaGrids::CriteriaGrid_DblClick(FamilyControls& family, ChangedProperties&) {
    if (family.CriteriaGrid.Col() == criteria_column::Value) return pressEnter(family);
    if (!criteriaTraitsOf(family.family).doubleClickClicks) return;
    runHandler(dtc_, familyName(family.family, "CriteriaGrid_Click"),
               [&](ChangedProperties& changed) { CriteriaGrid_Click(family, changed); });
}

void CriteriaGrids::CriteriaGrid_Scroll(FamilyControls& family, ChangedProperties&) {
    CriteriaEditors::hide(family);
}

void CriteriaGrids::pressEnter(FamilyControls& family) {
    runHandler(dtc_, familyName(family.family, "CriteriaGrid_KeyPress"),
               [&](ChangedProperties& changed) {
                   CriteriaGrid_KeyPress(family, changed, key_code::Enter);
               });
}

void CriteriaGrids::openScriptDialog(FamilyControls& family, ChangedProperties& changed) {
    const int row = family.CriteriaGrid.Row();
    const std::string name(trimBlanks(criteriaCell(dtc_, family, row, criteria_column::Value)));
    // Looking a name up adds it where it is missing. The dialog is given copies, because its OK
    // removes the entries that it was opened with.
    const std::string script = dtc_.userDefinedScripts->item(name);
    const std::int32_t valueType = family.CriteriaType.item(name);
    // The dialog's OK changes grid and dictionaries without a notice of its own. What the look-ups
    // added is no change that the author made.
    const StoredCriterium before(dtc_, family, row);
    const auto noteChanges = [&] {
        const StoredCriterium now(dtc_, family, row);
        if (now.cells != before.cells || now.types != before.types)
            changed.add(familyName(family.family, "Criteria"));
        if (now.scripts != before.scripts) changed.add("UserDefinedScripts");
    };
    try {
        if (dtc_.procedures.ShowSpecifyCriteriumDialog) {
            dtc_.procedures.ShowSpecifyCriteriumDialog(static_cast<int>(family.family), row, name,
                                                       script, valueType);
        }
    } catch (...) {
        noteChanges();
        throw;
    }
    noteChanges();
}

}  // namespace

Behaviour editCriteria(HeaderDTC& dtc) {
    return std::make_shared<CriteriaGrids>(dtc);
}

}  // namespace headerdtc
