#pragma once

namespace headerdtc {

// Key codes as keyboard events carry them.
namespace key_code {
inline constexpr int Backspace = 8;
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Delete = 46;
}  // namespace key_code

// One key as a person presses it: a character, or a key that stands for none.
struct Key {
    enum class Kind { Character, Enter, Escape, Up, Down, Left, Right, Delete, Backspace, Tab };
    Kind kind = Kind::Character;
    char32_t character = 0;  // Unicode code point, for Kind::Character
    bool shift = false;

    static Key of(Kind kind) { return {kind, 0, false}; }
    static Key of(char32_t character) { return {Kind::Character, character, false}; }

    bool isBlank() const { return kind == Kind::Character && character == U' '; }

    // The code that a key-down event carries. It stands for the key, not for the character: a
    // letter's key has the code of its capital, the digits and the blank have their own, and the
    // other characters' keys, which are elsewhere on every keyboard, have 0 here.
    int downCode() const;
    // The code that a key-press event carries: a character's code point; 0 when the key raises
    // none (arrows, Delete, Tab).
    int pressCode() const;
};

}  // namespace headerdtc
