#include "qt/editor/lists/list_tools.h"

#include "core/header_dtc.h"
#include "qt/editor/lists/item_count.h"
#include "qt/editor/lists/list_finder.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/text.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>
#include <optional>

namespace headerdtc::qt {
namespace {

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

// A character that begins what is sought; the blank is the list's.
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
        // Marking a field there is translating it.
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
