#pragma once

#include "core/handler.h"

#include <string>

namespace headerdtc {

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
    CriteriaEditors(const CriteriaEditors&) = delete;
    CriteriaEditors& operator=(const CriteriaEditors&) = delete;

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

}  // namespace headerdtc
