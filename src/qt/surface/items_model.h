#pragma once

#include "controls/list_items.h"
#include "qt/surface/item_remarks.h"

#include <QAbstractListModel>
#include <functional>
#include <string>

namespace headerdtc::qt {

// The items of a list or combo box, read where they are: nothing is copied, so a list of any
// length opens at once.
class ItemsModel : public QAbstractListModel {
  public:
    using ItemText = std::function<const std::string&(int index)>;

    ItemsModel(int count, ItemText text) : count_(count), text_(std::move(text)) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // Follows a change that the items have just gone through.
    void apply(const ItemsChange& change);
    void setRemarks(ItemRemarks remarks);

  private:
    int count_;  // as Qt knows it
    ItemText text_;
    ItemRemarks remarks_;
};

}  // namespace headerdtc::qt
