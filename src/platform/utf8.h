#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// UTF-8, in which all text is kept inside the program, and its conversions. Positions count
// characters (code points) from 0.
namespace headerdtc::utf8 {

// The mark at the start of a file that says which encoding it has: optional in UTF-8, usual in
// UTF-16.
inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
inline constexpr std::string_view LittleEndianMark = "\xFF\xFE", BigEndianMark = "\xFE\xFF";

// A text without its byte-order mark, if it has one.
constexpr std::string_view withoutMark(std::string_view text) {
    return text.substr(text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
}

// What stands in the place of broken text.
inline constexpr char32_t Replacement = 0xFFFD;

// Whether a byte goes on with a character that began before it.
constexpr bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

int length(std::string_view text);
// Byte offset of a character position; the text's size for positions at or beyond its end.
std::size_t offset(std::string_view text, int position);

// A code point as UTF-8; the replacement for what is none.
std::string encode(char32_t character);

// The number of ASCII bytes with which a text begins.
std::size_t asciiLength(std::string_view text);

// The length of the character with which a text begins, 1 to 4 bytes; 0 where it begins with
// something that is no UTF-8: overlong forms, surrogates and numbers above U+10FFFF are none.
std::size_t characterLength(std::string_view text);

// Takes the first character off a text that is not empty. Where that is no UTF-8 it takes one byte
// and gives nothing: what becomes of broken text is the caller's rule.
std::optional<char32_t> take(std::string_view& text);

// The first character of a text, 0 for an empty one; the replacement where it is no UTF-8.
char32_t first(std::string_view text);

// UTF-16 and back; each byte or unit that is no text is replaced.
std::u16string toUtf16Replacing(std::string_view text);
std::string fromUtf16Replacing(std::u16string_view text);

}  // namespace headerdtc::utf8
