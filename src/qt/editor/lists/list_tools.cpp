#include "qt/editor/lists/list_tools.h"

#include "controls/event.h"
#include "core/header_dtc.h"
#include "qt/editor/base/words.h"
#include "qt/editor/lists/list_finder.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/text.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <optional>

namespace headerdtc::qt {
namespace {

// ---- moving fields ------------------------------------------------------------------------------

std::vector<int> itemsToMove(const ListBox& list) {
    std::vector<int> items;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) items.push_back(i);
    }
    if (items.empty() && list.ListIndex() >= 0) items.push_back(list.ListIndex());
    return items;
}

bool isUpwards(FieldMove move) {
    return move == FieldMove::Up || move == FieldMove::ToTop;
}

struct Way {
    int from, to;
};

// In an order in which no moved item passes another.
std::vector<Way> waysOf(const ListBox& list, FieldMove move) {
    std::vector<int> items = itemsToMove(list);
    if (!isUpwards(move)) std::reverse(items.begin(), items.end());
    std::vector<Way> ways;
    const int last = list.ListCount() - 1;
    for (const int item : items) {
        const auto gone = static_cast<int>(ways.size());
        const int end = isUpwards(move) ? gone : last - gone;
        const bool toEnd = move == FieldMove::ToTop || move == FieldMove::ToBottom;
        const int beside = isUpwards(move) ? std::max(item - 1, end) : std::min(item + 1, end);
        ways.push_back({item, toEnd ? end : beside});
    }
    return ways;
}

// How often the buttons would be pressed.
long pressesFor(const ListBox& list, FieldMove move) {
    long presses = 0;
    for (const Way& way : waysOf(list, move))
        presses += std::abs(way.to - way.from);
    return presses;
}

// Moves the marked items of a list, or the one with the focus where none is marked, by what a
// person does: each is marked alone and the button pressed as often as needed. Afterwards the same
// items are marked again, in the same order. Throws what the operations throw.
void moveItems(ListBox& list, Button& up, Button& down, FieldMove move) {
    const std::vector<Way> ways = waysOf(list, move);
    if (pressesFor(list, move) == 0) return;
    Button& button = isUpwards(move) ? up : down;
    const int focused = list.ListIndex();
    int focus = ways.front().to;
    std::vector<int> moved;
    for (const Way& way : ways) {
        moved.push_back(way.to);
        if (way.from == focused) focus = way.to;
        if (way.from == way.to) continue;
        list.select({way.from}, way.from);
        for (int i = std::abs(way.to - way.from); i > 0; --i)
            button.press();
    }
    std::sort(moved.begin(), moved.end());
    list.select(moved, focus);
}

// ---- keys ---------------------------------------------------------------------------------------

struct MoveKey {
    int key;
    FieldMove move;
};

constexpr MoveKey MoveKeys[] = {
    {Qt::Key_Up, FieldMove::Up},
    {Qt::Key_Down, FieldMove::Down},
    {Qt::Key_Home, FieldMove::ToTop},
    {Qt::Key_End, FieldMove::ToBottom},
};

std::optional<FieldMove> moveOf(const QKeyEvent& event) {
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::AltModifier) return std::nullopt;
    for (const auto& [key, move] : MoveKeys) {
        if (event.key() == key) return move;
    }
    return std::nullopt;
}

bool isFindKey(const QKeyEvent& event) {
    return event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_F;
}

// Whether a key starts a search; a blank is a key of the list itself.
bool beginsText(const QKeyEvent& event) {
    const auto others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const QString text = event.text();
    return others == Qt::NoModifier && text.size() == 1 && text.at(0).isPrint() &&
           !text.at(0).isSpace();
}

QLayout* layoutAround(QLayout* layout, const QWidget* widget) {
    if (!layout) return nullptr;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        if (item->widget() == widget) return layout;
        if (QLayout* inner = layoutAround(item->layout(), widget)) return inner;
    }
    return nullptr;
}

// How many items a list has and how many of them are marked: "12 of 214".
class ItemCount : public QLabel {
  public:
    // The list outlives the label.
    ItemCount(ListBox& list, QWidget* parent) : QLabel(parent), list_(list) {
        setObjectName(toQt(list.name()) + QStringLiteral("Count"));
        setForegroundRole(QPalette::PlaceholderText);
        soon_.setSingleShot(true);
        connect(&soon_, &QTimer::timeout, this, [this] { follow(); });
        // Delayed, since lists are filled item by item.
        subscriptions_ +=
            list.itemsChanged.subscribe([this](const ItemsChange&) { soon_.start(); });
        subscriptions_ += list.selectionChanged.subscribe([this] { soon_.start(); });
        follow();
    }

