#include "qt/editor/settings/configuration_text.h"

#include "host/site/site_configuration.h"
#include "host/site/toml.h"
#include "platform/utf8.h"

#include <algorithm>
#include <sstream>

namespace headerdtc::qt {
namespace {

constexpr std::string_view Blanks = " \t";

std::string quoted(std::string_view value) {
    const toml::value text{std::string(value)};
    auto flags = toml::format_flags::allow_unicode_strings;
    // Windows paths read better without escapes.
    if (value.find_first_of("\\\"") != std::string_view::npos)
        flags = flags | toml::format_flags::allow_literal_strings;
    std::ostringstream out;
    out << toml::toml_formatter(text, flags);
    return out.str();
}

}  // namespace

// The text as the library reads it, with the places of what it found there.
struct ConfigurationText::Reading {
    explicit Reading(const std::string& text) : bytes(text), root(toml::parse(text)) {}

    // Nothing where there is no such section.
    const toml::table* section(std::string_view name) const {
        return name.empty() ? &root : root[name].as_table();
    }
    const toml::node* find(std::string_view name, std::string_view key) const {
        const toml::table* table = section(name);
        return table ? table->get(key) : nullptr;
    }
    // The library counts lines, and characters in a line, both from 1.
    std::size_t offset(const toml::source_position& place) const {
        std::size_t at = bytes.starts_with(utf8::ByteOrderMark) ? utf8::ByteOrderMark.size() : 0;
        for (toml::source_index line = 1; line < place.line; ++line)
            at = std::min(bytes.find('\n', at), bytes.size() - 1) + 1;
        for (toml::source_index column = 1; column < place.column && at < bytes.size(); ++column)
            at += std::max<std::size_t>(
                utf8::characterLength(std::string_view(bytes).substr(at, MostBytes)), 1);
        return at;
    }
    std::size_t begin(const toml::node& node) const { return offset(node.source().begin); }
    std::size_t end(const toml::node& node) const { return offset(node.source().end); }
    // Where the last value of a section ends; nothing when it has none.
    std::optional<std::size_t> lastEnd(const toml::table& table) const {
        std::optional<std::size_t> last;
        for (const auto& [_, node] : table) {
            if (!node.is_table()) last = std::max(last.value_or(0), end(node));
        }
        return last;
    }

