#include "editor/criteria_grids.h"

#include "controls/keys.h"
#include "core/handler_tools.h"
#include "editor/criteria_cells.h"
#include "editor/criteria_traits.h"
#include "editor/criterium_record.h"
#include "platform/error_trap.h"
#include "platform/text.h"

namespace headerdtc {
namespace {

// The value column makes room for the scroll bar, which is as wide as the script column.
ScrollBarRoom scrollBarRoom(Grid& grid) {
    return {grid, criteria_column::Value, grid.ColWidth(criteria_column::Script)};
}

}  // namespace

CriteriaGrids::CriteriaGrids(HeaderDTC& dtc) : dtc_(dtc), editors_(dtc) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        Grid& grid = family.CriteriaGrid;
        const auto add = [&](auto& event, std::string_view role, auto body) {
            subscriptions_ += handle(event, dtc, family, role, this, body);
        };
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
    // The last row stays: emptied and marked again it may hold what it held before.
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
    // What the look-ups added is no change that the author made.
    const CriteriumRecord before(dtc_, family, row);
    try {
        if (dtc_.procedures.ShowSpecifyCriteriumDialog) {
            dtc_.procedures.ShowSpecifyCriteriumDialog(static_cast<int>(family.family), row, name,
                                                       script, valueType);
        }
    } catch (...) {
        before.noteChanges(changed);
        throw;
    }
    before.noteChanges(changed);
}

}  // namespace headerdtc
