#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace headerdtc::qt {

// The text of a headerdtc.toml, whose values can be changed where they stand: comments, blank
// lines, the order of the keys and everything else stay as their author wrote them.
class ConfigurationText {
  public:
    // Throws ConfigurationError where it is no TOML; `file` is named then.
    ConfigurationText(const std::filesystem::path& file, std::string bytes);

    const std::string& bytes() const { return bytes_; }
    // The value of a key; the empty section is the top of the file. Nothing where it is no text.
    std::optional<std::string> get(std::string_view section, std::string_view key) const;
    // All keys of a section that have texts, with these.
    std::vector<std::pair<std::string, std::string>> entries(std::string_view section) const;
    // Changes a value, or adds key and section where they are missing.
    void set(std::string_view section, std::string_view key, std::string_view value);
    // Takes a key out, with its lines.
    void remove(std::string_view section, std::string_view key);

  private:
    struct Reading;

    void replace(std::size_t begin, std::size_t end, std::string_view text);
    void add(std::string_view section, const std::string& entry);
    std::size_t lineBegin(std::size_t at) const;
    std::size_t nextLine(std::size_t at) const;
    std::string lineEnd() const;

    std::string bytes_;
};

}  // namespace headerdtc::qt
