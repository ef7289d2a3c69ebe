#pragma once

#include "editor/criteria_editors.h"

namespace headerdtc {

// The criteria grids of both families, a criterion a row: the "*" on the current row, adding and
// removing rows, cells that open their editor, and the script dialog behind the "..." of the last
// column.
class CriteriaGrids {
  public:
    explicit CriteriaGrids(HeaderDTC& dtc);
    CriteriaGrids(const CriteriaGrids&) = delete;
    CriteriaGrids& operator=(const CriteriaGrids&) = delete;

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

}  // namespace headerdtc
