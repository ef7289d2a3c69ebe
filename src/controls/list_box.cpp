#include "controls/list_box.h"

#include "controls/form.h"
#include "controls/person_action.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace headerdtc {

ListBox::ListBox(Form& form, std::string name, Selection selection)
    : Control(form, std::move(name)), selection_(selection) {}

void ListBox::List(int index, const std::string& text) {
    items_.at(index).text = text;
    itemsChanged.raise({ItemsChange::Kind::Changed, index, 1});
}

std::string ListBox::ListOrEmpty(int index) const {
    return items_.has(index) ? List(index) : std::string();
}

void ListBox::AddItem(std::string text, int index) {
    items_.requirePlace(index);
    changeItems(*this, {ItemsChange::Kind::Inserted, index, 1}, [&] {
        items_.insert(index, std::move(text));
        if (listIndex_ >= index) ++listIndex_;
    });
}

void ListBox::RemoveItem(int index) {
    const bool wasSelected = items_.at(index).selected;
    const bool hadIndex = listIndex_ == index;
    changeItems(*this, {ItemsChange::Kind::Removed, index, 1}, [&] {
        if (wasSelected) --selCount_;
        items_.remove(index);
        if (hadIndex) {
            listIndex_ = -1;
        } else if (listIndex_ > index) {
            --listIndex_;
        }
    });
    if (hadIndex) selectionChanged.raise();
}

void ListBox::Clear() {
    if (ListCount() == 0) return;
    changeItems(*this, {ItemsChange::Kind::Reset, 0, 0}, [this] {
        items_.clear();
        listIndex_ = -1;
        selCount_ = 0;
    });
    selectionChanged.raise();
}

void ListBox::ListIndex(int index) {
    if (index != -1 && !items_.has(index)) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    if (!isMultiSelect()) {
        selectNone();
        if (index >= 0) mark(index, true);
    }
    listIndex_ = index;
    selectionChanged.raise();
    Click.raise();
}

void ListBox::Selected(int index, bool selected) {
    items_.at(index);
    if (!isMultiSelect()) {
        if (selected) {
            selectNone();
            listIndex_ = index;
        } else if (listIndex_ == index) {
            listIndex_ = -1;
        }
    }
    mark(index, selected);
    selectionChanged.raise();
}

void ListBox::Selected(const std::vector<int>& indices, bool selected) {
    if (!isMultiSelect()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    for (const int index : indices)
        items_.at(index);
    for (const int index : indices)
        mark(index, selected);
    selectionChanged.raise();
}

std::vector<int> ListBox::find(const std::vector<std::string>& texts) const {
    // Places among the texts that wait for an item, the first at the back.
    std::unordered_map<std::string_view, std::vector<std::size_t>> waiting;
    for (std::size_t i = texts.size(); i-- > 0;)
        waiting[texts[i]].push_back(i);
    std::vector<int> found(texts.size(), -1);
    for (int item = 0; item < ListCount(); ++item) {
        const auto places = waiting.find(List(item));
        if (places == waiting.end() || places->second.empty()) continue;
        found[places->second.back()] = item;
        places->second.pop_back();
    }
    return found;
}

void ListBox::mark(int index, bool selected) {
    auto& item = items_.at(index);
    if (item.selected == selected) return;
    item.selected = selected;
    selCount_ += selected ? 1 : -1;
}

void ListBox::selectNone() {
    // Where only one can be selected it is the one at ListIndex.
    if (!isMultiSelect() && listIndex_ >= 0) mark(listIndex_, false);
    for (int i = 0; selCount_ > 0 && i < ListCount(); ++i)
        mark(i, false);
}

void ListBox::selectOnly(const std::vector<int>& items, int focusItem) {
    selectNone();
    for (const int item : items)
        mark(item, true);
    listIndex_ = focusItem;
    selectionChanged.raise();
}

void ListBox::requireItem(int item) const {
    if (!items_.has(item)) refuse("it has no item " + std::to_string(item));
}

void ListBox::select(const std::vector<int>& items, int focusItem) {
    perform(
        {.kind = PersonAction::Kind::Select, .control = this, .index = focusItem, .items = &items},
        [&] {
            requireReachable();
            for (const int item : items)
                requireItem(item);
            if (focusItem != -1) requireItem(focusItem);
            if (!isMultiSelect()) {
                if (items.size() > 1) refuse("it takes one selected item only");
                if ((items.empty() ? -1 : items.front()) != focusItem)
                    refuse("the focus of a single-selection list is its selected item");
                if (items.empty() && listIndex_ >= 0)
                    refuse("a single-selection list does not give up its selected item");
            }
            takeFocus();
            selectOnly(items, focusItem);
            Click.raise();
        });
}

void ListBox::doubleClick(int item) {
    perform({.kind = PersonAction::Kind::DoubleClick, .control = this, .index = item}, [&] {
        requireReachable();
        requireItem(item);
        takeFocus();
        selectOnly({item}, item);
        const int modalBefore = form().desktop().modalCount();
        Click.raise();
        if (form().desktop().modalCount() == modalBefore) DblClick.raise();
    });
}

void ListBox::focusItem(int item) {
    perform({.kind = PersonAction::Kind::Focus, .control = this}, [&] {
        if (!isToggled()) refuse("the focus of its items goes with their selection");
        requireReachable();
        requireItem(item);
        takeFocus();
        moveTo(item);
    });
}

void ListBox::moveTo(int item) {
    listIndex_ = item;
    selectionChanged.raise();
}

void ListBox::doubleClickEmptyArea() {
    perform({.kind = PersonAction::Kind::DoubleClickEmptyArea, .control = this}, [this] {
        takeFocus();
        DblClick.raise();
    });
}

void ListBox::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key) || form().pressDialogKey(key)) return;
        if (isMultiSelect() && key.isBlank()) {
            if (listIndex_ < 0) return;
            std::vector<int> items;
            for (int i = 0; i < ListCount(); ++i) {
                if (Selected(i) != (i == listIndex_)) items.push_back(i);
            }
            return selectByKey(items, listIndex_);
        }
        const int item = itemReachedBy(key);
        if (isToggled() && item >= 0) return moveTo(item);
        if (item < 0 || (item == listIndex_ && SelCount() == 1 && Selected(item))) return;
        selectByKey({item}, item);
    });
}

// The effect of the key is told as well, so that whoever records need not know how keys lead
// through a list.
void ListBox::selectByKey(const std::vector<int>& items, int focusItem) {
    perform(
        {.kind = PersonAction::Kind::Select, .control = this, .index = focusItem, .items = &items},
        [&] {
            selectOnly(items, focusItem);
            Click.raise();
        });
}

// -1 when the key leads nowhere.
int ListBox::itemReachedBy(const Key& key) const {
    if (ListCount() == 0) return -1;
    switch (key.kind) {
        case Key::Kind::Up:
        case Key::Kind::Left:
            return std::max(0, listIndex_ - 1);
        case Key::Kind::Down:
        case Key::Kind::Right:
            return std::min(ListCount() - 1, listIndex_ + 1);
        case Key::Kind::Character:
            return items_.findNext(listIndex_, key.character);
        default:
            return -1;
    }
}

}  // namespace headerdtc
