#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace headerdtc::qt {

// The text of a headerdtc.toml, whose values can be changed line by line: comments, blank lines,
// the order of the keys and everything else stay as their author wrote them.
//
// Knows sections in brackets and texts in single or double quotes, a key a line. What else TOML
// allows is left alone; whoever changes a value looks afterwards whether the file still says what
// it should.
class ConfigurationText {
  public:
    explicit ConfigurationText(const std::string& bytes);

    std::string bytes() const;
    // The value of a key; the empty section is the top of the file.
    std::optional<std::string> get(std::string_view section, std::string_view key) const;
    // All keys of a section with their values, in order.
    std::vector<std::pair<std::string, std::string>> entries(std::string_view section) const;
    // Changes a value, or adds key and section where they are missing. A key that has a value
    // which is no text of one line stays as it is.
    void set(std::string_view section, std::string_view key, std::string_view value);
    // Takes a key out, with the comment on its line.
    void remove(std::string_view section, std::string_view key);

  private:
    struct Line {
        std::string text;  // without its end
        std::string end;
    };
    // A line "key = value rest".
    struct Entry {
        std::size_t line;
        std::string section, key;
        std::string value;
        std::size_t valueBegin, valueEnd;  // in the line, quotes included
    };

    std::vector<Entry> all() const;
    std::optional<Entry> find(std::string_view section, std::string_view key) const;
    std::size_t placeFor(std::string_view section);
    std::string lineEnd() const;

    std::vector<Line> lines_;
};

}  // namespace headerdtc::qt
