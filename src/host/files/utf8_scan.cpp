#include "host/files/utf8_scan.h"

#include <cstdint>
#include <cstring>

namespace headerdtc {
namespace {

bool between(std::string_view text, std::size_t at, unsigned low, unsigned high) {
    if (at >= text.size()) return false;
    const auto byte = static_cast<unsigned char>(text[at]);
    return byte >= low && byte <= high;
}

}  // namespace

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

}  // namespace headerdtc
