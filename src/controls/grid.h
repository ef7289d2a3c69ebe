#pragma once

#include "controls/control.h"

#include <string>
#include <vector>

namespace headerdtc {

// What became of a grid, for views that keep step. Views are told once the grid is in its new
// state; of rows that come or go also before. Geometry is column widths, row height and scrolling.
struct GridChange {
    enum class Kind { RowsInserted, RowsRemoved, CellsChanged, Geometry, CurrentCell };
    Kind kind = Kind::CellsChanged;
    int firstRow = 0;  // 0-based, header rows included
    int rowCount = 0;
};

// A grid of text cells. Rows and columns are numbered from 0, header rows included; positions are
// 16-bit signed. Widths and heights are in twips. An index that is not there raises 381, a row
// count below FixedRows or above 32,767 and a negative width or height 380; the grid is unchanged
// then.
class Grid : public Control {
  public:
    // A grid with one fixed header row and one empty row, the current cell in row 1, column 1.
    Grid(Form& form, std::string name, int columns);
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    // ---- what a program does ---------------------------------------------------------------
    int Rows() const { return static_cast<int>(cells_.size()); }
    // Appends empty rows or removes the last ones; the current row stays within the grid.
    void Rows(int rows);
    int Cols() const { return static_cast<int>(columnWidths_.size()); }
    int FixedRows() const { return 1; }

    const std::string& TextMatrix(int row, int column) const;
    void TextMatrix(int row, int column, std::string text);
    // The flat text array: cell index = row * Cols + column.
    const std::string& TextArray(long index) const;
    void TextArray(long index, std::string text);
    // The current cell.
    const std::string& Text() const { return TextMatrix(row_, column_); }

    int Row() const { return row_; }
    int Col() const { return column_; }
    // Moving the current cell to another raises EnterCell, RowColChange, and GotFocus after them
    // while the grid has the focus: a program that moves the current cell while the author works in
    // the grid enters the cell as a click would.
    void Row(int row);
    void Col(int column);

    // Removes a row; the rows below move up, the current row keeps its number or, where that is
    // gone, becomes the last one. Raises 5 for the header row.
    void RemoveItem(int row);
    // Empties every cell, headers included; the rows stay.
    void Clear();

    int ColWidth(int column) const;
    void ColWidth(int column, int width);
    // Every row is at least this high.
    int RowHeightMin() const { return rowHeightMin_; }
    void RowHeightMin(int height);
    // The current cell's place relative to the grid, with the rows scrolled as they are.
    int CellLeft() const;
    int CellTop() const;
    // The first row shown below the header.
    int TopRow() const { return topRow_; }

    // ---- what a person does ----------------------------------------------------------------
    // Clicks a cell: EnterCell, then lost-focus of an open editor, then RowColChange when another
    // cell became the current one, then the grid's GotFocus (also when it had the focus), then
    // Click.
    void clickCell(int row, int column);
    // The same, then DblClick, unless the click opened a dialog, which takes the second press.
    void doubleClickCell(int row, int column);
    // For windows, which learn of a double click only when its first press was a clickCell: the
    // second press, a DblClick in the current cell.
    void clickAgain();
    // Scrolls the rows. Raises Scroll when another row comes to the top.
    void scroll(int topRow);
    // For windows, which bring the current cell into sight by themselves: the row that has come to
    // the top by that. No event.
    void shownFrom(int topRow);
    // Arrow keys enter the cell beside; a character or Enter raises KeyPress.
    void press(const Key& key) override;

    // ---- events ----------------------------------------------------------------------------
    Event<> EnterCell;
    // The current cell is another, and no editor of the cell left behind has the focus any more.
    Event<> RowColChange;
    Event<> Click;
    Event<> DblClick;
    Event<int> KeyPress;
    Event<> Scroll;
    // For views: rows will come or go; something is another.
    Event<const GridChange&> gridChanging, gridChanged;

  private:
    int rowOfCell(long index) const;
    void removeRows(int first, int count);
    void requireCell(int row, int column) const;
    void enter(int row, int column);
    void currentCellMoved();

    std::vector<std::vector<std::string>> cells_;
    std::vector<int> columnWidths_;
    int rowHeightMin_ = 0;
    int row_ = 1;
    int column_ = 1;
    int topRow_ = 1;
};

}  // namespace headerdtc
