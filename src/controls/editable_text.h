#pragma once

#include "controls/keys.h"

#include <string>
#include <string_view>

namespace headerdtc {

// A text that a person edits, and the part of it that is selected (the caret when that is empty).
// Text is UTF-8; positions count characters from 0.
class EditableText {
  public:
    const std::string& text() const { return text_; }
    int selStart() const { return selStart_; }
    int selLength() const { return selLength_; }

    // Another text; the caret goes to its start.
    void assign(const std::string& text);
    void selectAll();
    // Moves the caret. Positions beyond the end are moved there; negative ones raise 380.
    void selectFrom(int position);
    // Selects characters from selStart on, as far as there are any; a negative count raises 380.
    void selectCharacters(int count);

    // Another text with its selection, as far as that lies within. Tells whether the text is
    // another than before.
    bool edit(const std::string& text, int selStart, int selLength);
    // What a key does to the text; `character` is what is typed for a character key. Tells whether
    // the text is another.
    bool press(Key::Kind key, char32_t character);
    // Replaces what is selected; the caret goes behind it.
    bool insert(std::string_view replacement);
    // The arrow keys: out of the selection, or one character on.
    void moveCaret(Key::Kind arrow);

  private:
    int length() const;

    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
};

}  // namespace headerdtc
