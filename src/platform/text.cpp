#include "platform/text.h"

#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/utf8.h"

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <iterator>
#include <limits>

namespace headerdtc {
namespace {

// A letter's simple upper case by the C library's own table of Unicode, which is the same in every
// installation and whatever the user's locale is; any other character is itself.
char32_t capitalOf(char32_t character) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (!unicode) return character;
    return static_cast<char32_t>(towupper_l(static_cast<std::wint_t>(character), unicode));
}

// The capital of a letter where both take two bytes, else the letter.
char32_t shortCapitalOf(char32_t letter) {
    constexpr char32_t MicroSign = 0xB5;  // has a capital in Greek alone
    constexpr char32_t LastShort = 0x7FF;
    if (letter > LastShort || letter == MicroSign) return letter;
    const char32_t capital = capitalOf(letter);
    return capital >= 0x80 && capital <= LastShort ? capital : letter;
}

// ASCII in upper case, each other character as `capital` has it; bytes that are no UTF-8 stay.
template <class Capital>
std::string inCapitals(std::string_view text, Capital capital) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto ascii = text.substr(0, utf8::asciiLength(text));
        std::ranges::transform(ascii, std::back_inserter(result), ascii::upper);
        text.remove_prefix(ascii.size());
        if (text.empty()) break;
        const char byte = text.front();
        if (const auto letter = utf8::take(text)) {
            result += utf8::encode(capital(*letter));
        } else {
            result += byte;
        }
    }
    return result;
}

template <class Find>
std::string replaceFound(std::string_view text, std::string_view from, std::string_view to,
                         Find find) {
    if (from.empty()) return std::string(text);
    std::string result;
    std::size_t start = 0;
    for (std::size_t hit = find(start); hit != std::string_view::npos; hit = find(start)) {
        result.append(text.substr(start, hit - start)).append(to);
        start = hit + from.size();
    }
    result.append(text.substr(start));
    return result;
}

std::string_view trim(std::string_view text, std::string_view space) {
    const auto first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

}  // namespace

std::string_view trimBlanks(std::string_view text) {
    return trim(text, " ");
}

std::string_view trimSpace(std::string_view text) {
    return trim(text, " \t\r\n");
}

std::vector<std::string_view> splitText(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> pieces;
    if (separator.empty()) return {text};
    std::size_t start = 0;
    for (auto hit = text.find(separator); hit != std::string_view::npos;
         hit = text.find(separator, start)) {
        pieces.push_back(text.substr(start, hit - start));
        start = hit + separator.size();
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::string_view secondPiece(std::string_view text, std::string_view separator) {
    const auto first = text.find(separator);
    if (first == std::string_view::npos) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    const auto rest = text.substr(first + separator.size());
    return rest.substr(0, rest.find(separator));
}

std::string upperCase(std::string_view text) {
    return inCapitals(text, shortCapitalOf);
}

std::string foldCase(std::string_view text) {
    return inCapitals(text, capitalOf);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, ascii::lower, ascii::lower);
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    return replaceFound(text, from, to, [&](std::size_t start) { return text.find(from, start); });
}

std::string replaceAllIgnoringCase(std::string_view text, std::string_view from,
                                   std::string_view to) {
    return replaceFound(text, from, to, [&](std::size_t start) {
        const auto* hit =
            std::search(text.begin() + start, text.end(), from.begin(), from.end(),
                        [](char a, char b) { return ascii::lower(a) == ascii::lower(b); });
        return hit == text.end() ? std::string_view::npos
                                 : static_cast<std::size_t>(hit - text.begin());
    });
}

std::int16_t toInt16(long long number) {
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(number);
}

}  // namespace headerdtc
