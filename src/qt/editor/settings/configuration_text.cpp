#include "qt/editor/settings/configuration_text.h"

#include <algorithm>
#include <cstdint>

namespace headerdtc::qt {
namespace {

constexpr std::string_view Blanks = " \t";

bool isBareKeyPart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-';
}

std::size_t skipBlanks(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(Blanks, at), text.size());
}

// The section that a line opens; nothing for another line.
std::optional<std::string> sectionOf(std::string_view line) {
    std::size_t at = skipBlanks(line, 0);
    if (at == line.size() || line[at] != '[') return std::nullopt;
    at = skipBlanks(line, at + 1);
    const std::size_t begin = at;
    while (at < line.size() && (isBareKeyPart(line[at]) || line[at] == '.'))
        ++at;
    const std::size_t end = at;
    at = skipBlanks(line, at);
    if (at == line.size() || line[at] != ']') return std::string("?");
    return std::string(line.substr(begin, end - begin));
}

void appendUtf8(std::string& text, std::uint32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | character >> 6U);
        text += static_cast<char>(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0U | character >> 12U);
        text += static_cast<char>(0x80U | (character >> 6U & 0x3FU));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    } else {
        text += static_cast<char>(0xF0U | character >> 18U);
        text += static_cast<char>(0x80U | (character >> 12U & 0x3FU));
        text += static_cast<char>(0x80U | (character >> 6U & 0x3FU));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    }
}

struct Escape {
    char letter;
    char meaning;
};
constexpr Escape Escapes[] = {{'b', '\b'}, {'t', '\t'}, {'n', '\n'}, {'f', '\f'},
                              {'r', '\r'}, {'"', '"'},  {'\\', '\\'}};

// Reads a text in quotes that begins at a place; gives its end, or npos when it is none.
std::size_t readText(std::string_view line, std::size_t at, std::string& value) {
    if (at >= line.size() || (line[at] != '"' && line[at] != '\'')) return std::string::npos;
    const char quote = line[at];
    if (line.compare(at, 3, std::string(3, quote)) == 0) return std::string::npos;
    for (++at; at < line.size(); ++at) {
        const char c = line[at];
        if (c == quote) return at + 1;
        if (c != '\\' || quote == '\'') {
            value += c;
            continue;
        }
        if (++at == line.size()) break;
        const auto* escape =
            std::find_if(std::begin(Escapes), std::end(Escapes),
                         [&](const Escape& known) { return known.letter == line[at]; });
        if (escape != std::end(Escapes)) {
            value += escape->meaning;
            continue;
        }
        const std::size_t digits = line[at] == 'u' ? 4 : line[at] == 'U' ? 8 : 0;
        if (digits == 0 || at + digits >= line.size()) return std::string::npos;
        std::uint32_t character = 0;
        for (std::size_t i = 0; i < digits; ++i) {
            const char digit = line[++at];
            const bool isNumber = digit >= '0' && digit <= '9';
            const char lower = static_cast<char>(digit | 0x20);
            if (!isNumber && (lower < 'a' || lower > 'f')) return std::string::npos;
            character = character * 16 +
                        static_cast<std::uint32_t>(isNumber ? digit - '0' : lower - 'a' + 10);
        }
        appendUtf8(value, character);
    }
    return std::string::npos;
}

std::string quoted(std::string_view value) {
    // Windows paths read better without escapes.
    const bool isPlain = value.find('\'') == std::string_view::npos &&
                         std::none_of(value.begin(), value.end(), [](char c) {
                             return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
                         });
    if (isPlain && value.find_first_of("\\\"") != std::string_view::npos)
        return '\'' + std::string(value) + '\'';
    std::string text = "\"";
    for (const char c : value) {
        const auto* escape = std::find_if(std::begin(Escapes), std::end(Escapes),
                                          [&](const Escape& known) { return known.meaning == c; });
        if (escape != std::end(Escapes)) {
            text += '\\';
            text += escape->letter;
        } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            constexpr const char* Digits = "0123456789abcdef";
            text += "\\u00";
            text += Digits[static_cast<unsigned char>(c) >> 4U];
            text += Digits[static_cast<unsigned char>(c) & 0xFU];
        } else {
            text += c;
        }
    }
    return text + '"';
}

}  // namespace

