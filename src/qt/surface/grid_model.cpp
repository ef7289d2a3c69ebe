#include "qt/surface/grid_model.h"

#include "qt/surface/text.h"

#include <algorithm>

namespace headerdtc::qt {

GridModel::GridModel(const Grid& grid) : grid_(grid), rows_(grid.Rows() - grid.FixedRows()) {}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : grid_.Cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || gridRow(index) >= grid_.Rows()) return {};
    const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
    const QVariant text =
        isText ? toQt(grid_.TextMatrix(gridRow(index), index.column())) : QVariant();
    const auto remarks = remarks_.find(index.column());
    return remarks == remarks_.end() ? text : remarks->second.data(index, role, text);
}

void GridModel::setRemarks(int column, ItemRemarks remarks) {
    remarks_[column] = std::move(remarks);
    if (rows_ > 0) Q_EMIT dataChanged(index(0, column), index(rows_ - 1, column));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return toQt(grid_.TextMatrix(0, section));
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

// The header is never inserted or removed.
void GridModel::begin(const GridChange& change) {
    const int first = change.firstRow - grid_.FixedRows();
    const int last = first + change.rowCount - 1;
    if (change.kind == GridChange::Kind::RowsInserted) beginInsertRows({}, first, last);
    if (change.kind == GridChange::Kind::RowsRemoved) beginRemoveRows({}, first, last);
}

void GridModel::apply(const GridChange& change) {
    const int first = change.firstRow - grid_.FixedRows();
    const int last = first + change.rowCount - 1;
    rows_ = grid_.Rows() - grid_.FixedRows();
    switch (change.kind) {
        case GridChange::Kind::RowsInserted:
            endInsertRows();
            break;
        case GridChange::Kind::RowsRemoved:
            endRemoveRows();
            break;
        case GridChange::Kind::CellsChanged:
            if (first < 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, grid_.Cols() - 1);
            if (last >= 0)
                Q_EMIT dataChanged(index(std::max(first, 0), 0), index(last, grid_.Cols() - 1));
            break;
        case GridChange::Kind::Geometry:
        case GridChange::Kind::CurrentCell:
            break;
    }
}

QModelIndex GridModel::currentCell() const {
    return index(grid_.Row() - grid_.FixedRows(), grid_.Col());
}

}  // namespace headerdtc::qt
