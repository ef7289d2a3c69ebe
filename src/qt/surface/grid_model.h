#pragma once

#include "controls/grid.h"
#include "qt/surface/item_remarks.h"

#include <QAbstractTableModel>
#include <map>

namespace headerdtc::qt {

// The cells of a grid, read where they are. The grid's fixed row is the header; row 0 here is the
// first one below it.
class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(const Grid& grid);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Follows a change that the grid is about to go through, and has gone through.
    void begin(const GridChange& change);
    void apply(const GridChange& change);

    // Of the cells of a column.
    void setRemarks(int column, ItemRemarks remarks);

    QModelIndex currentCell() const;
    int gridRow(const QModelIndex& index) const { return index.row() + grid_.FixedRows(); }

  private:
    const Grid& grid_;
    int rows_;  // as Qt knows them
    std::map<int, ItemRemarks> remarks_;
};

}  // namespace headerdtc::qt
