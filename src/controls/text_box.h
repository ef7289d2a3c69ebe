#pragma once

#include "controls/control.h"
#include "controls/editable_text.h"

#include <string>

namespace headerdtc {

// A text box of one or several lines. Text is UTF-8; positions count characters from 0.
class TextBox : public Control {
  public:
    enum class Lines { Single, Multiple };

    TextBox(Form& form, std::string name, Lines lines = Lines::Single)
        : Control(form, std::move(name)), lines_(lines) {}
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    bool isMultiLine() const { return lines_ == Lines::Multiple; }
    // A locked box shows its text and lets a person select, but not edit.
    bool Locked() const { return locked_; }
    void Locked(bool locked);

    const std::string& Text() const { return content_.text(); }
    // Raises Change when the text becomes another. The selection goes to the start then.
    void Text(const std::string& text);
    int SelStart() const { return content_.selStart(); }
    // Positions beyond the text are moved to its end; negative ones raise 380.
    void SelStart(int position);
    int SelLength() const { return content_.selLength(); }
    void SelLength(int length);

    // ---- what a person does ----------------------------------------------------------------
    // Replaces the whole content.
    void type(const std::string& text);
    // Presses a key: key-down, then key-press, then what the key does to the text.
    void press(const Key& key) override;
    // For windows whose own widget edits: the steps of press() one by one. The first two tell
    // whether the widget may go on with the key; edited() reports the text that came of it.
    bool keyDown(const Key& key);
    bool keyPress(const Key& key);
    void edited(const std::string& text, int selStart, int selLength);

    // ---- events ----------------------------------------------------------------------------
    Event<> Change;
    // Arguments: key code; 1 when shift is held, else 0.
    Event<int, int> KeyDown;
    // Argument: the key code, which a handler may replace (0: the key is swallowed).
    Event<int&> KeyPress;
    // For views: text or selection is another.
    Event<> contentChanged;

  private:
    int raiseKeyPress(const Key& key);
    bool applyKey(const Key& key, int code);
    void tellContent(bool textChanged);

    Lines lines_;
    EditableText content_;
    bool locked_ = false;
};

}  // namespace headerdtc
