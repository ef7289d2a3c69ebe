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
    if (!index.isValid() || index.row() >= count_) return {};
    if (role == Qt::DisplayRole) return withDigitWideMargin(toQt(text_(index.row())));
    if (role == Qt::EditRole) return toQt(text_(index.row()));
    return remarks_.data(
        index, role,
        role == Qt::AccessibleTextRole ? QVariant(toQt(text_(index.row()))) : QVariant());
}

void ItemsModel::setRemarks(ItemRemarks remarks) {
    remarks_ = std::move(remarks);
    if (count_ > 0) Q_EMIT dataChanged(index(0), index(count_ - 1));
}

void ItemsModel::apply(const ItemsChange& change) {
    const int last = change.first + change.count - 1;
    switch (change.kind) {
        case ItemsChange::Kind::Inserted:
            beginInsertRows({}, change.first, last);
            count_ += change.count;
            endInsertRows();
            break;
        case ItemsChange::Kind::Removed:
            beginRemoveRows({}, change.first, last);
            count_ -= change.count;
            endRemoveRows();
            break;
        case ItemsChange::Kind::Changed:
            Q_EMIT dataChanged(index(change.first), index(last));
            break;
        case ItemsChange::Kind::Reset:
            beginResetModel();
            count_ = change.count;
            endResetModel();
            break;
    }
}

}  // namespace headerdtc::qt
