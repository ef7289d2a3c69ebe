#include "controls/utf8.h"

namespace headerdtc::utf8 {
namespace {

char byte(char32_t bits) {
    return static_cast<char>(static_cast<unsigned char>(bits));
}

}  // namespace

std::string encode(char32_t c) {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0xFFFD;
    if (c < 0x80) return {byte(c)};
    if (c < 0x800) return {byte(0xC0 | (c >> 6)), byte(0x80 | (c & 0x3F))};
    if (c < 0x10000)
        return {byte(0xE0 | (c >> 12)), byte(0x80 | ((c >> 6) & 0x3F)), byte(0x80 | (c & 0x3F))};
    return {byte(0xF0 | (c >> 18)), byte(0x80 | ((c >> 12) & 0x3F)), byte(0x80 | ((c >> 6) & 0x3F)),
            byte(0x80 | (c & 0x3F))};
}

char32_t first(std::string_view text) {
    if (text.empty()) return 0;
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    char32_t c = more == 3   ? lead & 0x07U
                 : more == 2 ? lead & 0x0FU
                 : more == 1 ? lead & 0x1FU
                             : lead;
    for (std::size_t i = 1; i <= more && i < text.size(); ++i)
        c = (c << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    return c;
}

}  // namespace headerdtc::utf8
