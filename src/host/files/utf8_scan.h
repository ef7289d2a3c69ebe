#pragma once

#include <cstddef>
#include <string_view>

namespace headerdtc {

// The number of ASCII bytes with which a text begins.
std::size_t asciiLength(std::string_view text);

// The length of the character with which a text begins, 1 to 4 bytes; 0 where it begins with
// something that is no UTF-8: overlong forms, surrogates and numbers above U+10FFFF are none.
std::size_t characterLength(std::string_view text);

}  // namespace headerdtc
