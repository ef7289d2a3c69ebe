#include "host/odbc/odbc_ini.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <odbcinst.h>

namespace headerdtc {
namespace {

std::string profileString(const char* file, const std::string& section, const std::string& key) {
    // For an empty name ODBC would list the names of all sections.
    if (section.empty()) return {};
    std::array<char, 1024> value{};
    SQLGetPrivateProfileString(section.c_str(), key.c_str(), "", value.data(),
                               static_cast<int>(value.size()), file);
    return {value.data(), strnlen(value.data(), value.size())};
}

void requireShort(const std::string& file, int line, const std::string& what,
                  std::string_view text) {
    if (text.size() <= LongestOdbcText) return;
    throw RuntimeError(ErrorNumber::InvalidPropertyValue,
                       file + ":" + std::to_string(line) + ": " + what + " has " +
                           std::to_string(text.size()) + " characters; ODBC takes " +
                           std::to_string(LongestOdbcText));
}

// The files in which ODBC looks for data sources by itself, as it looks for them.
std::vector<std::filesystem::path> odbcsOwnFiles() {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::filesystem::path(value ? value : "");
    };
    const auto users = variable("ODBCINI");
    const auto systems = variable("ODBCSYSINI");
    return {users.empty() ? variable("HOME") / ".odbc.ini" : users,
            (systems.empty() ? "/etc" : systems) / "odbc.ini"};
}

}  // namespace

const OdbcIniSection::Entry* OdbcIniSection::entry(std::string_view key) const {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& each) {
        return equalIgnoringCase(each.key, key);
    });
    return found == entries.end() ? nullptr : &*found;
}

std::string OdbcIniSection::place(std::string_view key) const {
    const Entry* found = entry(key);
    return "[" + name + "] in " + file + ":" + std::to_string(found ? found->line : line);
}

std::optional<OdbcIniSection> readOdbcIniSection(const std::filesystem::path& file,
                                                 std::string_view section) {
    std::ifstream lines(file);
    if (!lines)
        throw RuntimeError(ErrorNumber::FileNotFound,
                           file.string() + ", in which data sources are looked up");
    std::optional<OdbcIniSection> found;
    bool inSection = false;
    int number = 0;
    for (std::string text; std::getline(lines, text);) {
        ++number;
        const std::string_view line = trimSpace(text);
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        if (line[0] == '[') {
            if (found) break;
            const std::string_view name = trimSpace(line.substr(1, line.find(']') - 1));
            inSection = equalIgnoringCase(name, section);
            if (inSection) {
                requireShort(file, number, "the name of a data source", name);
                found = {std::string(section), file, number, {}};
            }
            continue;
        }
        const auto equals = line.find('=');
        if (!inSection || equals == std::string_view::npos) continue;
        const std::string key(trimSpace(line.substr(0, equals)));
        const std::string_view value = trimSpace(line.substr(equals + 1));
        requireShort(file, number, "a key", key);
        requireShort(file, number, "the value of " + key, value);
        found->entries.push_back({key, std::string(value), number});
    }
    return found;
}

std::optional<OdbcIniSection> readOdbcsOwnSection(std::string_view dataSource) {
    for (const auto& file : odbcsOwnFiles()) {
        if (!std::ifstream(file)) continue;
        if (auto section = readOdbcIniSection(file, dataSource)) return section;
    }
    return std::nullopt;
}

std::string odbcsOwnDataSourceKey(const std::string& dataSource, const std::string& key) {
    return profileString("odbc.ini", dataSource, key);
}

std::string odbcsDriverLibrary(const std::string& driver) {
    return profileString("odbcinst.ini", driver, "Driver");
}

}  // namespace headerdtc
