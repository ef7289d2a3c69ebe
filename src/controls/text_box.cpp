#include "controls/text_box.h"

#include "controls/form.h"
#include "controls/utf8.h"
#include "platform/runtime_error.h"

#include <algorithm>

namespace headerdtc {

void TextBox::Locked(bool locked) {
    locked_ = locked;
    appearanceChanged.raise();
}

void TextBox::Text(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    selStart_ = selLength_ = 0;
    contentChanged.raise();
    Change.raise();
}

void TextBox::SelStart(int position) {
    if (position < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    selStart_ = std::min(position, utf8::length(text_));
    selLength_ = 0;
    contentChanged.raise();
}

void TextBox::SelLength(int length) {
    if (length < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    selLength_ = std::min(length, utf8::length(text_) - selStart_);
    contentChanged.raise();
}

void TextBox::type(const std::string& text) {
    takeFocus();
    if (locked_) refuse("it is read-only");
    if (!isMultiLine() && text.find_first_of("\r\n") != std::string::npos)
        refuse("it holds a single line");
    edited(text, utf8::length(text), 0);
}

void TextBox::press(const Key& key) {
    takeFocus();
    if (pressTab(key)) return;
    const bool wantsKey = key.kind == Key::Kind::Enter && isMultiLine();
    if (!wantsKey && form().pressDialogKey(key)) return;
    if (!keyDown(key)) return;
    int code = key.pressCode();
    if (code != 0) {
        KeyPress.raise(code);
        if (code == 0) return;
    }
    // A handler may have moved the focus on; the key then has no text to act upon.
    if (hasFocus()) applyKey(key, code);
}

bool TextBox::keyDown(const Key& key) {
    KeyDown.raise(key.downCode(), key.shift ? 1 : 0);
    // The key-press belongs to this box even when the handler moved the focus, as the key does.
    return true;
}

bool TextBox::keyPress(const Key& key) {
    int code = key.pressCode();
    if (code == 0) return hasFocus();
    KeyPress.raise(code);
    return code != 0 && hasFocus();
}

void TextBox::edited(const std::string& text, int selStart, int selLength) {
    const bool changed = text != text_;
    text_ = text;
    const int length = utf8::length(text_);
    selStart_ = std::clamp(selStart, 0, length);
    selLength_ = std::clamp(selLength, 0, length - selStart_);
    contentChanged.raise();
    if (changed) Change.raise();
}

void TextBox::replaceSelection(const std::string& replacement) {
    const auto from = utf8::offset(text_, selStart_);
    const auto to = utf8::offset(text_, selStart_ + selLength_);
    std::string text = text_;
    text.replace(from, to - from, replacement);
    edited(text, selStart_ + utf8::length(replacement), 0);
}

void TextBox::applyKey(const Key& key, int code) {
    const int end = utf8::length(text_);
    switch (key.kind) {
        case Key::Kind::Left:
            return SelStart(std::max(0, selStart_ - 1));
        case Key::Kind::Right:
            return SelStart(std::min(end, selStart_ + selLength_ + 1));
        case Key::Kind::Backspace:
        case Key::Kind::Delete:
            if (locked_) return;
            if (selLength_ == 0) {
                const bool back = key.kind == Key::Kind::Backspace;
                if (back ? selStart_ == 0 : selStart_ == end) return;
                if (back) --selStart_;
                selLength_ = 1;
            }
            return replaceSelection({});
        case Key::Kind::Enter:
            if (isMultiLine() && !locked_) replaceSelection("\r\n");
            return;
        case Key::Kind::Character:
            if (!locked_) replaceSelection(utf8::encode(static_cast<char32_t>(code)));
            return;
        default:
            return;
    }
}

}  // namespace headerdtc
