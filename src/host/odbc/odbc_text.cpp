#include "host/odbc/odbc_text.h"

#include <cstddef>

namespace headerdtc {
namespace {

constexpr char32_t Replacement = 0xFFFD;

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Takes one character off the front of a text that is not empty.
char32_t takeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80                    ? 1
                               : lead >= 0xC2 && lead < 0xE0  ? 2
                               : lead >= 0xE0 && lead < 0xF0  ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    char32_t character = length < 2 ? lead : lead & (0x7FU >> length);
    bool valid = length != 0 && length <= text.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        valid = (next & 0xC0U) == 0x80;
        character = (character << 6U) | (next & 0x3FU);
    }
    constexpr char32_t First[] = {0, 0, 0x80, 0x800, 0x10000};
    valid = valid && character >= First[length] && character <= 0x10FFFF &&
            (character < 0xD800 || character > 0xDFFF);
    text.remove_prefix(valid ? length : 1);
    return valid ? character : Replacement;
}

char32_t takeCharacter(std::u16string_view& text) {
    const char16_t unit = text[0];
    text.remove_prefix(1);
    if (isHighSurrogate(unit) && !text.empty() && isLowSurrogate(text[0])) {
        const char16_t low = text[0];
        text.remove_prefix(1);
        return 0x10000 + ((unit - 0xD800U) << 10U) + (low - 0xDC00U);
    }
    return isHighSurrogate(unit) || isLowSurrogate(unit) ? Replacement : unit;
}

void append(std::u16string& text, char32_t character) {
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD800U + ((character - 0x10000U) >> 10U));
    text += static_cast<char16_t>(0xDC00U + ((character - 0x10000U) & 0x3FFU));
}

void append(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    unsigned shift = character < 0x800 ? 6 : character < 0x10000 ? 12 : 18;
    const char32_t lead = character < 0x800 ? 0xC0 : character < 0x10000 ? 0xE0 : 0xF0;
    text += static_cast<char>(lead | (character >> shift));
    while (shift > 0) {
        shift -= 6;
        text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    }
}

template <class To, class From>
To converted(From text) {
    To result;
    result.reserve(text.size());
    while (!text.empty())
        append(result, takeCharacter(text));
    return result;
}

}  // namespace

std::u16string utf16FromUtf8(std::string_view text) {
    return converted<std::u16string>(text);
}

std::string utf8FromUtf16(std::u16string_view text) {
    return converted<std::string>(text);
}

}  // namespace headerdtc