    static constexpr std::size_t MostBytes = 4;  // of a character
    const std::string& bytes;
    toml::table root;
};

ConfigurationText::ConfigurationText(const std::filesystem::path& file, std::string bytes)
    : bytes_(std::move(bytes)) {
    try {
        Reading{bytes_};
    } catch (const toml::parse_error& error) {
        const auto& place = error.source().begin;
        throw ConfigurationError(file, static_cast<int>(place.line), static_cast<int>(place.column),
                                 std::string(error.description()));
    }
}

std::optional<std::string> ConfigurationText::get(std::string_view section,
                                                  std::string_view key) const {
    const Reading reading(bytes_);
    const toml::node* value = reading.find(section, key);
    return value ? value->value_exact<std::string>() : std::nullopt;
}

std::vector<std::pair<std::string, std::string>> ConfigurationText::entries(
    std::string_view section) const {
    const Reading reading(bytes_);
    std::vector<std::pair<std::string, std::string>> found;
    if (const toml::table* table = reading.section(section)) {
        for (const auto& [key, value] : *table) {
            if (const auto text = value.value_exact<std::string>())
                found.emplace_back(key.str(), *text);
        }
    }
    return found;
}

void ConfigurationText::set(std::string_view section, std::string_view key,
                            std::string_view value) {
    const Reading reading(bytes_);
    const std::string written = quoted(value);
    const toml::node* old = reading.find(section, key);
    if (!old) return add(section, std::string(key) + " = " + written);
    if (old->value_exact<std::string>() == value) return;
    const std::size_t begin = reading.begin(*old), end = reading.end(*old);
    // A comment behind the value stays in its column where there is room.
    const std::size_t rest = std::min(bytes_.find_first_not_of(Blanks, end), bytes_.size());
    const bool hasComment = rest < bytes_.size() && bytes_[rest] == '#' && rest - end > 1;
    const std::size_t width = rest - begin;
    const std::size_t gap = width > written.size() ? width - written.size() : 1;
    replace(begin, hasComment ? rest : end, hasComment ? written + std::string(gap, ' ') : written);
}

void ConfigurationText::remove(std::string_view section, std::string_view key) {
    const Reading reading(bytes_);
    const toml::table* table = reading.section(section);
    const auto found = table ? table->find(key) : toml::table::const_iterator();
    if (!table || found == table->end()) return;
    std::size_t begin = reading.offset(found->first.source().begin);
    std::size_t end = reading.end(found->second);
    if (!table->is_inline()) return replace(lineBegin(begin), nextLine(end), {});
    // One of the commas around it goes along.
    const std::size_t next = bytes_.find_first_not_of(Blanks, end);
    if (bytes_[next] == ',') {
        end = std::min(bytes_.find_first_not_of(Blanks, next + 1), bytes_.size());
    } else if (const std::size_t before = bytes_.find_last_not_of(Blanks, begin - 1);
               bytes_[before] == ',') {
        begin = before;
    }
    replace(begin, end, {});
}

// Behind the last key of the section, which is opened at the end of the file where it is missing.
void ConfigurationText::add(std::string_view section, const std::string& entry) {
    const Reading reading(bytes_);
    const toml::table* table = reading.section(section);
    if (!table) {
        const std::size_t end = bytes_.size();
        const std::string gap = bytes_.empty() ? "" : lineEnd();
        const std::string broken = bytes_.empty() || bytes_.back() == '\n' ? "" : lineEnd();
        return replace(
            end, end,
            broken + gap + '[' + std::string(section) + ']' + lineEnd() + entry + lineEnd());
    }
    const auto last = reading.lastEnd(*table);
    const std::size_t opened = section.empty() ? 0 : reading.begin(*table);
    if (table->is_inline()) {
        const std::size_t at = last.value_or(opened + 1);
        return replace(at, at, (last ? ", " : "") + entry);
    }
    // The section of a dotted key has no line of its own.
    const bool isDotted = !section.empty() && bytes_[opened] != '[';
    const std::string line = (isDotted ? std::string(section) + '.' : "") + entry + lineEnd();
    std::size_t at = 0;
    if (last || !section.empty()) {
        at = nextLine(last.value_or(opened));
    } else {
        // At the top of the file the first comment is about the file.
        at = bytes_.starts_with(utf8::ByteOrderMark) ? utf8::ByteOrderMark.size() : 0;
        while (at < bytes_.size() && bytes_[at] == '#')
            at = nextLine(at);
    }
    const bool isBroken = at > 0 && at == bytes_.size() && bytes_.back() != '\n';
    replace(at, at, (isBroken ? lineEnd() : "") + line);
}

void ConfigurationText::replace(std::size_t begin, std::size_t end, std::string_view text) {
    bytes_.replace(begin, end - begin, text);
}

std::size_t ConfigurationText::lineBegin(std::size_t at) const {
    const std::size_t feed = at == 0 ? std::string::npos : bytes_.rfind('\n', at - 1);
    if (feed != std::string::npos) return feed + 1;
    return bytes_.starts_with(utf8::ByteOrderMark) ? utf8::ByteOrderMark.size() : 0;
}

std::size_t ConfigurationText::nextLine(std::size_t at) const {
    return std::min(bytes_.find('\n', at), bytes_.size() - 1) + 1;
}

std::string ConfigurationText::lineEnd() const {
    const std::size_t feed = bytes_.find('\n');
    return feed != std::string::npos && feed > 0 && bytes_[feed - 1] == '\r' ? "\r\n" : "\n";
}

}  // namespace headerdtc::qt
