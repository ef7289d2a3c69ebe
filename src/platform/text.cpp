#include "platform/text.h"

#include "platform/runtime_error.h"

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <limits>

namespace headerdtc {
namespace {

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// The capital of a letter that takes two bytes, when it does itself, else the letter.
char32_t shortCapitalOf(char32_t letter) {
    constexpr char32_t MicroSign = 0xB5;  // has a capital in Greek alone
    const char32_t capital = letter == MicroSign ? letter : capitalOf(letter);
    return capital >= 0x80 && capital <= 0x7FF ? capital : letter;
}

bool startsTwoBytes(char c) {
    return (static_cast<unsigned char>(c) & 0xE0U) == 0xC0U;
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

char32_t capitalOf(char32_t character) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (!unicode) return character;
    return static_cast<char32_t>(towupper_l(static_cast<std::wint_t>(character), unicode));
}

std::string upperCase(std::string_view text) {
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (result[i] >= 'a' && result[i] <= 'z') {
            result[i] = static_cast<char>(result[i] - ('a' - 'A'));
        } else if (startsTwoBytes(result[i]) && i + 1 < result.size() &&
                   isContinuation(result[i + 1])) {
            const char32_t capital =
                shortCapitalOf((result[i] & 0x1FU) << 6U | (result[i + 1] & 0x3FU));
            result[i] = static_cast<char>(0xC0U | capital >> 6U);
            result[++i] = static_cast<char>(0x80U | (capital & 0x3FU));
        }
    }
    return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    return replaceFound(text, from, to, [&](std::size_t start) { return text.find(from, start); });
}

std::string replaceAllIgnoringCase(std::string_view text, std::string_view from,
                                   std::string_view to) {
    return replaceFound(text, from, to, [&](std::size_t start) {
        const auto hit =
            std::search(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), from.begin(),
                        from.end(), [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
        return hit == text.end() ? std::string_view::npos
                                 : static_cast<std::size_t>(hit - text.begin());
    });
}

int characterCount(std::string_view utf8) {
    return static_cast<int>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return !isContinuation(c); }));
}

std::size_t bytesOfCharacters(std::string_view utf8, int count) {
    std::size_t at = 0;
    while (at < utf8.size() && (count > 0 || isContinuation(utf8[at]))) {
        if (!isContinuation(utf8[at])) --count;
        ++at;
        while (at < utf8.size() && isContinuation(utf8[at]))
            ++at;
    }
    return at;
}

std::int16_t toInt16(long long number) {
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(number);
}

}  // namespace headerdtc
