#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// The longest name or value that ODBC's driver manager takes, in bytes: it copies them into buffers
// of its own, and a longer driver's name ends the program.
inline constexpr std::size_t LongestOdbcText = 1000;

// A section of an odbc.ini, or of ODBC's own files.
struct OdbcIniSection {
    struct Entry {
        std::string key, value;
        int line = 0;  // of the file, from 1
    };
    std::string name;  // as it is asked for
    std::string file;
    int line = 0;  // of its head
    std::vector<Entry> entries;

    // The first entry of a key, without regard to case; nullptr when there is none.
    const Entry* entry(std::string_view key) const;
    // "[Orvane] in /srv/site/odbc.ini:7", with the line of a key that is there.
    std::string place(std::string_view key = {}) const;
};

// One section of an odbc.ini, its entries in their order; names compare without regard to case.
// Nothing when it is not there. Raises 53 when the file cannot be read, and 380 with the line for a
// name or value that is longer than ODBC takes.
std::optional<OdbcIniSection> readOdbcIniSection(const std::filesystem::path& file,
                                                 std::string_view section);

// The section of a data source in the first of the files that ODBC finds by itself which has it.
// Raises 380 as above.
std::optional<OdbcIniSection> readOdbcsOwnSection(std::string_view dataSource);

// From ODBC's own files: a data source's key (the odbc.ini that ODBC finds by itself), and the
// library of a driver's name. Empty when they do not say.
std::string odbcsOwnDataSourceKey(const std::string& dataSource, const std::string& key);
std::string odbcsDriverLibrary(const std::string& driver);

}  // namespace headerdtc
