#include "controls/combo_box.h"

#include "controls/form.h"
#include "controls/person_action.h"
#include "platform/runtime_error.h"
#include "platform/utf8.h"

#include <algorithm>
#include <utility>

namespace headerdtc {

ComboBox::ComboBox(Form& form, std::string name, Style style)
    : Control(form, std::move(name)), style_(style) {}

void ComboBox::List(int index, const std::string& text) {
    items_.at(index).text = text;
    if (index == listIndex_) content_.assign(text);
    itemsChanged.raise({ItemsChange::Kind::Changed, index, 1});
    if (index == listIndex_) contentChanged.raise();
}

void ComboBox::AddItem(std::string text, int index) {
    items_.requirePlace(index);
    changeItems(*this, {ItemsChange::Kind::Inserted, index, 1}, [&] {
        items_.insert(index, std::move(text));
        if (listIndex_ >= index) ++listIndex_;
    });
}

void ComboBox::RemoveItem(int index) {
    items_.at(index);
    const bool hadIndex = listIndex_ == index;
    changeItems(*this, {ItemsChange::Kind::Removed, index, 1}, [&] {
        items_.remove(index);
        if (hadIndex) {
            listIndex_ = -1;
            content_.assign({});
        } else if (listIndex_ > index) {
            --listIndex_;
        }
    });
    if (hadIndex) contentChanged.raise();
}

void ComboBox::Clear() {
    listIndex_ = -1;
    content_.assign({});
    if (ListCount() > 0)
        changeItems(*this, {ItemsChange::Kind::Reset, 0, 0}, [this] { items_.clear(); });
    contentChanged.raise();
}

void ComboBox::ListIndex(int index) {
    if (index != -1 && !items_.has(index)) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    pick(index);
}

void ComboBox::Text(const std::string& text) {
    if (!isEditable()) {
        const int item = find(text);
        if (item < 0 && !text.empty()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
        return pick(item);
    }
    if (text == Text()) return;
    listIndex_ = -1;
    content_.assign(text);
    tellContent(true);
}

void ComboBox::SelStart(int position) {
    content_.selectFrom(position);
    tellContent(false);
}

void ComboBox::SelLength(int length) {
    content_.selectCharacters(length);
    tellContent(false);
}

void ComboBox::pick(int item) {
    content_.assign(item < 0 ? std::string() : List(item));
    listIndex_ = item;
    if (isEditable()) content_.selectAll();
    tellContent(false);
    Click.raise();
}

void ComboBox::choose(int item) {
    perform({.kind = PersonAction::Kind::Choose, .control = this, .index = item}, [&] {
        requireReachable();
        if (!items_.has(item)) refuse("it has no item " + std::to_string(item));
        takeFocus();
        pick(item);
    });
}

void ComboBox::choose(const std::string& text) {
    requireReachable();
    const int item = find(text);
    if (item < 0) refuse("it has no item \"" + text + "\"");
    choose(item);
}

void ComboBox::type(const std::string& text) {
    perform({.kind = PersonAction::Kind::Edit, .control = this, .text = &text}, [&] {
        requireReachable();
        if (!isEditable()) refuse("its text can only be chosen from its list");
        if (text.find_first_of("\r\n") != std::string::npos) refuse("it holds a single line");
        takeFocus();
        edited(text, utf8::length(text), 0);
    });
}

void ComboBox::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        if (key.kind == Key::Kind::Up) return moveBy(-1);
        if (key.kind == Key::Kind::Down) return moveBy(1);
        if (form().pressDialogKey(key) || !keyPress(key)) return;
        if (isEditable()) {
            EditableText after = content_;
            after.press(key.kind, key.character);
            edited(after.text(), after.selStart(), after.selLength());
        } else if (key.kind == Key::Kind::Character) {
            const int next = items_.findNext(listIndex_, key.character);
            if (next >= 0 && next != listIndex_) pickByKey(next);
        }
    });
}

bool ComboBox::keyPress(const Key& key) {
    int code = key.pressCode();
    if (code != 0) {
        perform({.kind = PersonAction::Kind::KeyStep, .control = this, .key = key},
                [&] { KeyPress.raise(code); });
        if (code == 0) return false;
    }
    return hasFocus();
}

void ComboBox::moveBy(int step) {
    const int target = std::clamp(listIndex_ + step, 0, std::max(0, ListCount() - 1));
    if (target != listIndex_ && ListCount() > 0) pickByKey(target);
}

// Whoever records is told of a choice by mouse, which has the same effect as the key.
void ComboBox::pickByKey(int item) {
    perform({.kind = PersonAction::Kind::Choose, .control = this, .index = item},
            [&] { pick(item); });
}

void ComboBox::edited(const std::string& text, int selStart, int selLength) {
    perform({.kind = PersonAction::Kind::Edit, .control = this, .text = &text}, [&] {
        const bool changed = content_.edit(text, selStart, selLength);
        if (changed) listIndex_ = -1;
        tellContent(changed);
    });
}

void ComboBox::tellContent(bool textChanged) {
    contentChanged.raise();
    if (textChanged) Change.raise();
}

}  // namespace headerdtc