  private:
    void follow() {
        const int all = list_.ListCount();
        const int marked = list_.SelCount();
        setText(marked > 0 ? ListTools::tr("%1 of %2").arg(marked).arg(all) : QString::number(all));
        const QString words =
            ListTools::tr("%1, %2 marked").arg(counted(all, "item", "items")).arg(marked);
        setToolTip(words);
        setAccessibleName(words);
    }

    ListBox& list_;
    QTimer soon_;
    Subscriptions subscriptions_;
};

}  // namespace

ListTools::ListTools(HeaderDTC& dtc, ControlSurface& surface)
    : QObject(&surface), surface_(surface) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        equip(family.FieldsList, &family.AddField, nullptr, nullptr, true);
        equip(family.SelectedFieldsList, nullptr, &family.MoveUpCommand, &family.MoveDownCommand,
              true);
        equip(family.LinkedFieldsList, &family.AddLinkedField, nullptr, nullptr, true);
        equip(family.SelectedLinkedFieldsList, nullptr, &family.MoveUpLinkedField,
              &family.MoveDownLinkedField, true);
        // Selecting a field there means translating it.
        equip(family.I18NFieldnamesList, nullptr, nullptr, nullptr, false);
        equip(family.I18NFieldValuesList, nullptr, nullptr, nullptr, false);
    }
}

void ListTools::equip(ListBox& list, Button* use, Button* up, Button* down, bool marksAtOnce) {
    auto* view = surface_.findChild<SelectionList*>(toQt(list.name()));
    if (!view) return;
    ListFinder::Ways ways;
    ways.act = [this](const std::function<void()>& action) { surface_.act(action); };
    ways.marksAtOnce = marksAtOnce;
    if (use) ways.use = [use] { use->press(); };
    tools_.push_back({&list, view, new ListFinder(list, *view, std::move(ways)), up, down});
    view->installEventFilter(this);
    addCount(list, *view);
}

// In the corner opposite to the list's label.
void ListTools::addCount(ListBox& list, SelectionList& view) {
    const auto labels = surface_.findChildren<QLabel*>();
    const auto label = std::find_if(labels.begin(), labels.end(), [&](const QLabel* candidate) {
        return candidate->buddy() == &view;
    });
    if (label == labels.end()) return;
    QLayout* around = layoutAround((*label)->parentWidget()->layout(), *label);
    auto* count = new ItemCount(list, (*label)->parentWidget());
    if (auto* grid = qobject_cast<QGridLayout*>(around)) {
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(grid->indexOf(*label), &row, &column, &rows, &columns);
        grid->addWidget(count, row, column, rows, columns, Qt::AlignRight | Qt::AlignBottom);
    } else if (auto* box = qobject_cast<QBoxLayout*>(around)) {
        const int index = box->indexOf(*label);
        auto* line = new QHBoxLayout;
        box->insertLayout(index, line);
        box->removeWidget(*label);
        line->addWidget(*label, 1);
        line->addWidget(count);
    }
}

bool ListTools::eventFilter(QObject* watched, QEvent* event) {
    const bool override = event->type() == QEvent::ShortcutOverride;
    if (!override && event->type() != QEvent::KeyPress) return false;
    const auto tools = std::find_if(tools_.begin(), tools_.end(),
                                    [&](const Tools& each) { return each.view == watched; });
    if (tools == tools_.end() || !tools->view->hasFocus()) return false;
    auto& key = static_cast<QKeyEvent&>(*event);
    if (!override) return keyPressed(*tools, key);
    // The window has other uses for some of these keys.
    if (isFindKey(key) || (tools->up && moveOf(key))) event->accept();
    return false;
}

bool ListTools::keyPressed(const Tools& tools, const QKeyEvent& event) {
    if (const auto move = moveOf(event); move && tools.up) {
        this->move(tools, *move);
        return true;
    }
    if (!isFindKey(event) && !beginsText(event)) return false;
    tools.finder->open(isFindKey(event) ? QString() : event.text());
    return true;
}

void ListTools::move(const Tools& tools, FieldMove move) {
    constexpr long NoticeablePresses = 500;
    const bool takesLong = pressesFor(*tools.list, move) > NoticeablePresses;
    if (takesLong) QApplication::setOverrideCursor(Qt::WaitCursor);
    surface_.setUpdatesEnabled(false);
    surface_.act([&] { moveItems(*tools.list, *tools.up, *tools.down, move); });
    surface_.setUpdatesEnabled(true);
    if (takesLong) QApplication::restoreOverrideCursor();
}

}  // namespace headerdtc::qt
