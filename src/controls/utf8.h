#pragma once

#include "platform/text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace headerdtc::utf8 {

// Number of characters (code points) of a UTF-8 text.
inline int length(std::string_view text) {
    return characterCount(text);
}

// Byte offset of a character position; the text's size for positions at or beyond its end.
inline std::size_t offset(std::string_view text, int position) {
    return bytesOfCharacters(text, position);
}

// A code point as UTF-8; U+FFFD for what is none.
std::string encode(char32_t character);

// The first character of a text, 0 for an empty one.
char32_t first(std::string_view text);

}  // namespace headerdtc::utf8
