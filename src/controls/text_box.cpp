#include "controls/text_box.h"

#include "controls/form.h"
#include "controls/person_action.h"
#include "platform/utf8.h"

namespace headerdtc {

void TextBox::Locked(bool locked) {
    locked_ = locked;
    appearanceChanged.raise();
}

void TextBox::Text(const std::string& text) {
    if (text == Text()) return;
    content_.assign(text);
    tellContent(true);
}

void TextBox::SelStart(int position) {
    content_.selectFrom(position);
    tellContent(false);
}

void TextBox::SelLength(int length) {
    content_.selectCharacters(length);
    tellContent(false);
}

void TextBox::type(const std::string& text) {
    perform({.kind = PersonAction::Kind::Edit, .control = this, .text = &text}, [&] {
        requireReachable();
        if (locked_) refuse("it is read-only");
        if (!isMultiLine() && text.find_first_of("\r\n") != std::string::npos)
            refuse("it holds a single line");
        takeFocus();
        edited(text, utf8::length(text), 0);
    });
}

void TextBox::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        const bool wantsKey = key.kind == Key::Kind::Enter && isMultiLine();
        if (!wantsKey && form().pressDialogKey(key)) return;
        if (!keyDown(key)) return;
        const int code = raiseKeyPress(key);
        const bool swallowed = code == 0 && key.pressCode() != 0;
        // A handler may have moved the focus; the key then changes no text.
        if (!swallowed && hasFocus()) tellContent(applyKey(key, code));
    });
}

bool TextBox::keyDown(const Key& key) {
    perform({.kind = PersonAction::Kind::KeyStep, .control = this, .key = key},
            [&] { KeyDown.raise(key.downCode(), key.shift ? 1 : 0); });
    // Even when the handler moved the focus, the key stays with this box.
    return true;
}

bool TextBox::keyPress(const Key& key) {
    int code = 0;
    perform({.kind = PersonAction::Kind::KeyStep, .control = this, .key = key},
            [&] { code = raiseKeyPress(key); });
    const bool swallowed = code == 0 && key.pressCode() != 0;
    return !swallowed && hasFocus();
}

// The key code after the handlers, which may have replaced it; 0, without an event, for a key that
// raises none.
int TextBox::raiseKeyPress(const Key& key) {
    int code = key.pressCode();
    if (code != 0) KeyPress.raise(code);
    return code;
}

void TextBox::edited(const std::string& text, int selStart, int selLength) {
    perform({.kind = PersonAction::Kind::Edit, .control = this, .text = &text},
            [&] { tellContent(content_.edit(text, selStart, selLength)); });
}

// Tells whether the text is another.
bool TextBox::applyKey(const Key& key, int code) {
    if (key.kind == Key::Kind::Left || key.kind == Key::Kind::Right) {
        content_.moveCaret(key.kind);
        return false;
    }
    if (locked_) return false;
    if (key.kind == Key::Kind::Enter) return isMultiLine() && content_.insert("\r\n");
    return content_.press(key.kind, static_cast<char32_t>(code));
}

void TextBox::tellContent(bool textChanged) {
    contentChanged.raise();
    if (textChanged) Change.raise();
}

}  // namespace headerdtc
