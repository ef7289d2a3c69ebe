#include "host/odbc/odbc_ini.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

#include <array>
#include <cstring>
#include <fstream>
#include <odbcinst.h>

namespace headerdtc {
namespace {

std::string profileString(const char* file, const std::string& section, const std::string& key) {
    // ODBC takes an empty name for a question of another kind.
    if (section.empty()) return {};
    std::array<char, 1024> value{};
    SQLGetPrivateProfileString(section.c_str(), key.c_str(), "", value.data(),
                               static_cast<int>(value.size()), file);
    return {value.data(), strnlen(value.data(), value.size())};
}

}  // namespace

std::optional<OdbcIniSection> readOdbcIniSection(const std::filesystem::path& file,
                                                 std::string_view section) {
    std::ifstream lines(file);
    if (!lines)
        throw RuntimeError(ErrorNumber::FileNotFound,
                           file.string() + ", in which data sources are looked up");
    std::optional<OdbcIniSection> found;
    bool inSection = false;
    for (std::string text; std::getline(lines, text);) {
        const std::string_view line = trimSpace(text);
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        if (line[0] == '[') {
            if (found) break;
            inSection = equalIgnoringCase(trimSpace(line.substr(1, line.find(']') - 1)), section);
            if (inSection) found.emplace();
            continue;
        }
        const auto equals = line.find('=');
        if (inSection && equals != std::string_view::npos)
            found->emplace_back(trimSpace(line.substr(0, equals)),
                                trimSpace(line.substr(equals + 1)));
    }
    return found;
}

std::string odbcsOwnDataSourceKey(const std::string& dataSource, const std::string& key) {
    return profileString("odbc.ini", dataSource, key);
}

std::string odbcsDriverLibrary(const std::string& driver) {
    return profileString("odbcinst.ini", driver, "Driver");
}

}  // namespace headerdtc
