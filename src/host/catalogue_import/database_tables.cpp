#include "host/catalogue_import/database_tables.h"

#include "host/odbc/odbc_metadata.h"
#include "platform/text.h"

#include <algorithm>

namespace headerdtc {
namespace {

bool isWanted(const OdbcTable& table, const std::vector<std::string>& patterns) {
    return patterns.empty() ||
           std::any_of(patterns.begin(), patterns.end(), [&](const auto& pattern) {
               return fitsPattern(table.name, pattern) ||
                      fitsPattern(table.schema + "." + table.name, pattern);
           });
}

// A catalogue has one record group of a name, whatever schema it comes from.
void requireOneOfEachName(const std::vector<OdbcTable>& tables) {
    for (auto table = tables.begin(); table != tables.end(); ++table) {
        const auto other = std::find_if(tables.begin(), table, [&](const OdbcTable& each) {
            return equalIgnoringCase(each.name, table->name);
        });
        if (other == table) continue;
        const auto place = [](const OdbcTable& each) {
            return each.schema.empty() ? each.name : each.schema + "." + each.name;
        };
        throw RuntimeError(0, "the database has several tables of one name, " + place(*other) +
                                  " and " + place(*table) + "; --table SCHEMA.NAME chooses");
    }
}

// Views are looked at where names are given.
std::vector<OdbcTable> wantedTables(OdbcMetadata& metadata,
                                    const std::vector<std::string>& patterns) {
    auto tables = metadata.tables(!patterns.empty());
    std::erase_if(tables, [&](const OdbcTable& table) { return !isWanted(table, patterns); });
    if (tables.empty()) throw RuntimeError(0, "the database has no such table");
    requireOneOfEachName(tables);
    return tables;
}

}  // namespace

std::vector<DatabaseTable> readDatabaseTables(const std::string& connectString,
                                              const OdbcDatabase::Settings& settings,
                                              const std::vector<std::string>& patterns) {
    OdbcSession session(connectString, settings);
    OdbcMetadata metadata(session);
    std::vector<DatabaseTable> tables;
    for (const OdbcTable& found : wantedTables(metadata, patterns)) {
        DatabaseTable& table = tables.emplace_back();
        table.name = found.name;
        for (auto& column : metadata.columns(found))
            table.columns.push_back(std::move(column.name));
        if (found.type == "TABLE") table.key = metadata.primaryKey(found);
    }
    return tables;
}

bool fitsPattern(std::string_view name, std::string_view pattern) {
    const std::string text = upperCase(name), wanted = upperCase(pattern);
    std::size_t at = 0, in = 0;
    std::size_t star = std::string::npos, afterStar = 0;  // the last one, and what it stands for
    while (at < text.size()) {
        if (in < wanted.size() && (wanted[in] == '?' || wanted[in] == text[at])) {
            ++at;
            ++in;
        } else if (in < wanted.size() && wanted[in] == '*') {
            star = in++;
            afterStar = at;
        } else if (star != std::string::npos) {
            in = star + 1;
            at = ++afterStar;
        } else {
            return false;
        }
    }
    return wanted.find_first_not_of('*', in) == std::string::npos;
}

}  // namespace headerdtc
