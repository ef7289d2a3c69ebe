#pragma once

#include "controls/list_items.h"
#include "qt/surface/item_remarks.h"

#include <QAbstractListModel>

namespace headerdtc::qt {

// The items of a list or combo box, read where they are: nothing is copied, so a list of any
// length opens at once.
class ItemsModel : public QAbstractListModel {
  public:
    explicit ItemsModel(const ListItems& items) : items_(items), count_(items.count()) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // Follows a change that the items are about to go through, and have gone through.
    void begin(const ItemsChange& change);
    void apply(const ItemsChange& change);
    // Whether marked items show it by a check mark.
    void showMarks(bool shown) { showsMarks_ = shown; }
    void setRemarks(ItemRemarks remarks);

  private:
    const ListItems& items_;
    int count_;  // as Qt knows it
    bool showsMarks_ = false;
    ItemRemarks remarks_;
};

}  // namespace headerdtc::qt
