#include "qt/surface/list_box_view.h"

#include "qt/surface/selection_list.h"
#include "qt/surface/text.h"

#include <QItemSelectionModel>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>
#include <vector>

namespace headerdtc::qt {
namespace {

// The selected items as ranges: a list of any length can be selected as a whole.
QItemSelection selectionOf(const ListBox& model, const ItemsModel& items) {
    QItemSelection selection;
    for (int first = 0; model.SelCount() > 0 && first < model.ListCount(); ++first) {
        if (!model.Selected(first)) continue;
        int last = first;
        while (last + 1 < model.ListCount() && model.Selected(last + 1))
            ++last;
        selection.select(items.index(first), items.index(last));
        first = last;
    }
    return selection;
}

// In a list of marks, where check marks tell what is selected, the highlight is the focus's.
class MarkDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Selected,
                              option->state.testFlag(QStyle::State_HasFocus));
    }
};

}  // namespace

ListBoxView::ListBoxView(ListBox& model, SelectionList& widget, FormFace face)
    : ControlView(model, widget, face), model_(model), list_(widget), items_(model.items()) {
    outlineFocus(list_);
    list_.setModel(&items_);
    list_.setSelectionMode(model_.isToggled()       ? QAbstractItemView::MultiSelection
                           : model_.isMultiSelect() ? QAbstractItemView::ExtendedSelection
                                                    : QAbstractItemView::SingleSelection);
    items_.showMarks(model_.isToggled());
    if (model_.isToggled()) list_.setItemDelegate(new MarkDelegate(&list_));
    showSoon_.setSingleShot(true);
    connect(&showSoon_, &QTimer::timeout, this, [this] { show(); });
    connect(&list_, &SelectionList::actionBegins, this, [this] { showIfPending(); });
    connect(&list_, &SelectionList::selected, this, [this] { select(); });
    // The item was selected by the first press.
    connect(&list_, &SelectionList::pressedTwice, this,
            [this] { act([this] { model_.doubleClickEmptyArea(); }); });
    subscriptions_ +=
        model_.itemsChanging.subscribe([this](const ItemsChange& change) { beginChange(change); });
    subscriptions_ +=
        model_.itemsChanged.subscribe([this](const ItemsChange& change) { applyChange(change); });
    subscriptions_ += model_.selectionChanged.subscribe([this] { showSoon_.start(); });
}

void ListBoxView::beginChange(const ItemsChange& change) {
    const SelectionList::Showing showing(list_);
    // Qt would shift every selected range with each item that goes; show() puts them anew.
    if (!showSoon_.isActive()) list_.selectionModel()->clear();
    items_.begin(change);
}

void ListBoxView::applyChange(const ItemsChange& change) {
    const SelectionList::Showing showing(list_);
    items_.apply(change);
    showSoon_.start();
}

void ListBoxView::showIfPending() {
    if (showSoon_.isActive()) show();
}

void ListBoxView::show() {
    showSoon_.stop();
    const SelectionList::Showing showing(list_);
    QItemSelectionModel& selection = *list_.selectionModel();
    const QModelIndex current = items_.index(model_.ListIndex());
    if (current.isValid() && current != selection.currentIndex()) {
        selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        list_.scrollTo(current);
    } else if (!current.isValid()) {
        selection.clearCurrentIndex();
    }
    selection.select(selectionOf(model_, items_), QItemSelectionModel::ClearAndSelect);
    // What is selected is no part of a selection that the mouse is still drawing.
    selection.select(QItemSelection(), QItemSelectionModel::Select);
    describe(counted(model_.ListCount(), "item", "items"));
}

bool ListBoxView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    // The blank is the model's too: Qt would select with it but never deselect.
    const bool isModels =
        key && (!key->shift || model_.isToggled()) && (isArrowKey(*key) || key->isBlank());
    if (!isModels) return ControlView::keyPressed(event);
    act([&] { model_.press(*key); });
    showIfPending();
    return true;
}

void ListBoxView::select() {
    const QModelIndex current = list_.currentIndex();
    std::vector<int> items;
    for (const QItemSelectionRange& range : list_.selectionModel()->selection()) {
        for (int item = range.top(); item <= range.bottom(); ++item)
            items.push_back(item);
    }
    std::sort(items.begin(), items.end());
    // Where one item at most is selected, Ctrl does not deselect it.
    if (!model_.isMultiSelect() && current.isValid()) items = {current.row()};
    // Page keys and the like mark nothing in a list of marks.
    const bool onlyMoved = model_.isToggled() && current.isValid() && !isAnother(items);
    act([&] {
        if (onlyMoved) return model_.focusItem(current.row());
        model_.select(items, current.isValid() ? current.row() : -1);
    });
    show();
}

bool ListBoxView::isAnother(const std::vector<int>& items) const {
    return static_cast<int>(items.size()) != model_.SelCount() ||
           !std::all_of(items.begin(), items.end(),
                        [this](int item) { return model_.Selected(item); });
}

}  // namespace headerdtc::qt
