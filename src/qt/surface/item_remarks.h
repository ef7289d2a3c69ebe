#pragma once

#include <QIcon>
#include <QModelIndex>
#include <QString>
#include <QVariant>
#include <functional>

namespace headerdtc::qt {

// What there is to say of the items of a list or the cells of a grid besides their texts: an icon
// before the text, the remark as tool tip and status tip, and spoken after the text.
struct ItemRemarks {
    std::function<QString(const QModelIndex&)> of;  // empty: nothing is to be said
    QIcon icon;

    // What a remark supplies for a role; `otherwise` where it supplies nothing.
    QVariant data(const QModelIndex& index, int role, const QVariant& otherwise) const {
        const bool speaks = role == Qt::ToolTipRole || role == Qt::StatusTipRole ||
                            role == Qt::AccessibleTextRole ||
                            role == Qt::AccessibleDescriptionRole || role == Qt::DecorationRole;
        if (!of || !speaks) return otherwise;
        const QString remark = of(index);
        if (remark.isEmpty()) return otherwise;
        if (role == Qt::DecorationRole) return icon;
        if (role == Qt::AccessibleTextRole)
            return QString(otherwise.toString() + QStringLiteral(", ") + remark);
        return remark;
    }
};

}  // namespace headerdtc::qt
