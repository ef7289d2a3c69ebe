#include "host/odbc/odbc_data_source.h"

#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_ini.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <system_error>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

// Part of the name of SQLite's driver, or of its library. It takes bytes.
constexpr std::string_view FileDriver = "SQLITE";

// What a driver has to be told in its connect string, unless the author has done so.
struct DriverSetting {
    std::string_view driver;  // part of its name or library, upper case
    std::string_view keyword;
    enum class Is { Fixed, LogOnTime, StatementTime } is;
    int value;  // itself, or the units of time in a second
};
constexpr DriverSetting DriverSettings[] = {
    {FileDriver, "Timeout", DriverSetting::Is::StatementTime, 1000},
    {"MAODBC", "CONN_TIMEOUT", DriverSetting::Is::LogOnTime, 1},
    {"MAODBC", "READ_TIMEOUT", DriverSetting::Is::StatementTime, 1},
    {"MAODBC", "WRITE_TIMEOUT", DriverSetting::Is::StatementTime, 1},
    // Counts the rows that an update has found, also those that are as they were: a label that is
    // given the text that it has would look like one that is not there.
    {"MAODBC", "OPTION", DriverSetting::Is::Fixed, 2},
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

// The path of a database file that a place names; raises 53 when there is no such file, where the
// driver would make an empty one.
std::string databaseFile(const std::string& database, const fs::path& folder,
                         const std::string& place) {
    std::error_code failed;
    const fs::path path = fs::absolute(folder / database, failed).lexically_normal();
    if (failed || !fs::exists(path, failed))
        throw RuntimeError(ErrorNumber::FileNotFound, path.string() + ", the Database of " + place);
    return path.string();
}

// The same for a database that the site's odbc.ini does not name: the driver goes from the working
// folder.
void requireDatabaseFile(const OdbcConnectString& parts, const std::string& dsn,
                         const std::string& driverNames) {
    const std::string own = parts.value("Database");
    const std::string database = own.empty() ? odbcsOwnDataSourceKey(dsn, "Database") : own;
    if (driverNames.find(FileDriver) != std::string::npos && isFileOf(database, driverNames))
        databaseFile(database, {}, own.empty() ? "the data source " + dsn : "the connect string");
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

    std::string names = driverNames(driver->second);
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
    const bool namesDriver = !parts.value("DRIVER").empty() || !parts.value("FILEDSN").empty();
    const bool inSite = !namesDriver && !settings.odbcIni.empty();
    // The data source that ODBC is to find by itself, if any.
    const std::string dsn = inSite ? "" : parts.value("DSN");
    const std::string driver = inSite        ? useSection(parts, settings)
                               : namesDriver ? driverNames(parts.value("DRIVER"))
                                             : driverNames(odbcsOwnDataSourceKey(dsn, "Driver"));

    if (!dsn.empty() && !namesDriver && driver.find_first_not_of(' ') == std::string::npos) {
        throw dataSourceNotFound(
            "[" + dsn + "] is in none of ODBC's own files; write it into one of those ('odbcinst " +
            "-j' lists them), or name a file that has it by \"odbc_ini\" in headerdtc.toml");
    }
    requireDatabaseFile(parts, dsn, driver);

    OdbcDataSource source;
    if (driver.find(FileDriver) != std::string::npos) source.form = OdbcText::Utf8;
    for (const auto& [name, keyword, is, value] : DriverSettings) {
        if (driver.find(name) == std::string::npos) continue;
        if (is == DriverSetting::Is::StatementTime) source.boundsStatements = true;
        if (!parts.value(keyword).empty()) continue;
        if (!dsn.empty() && !odbcsOwnDataSourceKey(dsn, std::string(keyword)).empty()) continue;
        const auto unit = is == DriverSetting::Is::Fixed       ? std::chrono::seconds(1)
                          : is == DriverSetting::Is::LogOnTime ? settings.connectTimeout
                                                               : settings.statementTimeout;
        parts.add(keyword, std::to_string(unit.count() * value));
    }
    source.connectString = parts.text();
    source.passwords = {parts.value("PWD")};
    for (const char* keyword : {"PWD", "Password"})
        source.passwords.push_back(odbcsOwnDataSourceKey(dsn, keyword));
    std::erase(source.passwords, "");
    return source;
}

}  // namespace headerdtc