ConfigurationText::ConfigurationText(const std::string& bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t feed = std::min(bytes.find('\n', at), bytes.size());
        const bool hasReturn = feed > at && feed < bytes.size() && bytes[feed - 1] == '\r';
        const std::size_t end = hasReturn ? feed - 1 : feed;
        const std::size_t next = std::min(feed + 1, bytes.size());
        lines_.push_back({bytes.substr(at, end - at), bytes.substr(end, next - end)});
        at = next;
    }
}

std::string ConfigurationText::bytes() const {
    std::string bytes;
    for (const Line& line : lines_)
        bytes += line.text + line.end;
    return bytes;
}

std::string ConfigurationText::lineEnd() const {
    for (const Line& line : lines_) {
        if (!line.end.empty()) return line.end;
    }
    return "\n";
}

std::vector<ConfigurationText::Entry> ConfigurationText::all() const {
    std::vector<Entry> entries;
    std::string section;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = lines_[i].text;
        if (auto opened = sectionOf(line)) {
            section = std::move(*opened);
            continue;
        }
        std::size_t at = skipBlanks(line, 0);
        Entry entry{i, section, {}, {}, 0, 0};
        if (const std::size_t end = readText(line, at, entry.key); end != std::string::npos) {
            at = end;
        } else {
            const std::size_t begin = at;
            while (at < line.size() && isBareKeyPart(line[at]))
                ++at;
            entry.key = line.substr(begin, at - begin);
        }
        at = skipBlanks(line, at);
        if (entry.key.empty() || at == line.size() || line[at] != '=') continue;
        entry.valueBegin = skipBlanks(line, at + 1);
        entry.valueEnd = readText(line, entry.valueBegin, entry.value);
        if (entry.valueEnd != std::string::npos) entries.push_back(std::move(entry));
    }
    return entries;
}

std::optional<ConfigurationText::Entry> ConfigurationText::find(std::string_view section,
                                                                std::string_view key) const {
    for (Entry& entry : all()) {
        if (entry.section == section && entry.key == key) return std::move(entry);
    }
    return std::nullopt;
}

std::optional<std::string> ConfigurationText::get(std::string_view section,
                                                  std::string_view key) const {
    if (const auto entry = find(section, key)) return entry->value;
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> ConfigurationText::entries(
    std::string_view section) const {
    std::vector<std::pair<std::string, std::string>> found;
    for (const Entry& entry : all()) {
        if (entry.section == section) found.emplace_back(entry.key, entry.value);
    }
    return found;
}

void ConfigurationText::set(std::string_view section, std::string_view key,
                            std::string_view value) {
    const auto entry = find(section, key);
    if (!entry) {
        const std::size_t place = placeFor(section);
        lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place),
                      {std::string(key) + " = " + quoted(value), lineEnd()});
        return;
    }
    if (entry->value == value) return;
    std::string& line = lines_[entry->line].text;
    const std::string written = quoted(value);
    // A comment behind the value stays in its column where there is room.
    const std::size_t rest = skipBlanks(line, entry->valueEnd);
    std::size_t gap = rest - entry->valueEnd;
    const std::size_t oldLength = entry->valueEnd - entry->valueBegin;
    if (rest < line.size() && gap > 1) {
        const std::size_t column = oldLength + gap;
        gap = column > written.size() ? column - written.size() : 1;
    }
    line.replace(
        entry->valueBegin, std::string::npos,
        rest < line.size() ? written + std::string(gap, ' ') + line.substr(rest) : written);
}

void ConfigurationText::remove(std::string_view section, std::string_view key) {
    if (const auto entry = find(section, key))
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(entry->line));
}

// The line before which a new key of a section goes: behind its last key. Opens the section at the
// end of the file where it is missing.
std::size_t ConfigurationText::placeFor(std::string_view section) {
    std::optional<std::size_t> place;
    std::string current;
    if (section.empty()) place = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = lines_[i].text;
        const auto opened = sectionOf(line);
        if (opened) current = *opened;
        if (current != section) continue;
        const std::size_t begin = skipBlanks(line, 0);
        const bool says = begin < line.size() && line[begin] != '#';
        // At the top of the file the first comment is about the file.
        const bool isHead = section.empty() && place == i && begin < line.size();
        if (says || isHead) place = i + 1;
    }
    if (!lines_.empty() && lines_.back().end.empty() && (!place || place == lines_.size()))
        lines_.back().end = lineEnd();
    if (place) return *place;
    if (!lines_.empty()) lines_.push_back({"", lineEnd()});
    lines_.push_back({'[' + std::string(section) + ']', lineEnd()});
    return lines_.size();
}

}  // namespace headerdtc::qt
