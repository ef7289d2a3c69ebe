#include "qt/surface/items_model.h"

#include "qt/surface/text.h"

namespace headerdtc::qt {
namespace {

// Numbers are padded with blanks to stand right-aligned, which only blanks as wide as a digit do.
QString withDigitWideMargin(QString text) {
    constexpr QChar FigureSpace(0x2007);
    for (QChar& c : text) {
        if (c != ' ') break;
        c = FigureSpace;
    }
    return text;
}

}  // namespace

int ItemsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

QVariant ItemsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !items_.has(index.row())) return {};
    const ListItems::Item& item = items_.at(index.row());
    if (role == Qt::CheckStateRole && showsMarks_)
        return item.selected ? Qt::Checked : Qt::Unchecked;
    const QString text = toQt(item.text);
    if (role == Qt::DisplayRole) return withDigitWideMargin(text);
    if (role == Qt::EditRole) return text;
    return remarks_.data(index, role, role == Qt::AccessibleTextRole ? QVariant(text) : QVariant());
}

void ItemsModel::setRemarks(ItemRemarks remarks) {
    remarks_ = std::move(remarks);
    if (count_ > 0) Q_EMIT dataChanged(index(0), index(count_ - 1));
}

void ItemsModel::begin(const ItemsChange& change) {
    const int last = change.first + change.count - 1;
    switch (change.kind) {
        case ItemsChange::Kind::Inserted:
            return beginInsertRows({}, change.first, last);
        case ItemsChange::Kind::Removed:
            return beginRemoveRows({}, change.first, last);
        case ItemsChange::Kind::Changed:
            return;
        case ItemsChange::Kind::Reset:
            return beginResetModel();
    }
}

void ItemsModel::apply(const ItemsChange& change) {
    count_ = items_.count();
    switch (change.kind) {
        case ItemsChange::Kind::Inserted:
            endInsertRows();
            break;
        case ItemsChange::Kind::Removed:
            endRemoveRows();
            break;
        case ItemsChange::Kind::Changed:
            Q_EMIT dataChanged(index(change.first), index(change.first + change.count - 1));
            break;
        case ItemsChange::Kind::Reset:
            endResetModel();
            break;
    }
}

}  // namespace headerdtc::qt
