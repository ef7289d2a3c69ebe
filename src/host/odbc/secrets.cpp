#include "host/odbc/secrets.h"

#include "platform/ascii.h"
#include "platform/text.h"

#include <algorithm>
#include <cstddef>

namespace headerdtc {
namespace {

constexpr std::string_view Keywords[] = {"PWD", "PASSWORD", "PASSWD", "PASSPHRASE", "SSLPASSWORD"};
constexpr std::string_view Blanks = " \t";

std::size_t skipBlanks(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(Blanks, at), text.size());
}

// Where a value that begins here ends; in braces a semicolon is part of it, and a doubled brace.
std::size_t endOfValue(std::string_view text, std::size_t begin) {
    if (begin < text.size() && text[begin] == '{') {
        for (std::size_t i = begin + 1; i < text.size(); ++i) {
            if (text[i] != '}') continue;
            if (i + 1 >= text.size() || text[i + 1] != '}') return i + 1;
            ++i;
        }
        return text.size();
    }
    if (begin < text.size() && (text[begin] == '"' || text[begin] == '\'')) {
        const auto end = text.find(text[begin], begin + 1);
        return end == std::string_view::npos ? text.size() : end + 1;
    }
    return std::min(text.find_first_of(";\r\n", begin), text.size());
}

// What stands behind the semicolon after a password and is no keyword with its value is the rest of
// a password that should have stood in braces.
std::size_t endOfSecret(std::string_view text, std::size_t end) {
    while (end < text.size() && text[end] == ';') {
        const std::size_t next = std::min(text.find_first_of(";=\"' \t\r\n", end + 1), text.size());
        const char stop = next < text.size() ? text[next] : ';';
        if (next == end + 1 || stop == '=' || stop == ' ') break;
        end = next;
    }
    return end;
}

// "keyword = value" at a place where a word begins; moves past what it appends.
bool takeKeyword(std::string_view text, std::size_t& at, std::string& masked) {
    const auto* const wordEnd = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at),
                                                 text.end(), ascii::isWordChar);
    const auto end = static_cast<std::size_t>(wordEnd - text.begin());
    const std::string_view word = text.substr(at, end - at);
    const bool isSecret = std::any_of(std::begin(Keywords), std::end(Keywords),
                                      [&](auto name) { return equalIgnoringCase(name, word); });
    const std::size_t equals = skipBlanks(text, end);
    if (!isSecret || equals >= text.size() || text[equals] != '=') {
        masked += word;
        at = end;
        return !word.empty();
    }
    const std::size_t value = skipBlanks(text, equals + 1);
    masked += text.substr(at, value - at);
    at = endOfValue(text, value);
    if (trimBlanks(text.substr(value, at - value)).empty()) return true;
    at = endOfSecret(text, at);
    masked += MaskedSecret;
    return true;
}

// "://user:secret@" from its colon on.
bool takeAddress(std::string_view text, std::size_t& at, std::string& masked) {
    constexpr std::string_view Mark = "://";
    if (text.substr(at, Mark.size()) != Mark) return false;
    const std::size_t begin = at + Mark.size();
    const std::size_t end = std::min(text.find_first_of(" \t\r\n\"'", begin), text.size());
    const std::string_view address = text.substr(begin, end - begin);
    const auto host = address.rfind('@');
    const auto secret = address.substr(0, host).find(':');
    if (host == std::string_view::npos || secret == std::string_view::npos) return false;
    masked.append(Mark).append(address.substr(0, secret + 1)).append(MaskedSecret);
    at = begin + host;
    return true;
}

}  // namespace

std::string maskSecrets(std::string_view text) {
    std::string masked;
    for (std::size_t at = 0; at < text.size();) {
        if (takeKeyword(text, at, masked) || takeAddress(text, at, masked)) continue;
        masked += text[at++];
    }
    return masked;
}

}  // namespace headerdtc
