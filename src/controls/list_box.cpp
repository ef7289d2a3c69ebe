#include "controls/list_box.h"

#include "controls/form.h"
#include "controls/utf8.h"
#include "platform/runtime_error.h"

#include <algorithm>

namespace headerdtc {

const ListItems::Item& ListItems::at(int index) const {
    if (index < 0 || index >= count()) throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
    return items_[index];
}

ListItems::Item& ListItems::at(int index) {
    return const_cast<Item&>(std::as_const(*this).at(index));
}

void ListItems::insert(int index, std::string text) {
    if (index < 0 || index > count()) throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
    if (count() >= MaxListCount) throw RuntimeError(ErrorNumber::Overflow);
    items_.insert(index, {std::move(text), false});
    changed_.raise({ItemsChange::Kind::Inserted, index, 1});
}

void ListItems::remove(int index) {
    at(index);
    items_.erase(index);
    changed_.raise({ItemsChange::Kind::Removed, index, 1});
}

void ListItems::clear() {
    if (count() == 0) return;
    items_.clear();
    changed_.raise({ItemsChange::Kind::Reset, 0, 0});
}

void ListItems::replace(int index, const std::string& text) {
    at(index).text = text;
    changed_.raise({ItemsChange::Kind::Changed, index, 1});
}

int ListItems::find(const std::string& text, int start) const {
    for (int i = start; i < count(); ++i) {
        if (items_[i].text == text) return i;
    }
    return -1;
}

ListBox::ListBox(Form& form, std::string name, Selection selection)
    : Control(form, std::move(name)), selection_(selection) {}

std::string ListBox::ListOrEmpty(int index) const {
    return index >= 0 && index < ListCount() ? List(index) : std::string();
}

void ListBox::AddItem(const std::string& text, int index) {
    items_.insert(index, text);
    if (listIndex_ >= index) ++listIndex_;
}

void ListBox::RemoveItem(int index) {
    if (items_.at(index).selected) --selCount_;
    items_.remove(index);
    if (listIndex_ == index) {
        listIndex_ = -1;
        selectionChanged.raise();
    } else if (listIndex_ > index) {
        --listIndex_;
    }
}

void ListBox::Clear() {
    listIndex_ = -1;
    selCount_ = 0;
    items_.clear();
    selectionChanged.raise();
}

void ListBox::ListIndex(int index) {
    if (index < -1 || index >= ListCount()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    listIndex_ = index;
    if (!isMultiSelect()) {
        for (int i = 0; selCount_ > 0 && i < ListCount(); ++i)
            mark(i, false);
        if (index >= 0) mark(index, true);
    }
    selectionChanged.raise();
    Click.raise();
}

void ListBox::Selected(int index, bool selected) {
    items_.at(index);
    if (!isMultiSelect()) {
        for (int i = 0; selCount_ > 0 && i < ListCount(); ++i)
            mark(i, false);
        if (selected) {
            listIndex_ = index;
        } else if (listIndex_ == index) {
            listIndex_ = -1;
        }
    }
    mark(index, selected);
    selectionChanged.raise();
}

void ListBox::mark(int index, bool selected) {
    auto& item = items_.at(index);
    if (item.selected == selected) return;
    item.selected = selected;
    selCount_ += selected ? 1 : -1;
}

void ListBox::requireItem(int item) const {
    if (item < 0 || item >= ListCount()) refuse("it has no item " + std::to_string(item));
}

void ListBox::selectOnly(const std::vector<int>& items, int focusItem) {
    for (int i = 0; selCount_ > 0 && i < ListCount(); ++i)
        mark(i, false);
    for (const int item : items)
        mark(item, true);
    listIndex_ = focusItem;
    selectionChanged.raise();
}

void ListBox::select(const std::vector<int>& items, int focusItem) {
    requireReachable();
    for (const int item : items)
        requireItem(item);
    if (focusItem >= 0) requireItem(focusItem);
    if (!isMultiSelect() && items.size() > 1) refuse("it takes one selected item only");
    if (!isMultiSelect() && items.size() == 1 && focusItem != items.front())
        refuse("the focus of a single-selection list is its selected item");
    takeFocus();
    selectOnly(items, focusItem);
    Click.raise();
}

void ListBox::doubleClick(int item) {
    requireReachable();
    requireItem(item);
    takeFocus();
    selectOnly({item}, item);
    const int modalBefore = form().desktop().modalCount();
    Click.raise();
    // A dialog opened by the first press has taken the second one away from the list.
    if (form().desktop().modalCount() == modalBefore) DblClick.raise();
}

void ListBox::doubleClickEmptyArea() {
    takeFocus();
    DblClick.raise();
}

void ListBox::press(const Key& key) {
    takeFocus();
    if (pressTab(key) || form().pressDialogKey(key)) return;
    int target = listIndex_;
    switch (key.kind) {
        case Key::Kind::Up:
        case Key::Kind::Left:
            target = std::max(0, listIndex_ - 1);
            break;
        case Key::Kind::Down:
        case Key::Kind::Right:
            target = std::min(ListCount() - 1, listIndex_ + 1);
            break;
        case Key::Kind::Character:
            for (int step = 1; step <= ListCount(); ++step) {
                const int next = (listIndex_ + step) % ListCount();
                if (utf8::first(List(next)) != key.character) continue;
                target = next;
                break;
            }
            break;
        default:
            return;
    }
    if (ListCount() == 0 || target < 0) return;
    if (target == listIndex_ && SelCount() == 1 && Selected(target)) return;
    selectOnly({target}, target);
    Click.raise();
}

}  // namespace headerdtc
