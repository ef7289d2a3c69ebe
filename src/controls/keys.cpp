#include "controls/keys.h"

#include "platform/ascii.h"

namespace headerdtc {
namespace {

// The characters' own codes would not do: that of '.' is Delete's, those of '&' and '(' are Up's
// and Down's.
int keyOf(char32_t c) {
    const bool isOwnKey = ascii::isLetter(c) || ascii::isDigit(c) || c == U' ';
    return isOwnKey ? static_cast<int>(ascii::upper(c)) : 0;
}

}  // namespace

int Key::downCode() const {
    switch (kind) {
        case Kind::Character:
            return keyOf(character);
        case Kind::Enter:
            return key_code::Enter;
        case Kind::Escape:
            return key_code::Escape;
        case Kind::Up:
            return key_code::Up;
        case Kind::Down:
            return key_code::Down;
        case Kind::Left:
            return key_code::Left;
        case Kind::Right:
            return key_code::Right;
        case Kind::Delete:
            return key_code::Delete;
        case Kind::Backspace:
            return key_code::Backspace;
        case Kind::Tab:
            return key_code::Tab;
    }
    return 0;
}

int Key::pressCode() const {
    switch (kind) {
        case Kind::Character:
            return static_cast<int>(character);
        case Kind::Enter:
        case Kind::Escape:
        case Kind::Backspace:
            return downCode();
        default:
            return 0;
    }
}

}  // namespace headerdtc
