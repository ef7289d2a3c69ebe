#include "host/odbc/odbc_data_source.h"

#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_ini.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

// Part of the name of SQLite's driver, or of its library. It takes bytes.
constexpr std::string_view FileDriver = "SQLITE";

// Time limits that a driver takes from its connect string only.
struct TimeLimit {
    std::string_view driver;  // part of its name or library, upper case
    std::string_view keyword;
    enum class Of { LogOn, Statement } of;
    int perSecond;  // units of the keyword's value in one second
};
constexpr TimeLimit TimeLimits[] = {
    {FileDriver, "Timeout", TimeLimit::Of::Statement, 1000},
    {"MAODBC", "CONN_TIMEOUT", TimeLimit::Of::LogOn, 1},
    {"MAODBC", "READ_TIMEOUT", TimeLimit::Of::Statement, 1},
    {"MAODBC", "WRITE_TIMEOUT", TimeLimit::Of::Statement, 1},
};

// What the driver manager says, with what exactly was not found.
RuntimeError dataSourceNotFound(const std::string& detail) {
    return {0, "Data source name not found and no default driver specified: " + detail};
}

// A driver's name and library, upper case.
std::string driverNames(const std::string& driver) {
    const bool isLibrary = driver.find('/') != std::string::npos;
    return upperCase(driver + " " + (isLibrary ? "" : odbcsDriverLibrary(driver)));
}

bool isFileOf(const std::string& database, const std::string& driverNames) {
    if (database.empty() || database == ":memory:" || database.starts_with("file:")) return false;
    return driverNames.find(FileDriver) != std::string::npos ||
           database.find('/') != std::string::npos;
}

// The path of a database file that a section names; raises 53 when there is no such file, where
// the driver would make an empty one.
std::string databaseFile(const std::string& database, const fs::path& siteFolder,
                         const std::string& section) {
    const fs::path path = fs::absolute(siteFolder / database).lexically_normal();
    if (!fs::exists(path))
        throw RuntimeError(ErrorNumber::FileNotFound,
                           path.string() + ", the Database of " + section);
    return path.string();
}

// Puts the section of the site's odbc.ini in the place of DSN. Returns the driver's names.
std::string useSection(OdbcConnectString& parts, const OdbcDatabase::Settings& settings) {
    const std::string dsn = parts.value("DSN").empty() ? "DEFAULT" : parts.value("DSN");
    const std::string name = "[" + dsn + "] in " + settings.odbcIni.string();
    const auto section = readOdbcIniSection(settings.odbcIni, dsn);
    if (!section) throw dataSourceNotFound("there is no " + name);
    const auto driver = std::find_if(section->begin(), section->end(), [](const auto& entry) {
        return equalIgnoringCase(entry.first, "Driver");
    });
    if (driver == section->end() || driver->second.empty())
        throw dataSourceNotFound(name + " names no Driver");

    const std::string names = driverNames(driver->second);
    parts.remove("DSN");
    parts.add("DRIVER", driver->second);
    for (const auto& [key, value] : *section) {
        if (equalIgnoringCase(key, "Driver") || equalIgnoringCase(key, "Description")) continue;
        if (value.empty() || !parts.value(key).empty()) continue;
        parts.remove(key);
        const bool isFile = sameKeyword(key, "Database") && isFileOf(value, names);
        parts.add(key, isFile ? databaseFile(value, settings.siteFolder, name) : value);
    }
    return names;
}

}  // namespace

OdbcDataSource findDataSource(const std::string& connectString,
                              const OdbcDatabase::Settings& settings) {
    OdbcConnectString parts(connectString);
    const std::string dsn = parts.value("DSN");
    std::string driver;
    if (!parts.value("DRIVER").empty() || !parts.value("FILEDSN").empty()) {
        driver = driverNames(parts.value("DRIVER"));
    } else if (!settings.odbcIni.empty()) {
        driver = useSection(parts, settings);
    } else {
        driver = driverNames(odbcsOwnDataSourceKey(dsn, "Driver"));
    }

    OdbcDataSource source;
    if (driver.find(FileDriver) != std::string::npos) source.form = OdbcText::Utf8;
    for (const TimeLimit& limit : TimeLimits) {
        if (driver.find(limit.driver) == std::string::npos) continue;
        const bool isOfStatement = limit.of == TimeLimit::Of::Statement;
        if (isOfStatement) source.boundsStatements = true;
        const std::string keyword(limit.keyword);
        if (!parts.value(keyword).empty()) continue;
        if (!parts.value("DSN").empty() && !odbcsOwnDataSourceKey(dsn, keyword).empty()) continue;
        const auto seconds = isOfStatement ? settings.statementTimeout : settings.connectTimeout;
        parts.add(keyword, std::to_string(seconds.count() * limit.perSecond));
    }
    source.connectString = parts.text();
    source.passwords = {parts.value("PWD")};
    if (!parts.value("DSN").empty()) source.passwords.push_back(odbcsOwnDataSourceKey(dsn, "PWD"));
    std::erase(source.passwords, "");
    return source;
}

}  // namespace headerdtc
