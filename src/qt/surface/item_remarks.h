#pragma once

#include <QIcon>
#include <QModelIndex>
#include <QString>
#include <QVariant>
#include <functional>

namespace headerdtc::qt {

// What there is to say of an item of a list or a cell of a grid besides its text: an icon before
// the text, the words as tool tip and status tip, and spoken after the text.
struct ItemRemark {
    QString words;  // empty: nothing is to be said
    QIcon icon;
};

struct ItemRemarks {
    std::function<ItemRemark(const QModelIndex&)> of;

    // What a remark supplies for a role; `otherwise` where it supplies nothing.
    QVariant data(const QModelIndex& index, int role, const QVariant& otherwise) const {
        const bool speaks = role == Qt::ToolTipRole || role == Qt::StatusTipRole ||
                            role == Qt::AccessibleTextRole ||
                            role == Qt::AccessibleDescriptionRole || role == Qt::DecorationRole;
        if (!of || !speaks) return otherwise;
        const ItemRemark remark = of(index);
        if (remark.words.isEmpty()) return otherwise;
        if (role == Qt::DecorationRole) return remark.icon;
        if (role == Qt::AccessibleTextRole)
            return QString(otherwise.toString() + QStringLiteral(", ") + remark.words);
        return remark.words;
    }
};

}  // namespace headerdtc::qt
