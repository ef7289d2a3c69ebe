#include "controls/editable_text.h"

#include "platform/runtime_error.h"
#include "platform/utf8.h"

#include <algorithm>

namespace headerdtc {

int EditableText::length() const {
    return utf8::length(text_);
}

void EditableText::assign(const std::string& text) {
    text_ = text;
    selStart_ = selLength_ = 0;
}

void EditableText::selectAll() {
    selStart_ = 0;
    selLength_ = length();
}

void EditableText::selectFrom(int position) {
    if (position < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    selStart_ = std::min(position, length());
    selLength_ = 0;
}

void EditableText::selectCharacters(int count) {
    if (count < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    selLength_ = std::min(count, length() - selStart_);
}

bool EditableText::edit(const std::string& text, int selStart, int selLength) {
    const bool changed = text != text_;
    text_ = text;
    selStart_ = std::clamp(selStart, 0, length());
    selLength_ = std::clamp(selLength, 0, length() - selStart_);
    return changed;
}

bool EditableText::press(Key::Kind key, char32_t character) {
    switch (key) {
        case Key::Kind::Left:
        case Key::Kind::Right:
            moveCaret(key);
            return false;
        case Key::Kind::Backspace:
        case Key::Kind::Delete:
            if (selLength_ == 0) {
                const bool back = key == Key::Kind::Backspace;
                if (selStart_ == (back ? 0 : length())) return false;
                selStart_ -= back ? 1 : 0;
                selLength_ = 1;
            }
            return insert({});
        case Key::Kind::Character:
            return insert(utf8::encode(character));
        default:
            return false;
    }
}

bool EditableText::insert(std::string_view replacement) {
    const auto from = utf8::offset(text_, selStart_);
    const auto to = utf8::offset(text_, selStart_ + selLength_);
    std::string text = text_;
    text.replace(from, to - from, replacement);
    return edit(text, selStart_ + utf8::length(replacement), 0);
}

void EditableText::moveCaret(Key::Kind arrow) {
    const bool left = arrow == Key::Kind::Left;
    const int edge = left ? selStart_ : selStart_ + selLength_;
    const int step = selLength_ > 0 ? 0 : left ? -1 : 1;
    selectFrom(std::max(0, edge + step));
}

}  // namespace headerdtc
