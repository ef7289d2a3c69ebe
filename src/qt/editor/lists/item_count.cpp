#include "qt/editor/lists/item_count.h"

#include "controls/list_box.h"
#include "qt/editor/base/words.h"
#include "qt/surface/text.h"

namespace headerdtc::qt {

ItemCount::ItemCount(ListBox& list, QWidget* parent) : QLabel(parent), list_(list) {
    setObjectName(toQt(list.name()) + QStringLiteral("Count"));
    setForegroundRole(QPalette::PlaceholderText);
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, &ItemCount::follow);
    // A list is filled item by item.
    subscriptions_ += list.itemsChanged.subscribe([this](const ItemsChange&) { soon_.start(); });
    subscriptions_ += list.selectionChanged.subscribe([this] { soon_.start(); });
    follow();
}

void ItemCount::follow() {
    const int all = list_.ListCount();
    const int marked = list_.SelCount();
    setText(marked > 0 ? tr("%1 of %2").arg(marked).arg(all) : QString::number(all));
    const QString words = tr("%1, %2 marked").arg(counted(all, "item", "items")).arg(marked);
    setToolTip(words);
    setAccessibleName(words);
}

}  // namespace headerdtc::qt
