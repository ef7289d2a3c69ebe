#include "host/odbc/odbc_connect_string.h"

#include "platform/text.h"

#include <algorithm>

namespace headerdtc {
namespace {

// Names under which the drivers of SQLite, PostgreSQL and MariaDB know one keyword.
constexpr std::string_view Synonyms[][3] = {
    {"UID", "Username", "User"}, {"PWD", "Password"},   {"Server", "Servername"},
    {"Database", "DB"},          {"Option", "Options"},
};

// The value that begins at `begin`, up to the next semicolon outside its braces. Moves begin past
// that semicolon.
std::string takeValue(std::string_view text, std::size_t& begin) {
    const auto first = text.find_first_not_of(" \t", begin);
    if (first == std::string_view::npos || text[first] != '{') {
        const auto end = std::min(text.find(';', begin), text.size());
        std::string value(trimSpace(text.substr(begin, end - begin)));
        begin = end + 1;
        return value;
    }
    std::string value;
    std::size_t i = first + 1;
    for (; i < text.size(); ++i) {
        if (text[i] == '}' && (i + 1 >= text.size() || text[++i] != '}')) break;
        value += text[i];
    }
    begin = std::min(text.find(';', i), text.size()) + 1;
    return value;
}

}  // namespace

bool sameKeyword(std::string_view a, std::string_view b) {
    if (equalIgnoringCase(a, b)) return true;
    return std::any_of(std::begin(Synonyms), std::end(Synonyms), [&](const auto& names) {
        const auto isNamed = [&](std::string_view keyword) {
            return std::any_of(std::begin(names), std::end(names), [&](std::string_view name) {
                return !name.empty() && equalIgnoringCase(name, keyword);
            });
        };
        return isNamed(a) && isNamed(b);
    });
}

OdbcConnectString::OdbcConnectString(std::string_view text) {
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t start = begin;
        const auto separator = text.find_first_of("=;", begin);
        Part part;
        part.keyword = trimSpace(text.substr(begin, separator - begin));
        if (separator == std::string_view::npos || text[separator] == ';') {
            begin = std::min(separator, text.size() - 1) + 1;
        } else {
            begin = separator + 1;
            part.value = takeValue(text, begin);
        }
        part.written = text.substr(start, std::min(begin, text.size()) - start);
        if (part.written.ends_with(';')) part.written.pop_back();
        if (!trimSpace(part.written).empty()) parts_.push_back(std::move(part));
    }
}

template <class Is>
std::string OdbcConnectString::valueWhere(Is&& is) const {
    const auto found = std::find_if(parts_.begin(), parts_.end(), is);
    return found == parts_.end() ? std::string() : found->value;
}

std::string OdbcConnectString::value(std::string_view keyword) const {
    return valueWhere([&](const Part& part) { return sameKeyword(part.keyword, keyword); });
}

std::string OdbcConnectString::valueNamed(std::string_view keyword) const {
    return valueWhere([&](const Part& part) { return equalIgnoringCase(part.keyword, keyword); });
}

std::string OdbcConnectString::keywordBeyond(std::size_t bytes) const {
    const auto found = std::find_if(parts_.begin(), parts_.end(), [&](const Part& part) {
        return std::max(part.keyword.size(), part.value.size()) > bytes;
    });
    return found == parts_.end() ? std::string() : found->keyword;
}

void OdbcConnectString::remove(std::string_view keyword) {
    std::erase_if(parts_, [&](const Part& part) { return sameKeyword(part.keyword, keyword); });
}

void OdbcConnectString::add(std::string_view keyword, std::string_view value) {
    // Braces only where they are needed: not every driver knows them.
    const bool braces =
        value.find_first_of(";{}") != std::string_view::npos || trimSpace(value) != value;
    std::string written = std::string(keyword) + "=";
    written += braces ? "{" + replaceAll(value, "}", "}}") + "}" : std::string(value);
    parts_.push_back({std::string(keyword), std::string(value), std::move(written)});
}

std::string OdbcConnectString::text() const {
    std::string text;
    for (const Part& part : parts_) {
        if (!text.empty()) text += ';';
        text += part.written;
    }
    return text;
}

}  // namespace headerdtc
