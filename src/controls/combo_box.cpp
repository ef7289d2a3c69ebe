#include "controls/combo_box.h"

#include "controls/form.h"
#include "controls/utf8.h"
#include "platform/runtime_error.h"

#include <algorithm>

namespace headerdtc {

ComboBox::ComboBox(Form& form, std::string name, Style style)
    : Control(form, std::move(name)), style_(style) {}

void ComboBox::List(int index, const std::string& text) {
    items_.replace(index, text);
    if (index != listIndex_) return;
    text_ = text;
    contentChanged.raise();
}

void ComboBox::AddItem(const std::string& text, int index) {
    items_.insert(index, text);
    if (listIndex_ >= index) ++listIndex_;
}

void ComboBox::RemoveItem(int index) {
    items_.remove(index);
    if (listIndex_ > index) {
        --listIndex_;
    } else if (listIndex_ == index) {
        listIndex_ = -1;
        text_.clear();
        contentChanged.raise();
    }
}

void ComboBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    text_.clear();
    selStart_ = selLength_ = 0;
    contentChanged.raise();
}

void ComboBox::ListIndex(int index) {
    if (index < -1 || index >= ListCount()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    pick(index);
}

void ComboBox::Text(const std::string& text) {
    if (!isEditable()) {
        const int item = find(text);
        if (item < 0 && !text.empty()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
        return pick(item);
    }
    if (text == text_) return;
    listIndex_ = -1;
    text_ = text;
    selStart_ = selLength_ = 0;
    contentChanged.raise();
    Change.raise();
}

void ComboBox::SelStart(int position) {
    if (position < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    selStart_ = std::min(position, utf8::length(text_));
    selLength_ = 0;
    contentChanged.raise();
}

void ComboBox::SelLength(int length) {
    if (length < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    selLength_ = std::min(length, utf8::length(text_) - selStart_);
    contentChanged.raise();
}

void ComboBox::pick(int item) {
    listIndex_ = item;
    text_ = item < 0 ? std::string() : List(item);
    selStart_ = 0;
    selLength_ = isEditable() ? utf8::length(text_) : 0;
    contentChanged.raise();
    Click.raise();
}

void ComboBox::choose(int item) {
    requireReachable();
    if (item < 0 || item >= ListCount()) refuse("it has no item " + std::to_string(item));
    takeFocus();
    pick(item);
}

void ComboBox::choose(const std::string& text) {
    requireReachable();
    const int item = find(text);
    if (item < 0) refuse("it has no item \"" + text + "\"");
    choose(item);
}

void ComboBox::type(const std::string& text) {
    requireReachable();
    if (!isEditable()) refuse("its text can only be chosen from its list");
    if (text.find_first_of("\r\n") != std::string::npos) refuse("it holds a single line");
    takeFocus();
    edited(text, utf8::length(text), 0);
}

void ComboBox::press(const Key& key) {
    takeFocus();
    if (pressTab(key)) return;
    if (key.kind == Key::Kind::Up) return moveBy(-1);
    if (key.kind == Key::Kind::Down) return moveBy(1);
    if (form().pressDialogKey(key)) return;
    if (keyPress(key)) editByKey(key);
}

bool ComboBox::keyPress(const Key& key) {
    int code = key.pressCode();
    if (code != 0) {
        KeyPress.raise(code);
        if (code == 0) return false;
    }
    return hasFocus();
}

void ComboBox::moveBy(int step) {
    const int target = std::clamp(listIndex_ + step, 0, std::max(0, ListCount() - 1));
    if (target != listIndex_ && ListCount() > 0) pick(target);
}

void ComboBox::editByKey(const Key& key) {
    if (!isEditable()) {
        if (key.kind != Key::Kind::Character) return;
        for (int step = 1; step <= ListCount(); ++step) {
            const int next = (std::max(listIndex_, -1) + step) % ListCount();
            if (utf8::first(List(next)) != key.character) continue;
            if (next != listIndex_) pick(next);
            return;
        }
        return;
    }
    int start = selStart_;
    int length = selLength_;
    std::string typed;
    if (key.kind == Key::Kind::Character) {
        typed = utf8::encode(key.character);
    } else if (key.kind == Key::Kind::Backspace || key.kind == Key::Kind::Delete) {
        if (length == 0) {
            if (key.kind == Key::Kind::Backspace && --start < 0) return;
            length = 1;
        }
    } else {
        return;
    }
    const auto from = utf8::offset(text_, start);
    const auto to = utf8::offset(text_, start + length);
    std::string text = text_;
    text.replace(from, to - from, typed);
    edited(text, start + utf8::length(typed), 0);
}

void ComboBox::edited(const std::string& text, int selStart, int selLength) {
    const bool changed = text != text_;
    if (changed) listIndex_ = -1;
    text_ = text;
    selStart_ = std::clamp(selStart, 0, utf8::length(text_));
    selLength_ = std::clamp(selLength, 0, utf8::length(text_) - selStart_);
    contentChanged.raise();
    if (changed) Change.raise();
}

}  // namespace headerdtc
