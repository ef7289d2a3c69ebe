#pragma once

// Characters of ASCII of whatever type, whatever the user's locale is. These are objects, so that
// they can be given to algorithms.
namespace headerdtc::ascii {

inline constexpr auto isDigit = [](auto c) { return c >= '0' && c <= '9'; };

inline constexpr auto lower = [](auto c) {
    return c >= 'A' && c <= 'Z' ? static_cast<decltype(c)>(c + ('a' - 'A')) : c;
};

inline constexpr auto upper = [](auto c) {
    return c >= 'a' && c <= 'z' ? static_cast<decltype(c)>(c - ('a' - 'A')) : c;
};

inline constexpr auto isLetter = [](auto c) { return lower(c) >= 'a' && lower(c) <= 'z'; };

// Letters, digits and the underscore.
inline constexpr auto isWordChar = [](auto c) { return isLetter(c) || isDigit(c) || c == '_'; };

// The value of a hexadecimal digit in either case; -1 for another character.
inline constexpr auto hexDigit = [](auto c) {
    if (isDigit(c)) return static_cast<int>(c - '0');
    return lower(c) >= 'a' && lower(c) <= 'f' ? static_cast<int>(lower(c) - 'a') + 10 : -1;
};

}  // namespace headerdtc::ascii
