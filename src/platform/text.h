#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// The blanks at both ends removed (blanks only: tabs and line ends stay).
std::string_view trimBlanks(std::string_view text);
// The same for blanks, tabs and line ends.
std::string_view trimSpace(std::string_view text);

// The pieces of a text between every occurrence of a separator; at least one piece. An empty
// separator occurs nowhere.
std::vector<std::string_view> splitText(std::string_view text, std::string_view separator);

// The piece after the first separator, up to the next one. Raises 9 (Subscript out of range)
// when the separator does not occur.
std::string_view secondPiece(std::string_view text, std::string_view separator);

// Upper case of ASCII and of the letters that take two bytes (Latin, Greek, Cyrillic); a letter
// whose capital takes another number of bytes stays, so that lengths do. Text is UTF-8.
std::string upperCase(std::string_view text);

// Every letter of all alphabets in its simple upper case, so that names which differ only in case
// become equal.
std::string foldCase(std::string_view text);

// Equal without regard to the case of ASCII letters.
bool equalIgnoringCase(std::string_view a, std::string_view b);

// Every occurrence replaced, scanning from the first character, exact comparison.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

// The same, but without regard to the case of ASCII letters.
std::string replaceAllIgnoringCase(std::string_view text, std::string_view from,
                                   std::string_view to);

// A number narrowed to 16 bits. Raises 6 (Overflow).
std::int16_t toInt16(long long number);

}  // namespace headerdtc
