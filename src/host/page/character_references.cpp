#include "host/page/character_references.h"

#include "platform/ascii.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace headerdtc {
namespace {

struct NamedCharacter {
    std::string_view name;
    char character;
};

constexpr NamedCharacter NamedCharacters[] = {
    {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

struct EscapedCharacter {
    char character;
    std::string_view reference;
};

constexpr EscapedCharacter EscapedCharacters[] = {{'&', "&amp;"},  {'<', "&lt;"},   {'>', "&gt;"},
                                                  {'"', "&quot;"}, {'\r', "&#13;"}, {'\n', "&#10;"},
                                                  {'\t', "&#9;"}};

// "#8364" or "#x20AC".
std::optional<std::string> numbered(std::string_view body) {
    body.remove_prefix(1);
    const bool hexadecimal = body.starts_with('x') || body.starts_with('X');
    if (hexadecimal) body.remove_prefix(1);
    if (body.empty()) return std::nullopt;
    const int base = hexadecimal ? 16 : 10;
    constexpr char32_t Last = 0x10FFFF;
    char32_t number = 0;
    for (const char c : body) {
        const int digit = ascii::hexDigit(c);
        if (digit < 0 || digit >= base) return std::nullopt;
        number =
            std::min(number * static_cast<char32_t>(base) + static_cast<char32_t>(digit), Last + 1);
    }
    if (number > Last || (number >= 0xD800 && number <= 0xDFFF)) return std::nullopt;
    return utf8::encode(number);
}

// What stands for the text between '&' and ';'.
std::optional<std::string> resolved(std::string_view body) {
    if (body.starts_with('#')) return numbered(body);
    for (const auto& [name, character] : NamedCharacters) {
        if (body == name) return std::string(1, character);
    }
    return std::nullopt;
}

}  // namespace

std::string escapeReferences(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        const auto* found =
            std::find_if(std::begin(EscapedCharacters), std::end(EscapedCharacters),
                         [c](const EscapedCharacter& entry) { return entry.character == c; });
        if (found != std::end(EscapedCharacters)) {
            escaped += found->reference;
        } else if (c == '-' && escaped.ends_with('-')) {
            escaped += "&#45;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string resolveReferences(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto upTo = std::min(text.find('&'), text.size());
        result.append(text.substr(0, upTo));
        text.remove_prefix(upTo);
        if (text.empty()) break;
        const auto length = std::min(text.find_first_of("&;", 1), text.size());
        const bool closed = length < text.size() && text[length] == ';';
        const auto character = closed ? resolved(text.substr(1, length - 1)) : std::nullopt;
        result.append(character ? *character : std::string(text.substr(0, length)));
        text.remove_prefix(character ? length + 1 : length);
    }
    return result;
}

}  // namespace headerdtc
