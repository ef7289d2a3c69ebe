#include "platform/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace headerdtc::utf8 {
namespace {

char byte(char32_t bits) {
    return static_cast<char>(static_cast<unsigned char>(bits));
}

bool between(std::string_view text, std::size_t at, unsigned low, unsigned high) {
    if (at >= text.size()) return false;
    const auto found = static_cast<unsigned char>(text[at]);
    return found >= low && found <= high;
}

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

int length(std::string_view text) {
    return static_cast<int>(text.size() -
                            static_cast<std::size_t>(std::ranges::count_if(text, isContinuation)));
}

std::size_t offset(std::string_view text, int position) {
    std::size_t at = 0;
    while (at < text.size() && (position > 0 || isContinuation(text[at]))) {
        if (!isContinuation(text[at])) --position;
        ++at;
        while (at < text.size() && isContinuation(text[at]))
            ++at;
    }
    return at;
}

std::string encode(char32_t c) {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = Replacement;
    if (c < 0x80) return {byte(c)};
    if (c < 0x800) return {byte(0xC0 | (c >> 6)), byte(0x80 | (c & 0x3F))};
    if (c < 0x10000)
        return {byte(0xE0 | (c >> 12)), byte(0x80 | ((c >> 6) & 0x3F)), byte(0x80 | (c & 0x3F))};
    return {byte(0xF0 | (c >> 18)), byte(0x80 | ((c >> 12) & 0x3F)), byte(0x80 | ((c >> 6) & 0x3F)),
            byte(0x80 | (c & 0x3F))};
}

std::size_t asciiLength(std::string_view text) {
    constexpr std::uint64_t HighBits = 0x8080808080808080U;
    std::size_t at = 0;
    for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + at, sizeof word);
        if (word & HighBits) break;
    }
    while (between(text, at, 0, 0x7F))
        ++at;
    return at;
}

std::size_t characterLength(std::string_view text) {
    if (text.empty()) return 0;
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    // The second byte's range shuts out overlong forms, surrogates and what is beyond U+10FFFF.
    const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (!between(text, 1, low, high)) return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    for (std::size_t at = 2; at < length; ++at) {
        if (!between(text, at, 0x80, 0xBF)) return 0;
    }
    return length;
}

std::optional<char32_t> take(std::string_view& text) {
    const std::size_t length = characterLength(text);
    const auto lead = static_cast<unsigned char>(text[0]);
    // The lead byte of a longer character begins with as many ones as it has bytes.
    char32_t character = length < 2 ? lead : lead & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at)
        character = character << 6U | (static_cast<unsigned char>(text[at]) & 0x3FU);
    text.remove_prefix(std::max<std::size_t>(length, 1));
    return length > 0 ? std::optional(character) : std::nullopt;
}

char32_t first(std::string_view text) {
    return text.empty() ? 0 : take(text).value_or(Replacement);
}

std::u16string toUtf16Replacing(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = take(text).value_or(Replacement);
        if (character < 0x10000) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD800U + ((character - 0x10000U) >> 10U));
            units += static_cast<char16_t>(0xDC00U + ((character - 0x10000U) & 0x3FFU));
        }
    }
    return units;
}

std::string fromUtf16Replacing(std::u16string_view units) {
    std::string text;
    text.reserve(units.size());
    for (std::size_t at = 0; at < units.size(); ++at) {
        char32_t character = units[at];
        if (isHighSurrogate(units[at]) && at + 1 < units.size() && isLowSurrogate(units[at + 1])) {
            character = 0x10000U + ((character - 0xD800U) << 10U) + (units[at + 1] - 0xDC00U);
            ++at;
        }
        text += encode(character);
    }
    return text;
}

}  // namespace headerdtc::utf8
