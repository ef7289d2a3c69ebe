#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace headerdtc {

using OdbcIniSection = std::vector<std::pair<std::string, std::string>>;

// The keys and values of one section of an odbc.ini, in their order; names compare without regard
// to case. Nothing when the section is not there. Raises 53 when the file cannot be read.
std::optional<OdbcIniSection> readOdbcIniSection(const std::filesystem::path& file,
                                                 std::string_view section);

// What ODBC's own files say: a data source's key (the odbc.ini that ODBC finds by itself), and the
// library of a driver's name. Empty when they do not say.
std::string odbcsOwnDataSourceKey(const std::string& dataSource, const std::string& key);
std::string odbcsDriverLibrary(const std::string& driver);

}  // namespace headerdtc
