#include "controls/grid.h"

#include "controls/form.h"
#include "controls/list_items.h"
#include "controls/person_action.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace headerdtc {
namespace {

constexpr int DefaultColumnWidth = 960;

template <class Table>
void checkIndex(long index, const Table& table) {
    if (index < 0 || index >= static_cast<long>(table.size()))
        throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
}

std::size_t at(long index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

Grid::Grid(Form& form, std::string name, int columns)
    : Control(form, std::move(name)),
      cells_(2, std::vector<std::string>(at(columns))),
      columnWidths_(at(columns), DefaultColumnWidth) {}

void Grid::Rows(int rows) {
    if (rows < FixedRows() || rows > MaxListCount)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    const int before = Rows();
    if (rows == before) return;
    if (rows < before) return removeRows(rows, before - rows);
    const GridChange change{GridChange::Kind::RowsInserted, before, rows - before};
    gridChanging.raise(change);
    cells_.resize(at(rows), std::vector<std::string>(columnWidths_.size()));
    gridChanged.raise(change);
}

// The current row and the top row move only where they would lie beyond the last row.
void Grid::removeRows(int first, int count) {
    const GridChange change{GridChange::Kind::RowsRemoved, first, count};
    gridChanging.raise(change);
    cells_.erase(cells_.begin() + first, cells_.begin() + first + count);
    const int last = Rows() - 1;
    const int rowBefore = std::exchange(row_, std::min(row_, last));
    topRow_ = std::clamp(topRow_, FixedRows(), std::max(FixedRows(), last));
    gridChanged.raise(change);
    if (row_ != rowBefore) gridChanged.raise({GridChange::Kind::CurrentCell, row_, 1});
}

const std::string& Grid::TextMatrix(int row, int column) const {
    checkIndex(row, cells_);
    checkIndex(column, columnWidths_);
    return cells_[at(row)][at(column)];
}

void Grid::TextMatrix(int row, int column, std::string text) {
    checkIndex(row, cells_);
    checkIndex(column, columnWidths_);
    cells_[at(row)][at(column)] = std::move(text);
    gridChanged.raise({GridChange::Kind::CellsChanged, row, 1});
}

const std::string& Grid::TextArray(long index) const {
    const int row = rowOfCell(index);
    return TextMatrix(row, static_cast<int>(index % Cols()));
}

void Grid::TextArray(long index, std::string text) {
    const int row = rowOfCell(index);
    TextMatrix(row, static_cast<int>(index % Cols()), std::move(text));
}

int Grid::rowOfCell(long index) const {
    // Tested before the division, which would round a small negative index up to row 0.
    if (index < 0) throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
    const long row = index / Cols();
    checkIndex(row, cells_);
    return static_cast<int>(row);
}

void Grid::Row(int row) {
    checkIndex(row, cells_);
    if (row == row_) return;
    row_ = row;
    currentCellMoved();
}

void Grid::Col(int column) {
    checkIndex(column, columnWidths_);
    if (column == column_) return;
    column_ = column;
    currentCellMoved();
}

void Grid::currentCellMoved() {
    gridChanged.raise({GridChange::Kind::CurrentCell, row_, 1});
    EnterCell.raise();
    RowColChange.raise();
    if (hasFocus()) form().moveFocus(this, true);
}

void Grid::RemoveItem(int row) {
    checkIndex(row, cells_);
    if (row < FixedRows()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    removeRows(row, 1);
}

void Grid::Clear() {
    for (auto& row : cells_)
        for (auto& cell : row)
            cell.clear();
    gridChanged.raise({GridChange::Kind::CellsChanged, 0, Rows()});
}

int Grid::ColWidth(int column) const {
    checkIndex(column, columnWidths_);
    return columnWidths_[at(column)];
}

void Grid::ColWidth(int column, int width) {
    checkIndex(column, columnWidths_);
    if (width < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    columnWidths_[at(column)] = width;
    gridChanged.raise({GridChange::Kind::Geometry, 0, 0});
}

void Grid::RowHeightMin(int height) {
    if (height < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    rowHeightMin_ = height;
    gridChanged.raise({GridChange::Kind::Geometry, 0, 0});
}

int Grid::CellLeft() const {
    return std::accumulate(columnWidths_.begin(), columnWidths_.begin() + column_, 0);
}

int Grid::CellTop() const {
    return row_ < FixedRows() ? row_ * rowHeightMin_
                              : (FixedRows() + row_ - topRow_) * rowHeightMin_;
}

void Grid::requireCell(int row, int column) const {
    requireReachable();
    if (row >= 0 && row < FixedRows()) refuse("row " + std::to_string(row) + " is its header");
    if (row < 0 || row >= Rows()) refuse("it has no row " + std::to_string(row));
    if (column < 0 || column >= Cols()) refuse("it has no column " + std::to_string(column));
}

void Grid::enter(int row, int column) {
    const bool moved = row != row_ || column != column_;
    row_ = row;
    column_ = column;
    gridChanged.raise({GridChange::Kind::CurrentCell, row_, 1});
    EnterCell.raise();
    if (!hasFocus()) form().moveFocus(nullptr);
    if (moved) RowColChange.raise();
    form().moveFocus(this, true);
}

void Grid::clickCell(int row, int column) {
    perform(
        {.kind = PersonAction::Kind::ClickCell, .control = this, .index = row, .column = column},
        [&] {
            requireCell(row, column);
            enter(row, column);
            Click.raise();
        });
}

void Grid::doubleClickCell(int row, int column) {
    perform({.kind = PersonAction::Kind::DoubleClickCell,
             .control = this,
             .index = row,
             .column = column},
            [&] {
                const int modalBefore = form().desktop().modalCount();
                clickCell(row, column);
                if (form().desktop().modalCount() == modalBefore) DblClick.raise();
            });
}

void Grid::clickAgain() {
    perform({.kind = PersonAction::Kind::ClickAgain, .control = this}, [this] {
        takeFocus();
        DblClick.raise();
    });
}

void Grid::shownFrom(int topRow) {
    topRow_ = std::clamp(topRow, FixedRows(), std::max(FixedRows(), Rows() - 1));
}

void Grid::scroll(int topRow) {
    perform({.kind = PersonAction::Kind::Scroll, .control = this, .index = topRow}, [&] {
        requireReachable();
        const int before = topRow_;
        shownFrom(topRow);
        if (topRow_ == before) return;
        gridChanged.raise({GridChange::Kind::Geometry, 0, 0});
        Scroll.raise();
    });
}

void Grid::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        int row = row_;
        int column = column_;
        switch (key.kind) {
            case Key::Kind::Up:
                --row;
                break;
            case Key::Kind::Down:
                ++row;
                break;
            case Key::Kind::Left:
                --column;
                break;
            case Key::Kind::Right:
                ++column;
                break;
            case Key::Kind::Character:
            case Key::Kind::Enter:
                KeyPress.raise(key.pressCode());
                return;
            default:
                form().pressDialogKey(key);
                return;
        }
        if (row >= FixedRows() && row < Rows() && column >= 0 && column < Cols())
            enter(row, column);
    });
}

}  // namespace headerdtc
