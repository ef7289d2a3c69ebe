#include "host/odbc/odbc_data_source.h"

#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_ini.h"
#include "platform/nearest_name.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <optional>
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

// The driver manager's error, with the name that was not found.
RuntimeError dataSourceNotFound(const std::string& detail) {
    return {0, "Data source name not found and no default driver specified: " + detail};
}

// A driver's name and library, upper case.
std::string driverNames(const std::string& driver) {
    const bool isLibrary = driver.find('/') != std::string::npos;
    return upperCase(driver + " " + (isLibrary ? "" : odbcsDriverLibrary(driver)));
}

bool takesFile(const std::string& driverNames) {
    return driverNames.find(FileDriver) != std::string::npos;
}

bool isMemory(std::string_view database) {
    return database == ":memory:" ||
           (database.starts_with("file:") && (database.starts_with("file::memory:") ||
                                              database.find("mode=memory") != database.npos));
}

// The path of what SQLite takes as an address, "file:///srv/t.sqlite?mode=ro".
std::string pathOfAddress(std::string_view database) {
    constexpr std::string_view Scheme = "file:";
    if (!database.starts_with(Scheme)) return std::string(database);
    database = database.substr(0, database.find_first_of("?#"));
    database.remove_prefix(Scheme.size());
    if (database.starts_with("//"))
        database = database.substr(std::min(database.find('/', 2), database.size()));
    return std::string(database);
}

// The path of a database file that a place names; raises 53 when there is no such file, where the
// driver would make an empty one.
std::string databaseFile(const std::string& database, const fs::path& folder,
                         const std::string& place) {
    std::error_code failed;
    const fs::path path = fs::absolute(folder / pathOfAddress(database), failed).lexically_normal();
    if (failed || !fs::exists(path, failed) || fs::is_directory(path, failed))
        throw RuntimeError(ErrorNumber::FileNotFound, path.string() + ", the Database of " + place);
    return path.string();
}

// Where a data source is described: in a section, if any, or by the connect string alone.
using Description = std::optional<OdbcIniSection>;

std::string placeOf(const Description& description, std::string_view key = {}) {
    return description ? description->place(key) : "the connect string";
}

// Without a Database SQLite's driver makes a file that is named like the whole connect string.
RuntimeError noDatabase(const Description& description) {
    std::string text = "No database file is named: " + placeOf(description) +
                       " has no Database, the path of SQLite's file";
    if (description) {
        NearestName nearest("Database");
        for (const auto& entry : description->entries)
            nearest.offer(entry.key);
        if (!nearest.found().empty())
            text += "; is " + nearest.found() + " in line " +
                    std::to_string(description->entry(nearest.found())->line) + " meant for it?";
    }
    return {0, text};
}

// Has the driver of files given a file that is there, in the only form that it understands: it
// knows no other name for the keyword, no braces and no blanks around the equals sign.
void giveDatabaseFile(OdbcConnectString& parts, const std::string& dsn,
                      const Description& description) {
    // The buffer in which the driver puts a path together; it cuts off what is longer.
    constexpr std::size_t LongestPath = 511;
    const std::string own = parts.valueNamed("Database");
    const std::string database = own.empty() ? odbcsOwnDataSourceKey(dsn, "Database") : own;
    if (database.empty()) throw noDatabase(description);
    const std::string place = placeOf(description, "Database");
    if (!isMemory(database)) databaseFile(database, {}, place);
    if (database.size() > LongestPath || database.find_first_of(";{}") != std::string::npos)
        throw RuntimeError(ErrorNumber::PathFileAccessError,
                           database + ", the Database of " + place +
                               ": SQLite's driver takes no path with a semicolon or a brace, nor "
                               "one of more than " +
                               std::to_string(LongestPath) + " characters");
    if (own.empty()) return;
    parts.remove("Database");
    parts.add("Database", database);
}

// Puts the section of the site's odbc.ini in the place of DSN. Returns the driver's names.
std::string useSection(OdbcConnectString& parts, const OdbcDatabase::Settings& settings,
                       Description& description) {
    const std::string dsn = parts.value("DSN").empty() ? "DEFAULT" : parts.value("DSN");
    description = readOdbcIniSection(settings.odbcIni, dsn);
    if (!description)
        throw dataSourceNotFound("there is no [" + dsn + "] in " + settings.odbcIni.string());
    const auto* driver = description->entry("Driver");
    if (!driver || driver->value.empty())
        throw dataSourceNotFound(description->place() + " names no Driver");

    std::string names = driverNames(driver->value);
    parts.remove("DSN");
    parts.add("DRIVER", driver->value);
    for (const auto& [key, value, line] : description->entries) {
        if (equalIgnoringCase(key, "Driver") || equalIgnoringCase(key, "Description")) continue;
        if (value.empty() || !parts.value(key).empty()) continue;
        parts.remove(key);
        // A file of the site, not of the working folder.
        const bool isFile =
            takesFile(names) ? equalIgnoringCase(key, "Database") && !isMemory(value) &&
                                   !value.starts_with("file:")
                             : sameKeyword(key, "Database") && value.find('/') != std::string::npos;
        parts.add(key, isFile ? databaseFile(value, settings.siteFolder, description->place(key))
                              : value);
    }
    return names;
}

}  // namespace

OdbcDataSource findDataSource(const std::string& connectString,
                              const OdbcDatabase::Settings& settings) {
    OdbcConnectString parts(connectString);
    if (const std::string keyword = parts.keywordBeyond(LongestOdbcText); !keyword.empty())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue,
                           keyword.substr(0, 40) +
                               " in the connect string; ODBC takes no name or value of more than " +
                               std::to_string(LongestOdbcText) + " characters");
    const bool namesDriver = !parts.value("DRIVER").empty() || !parts.value("FILEDSN").empty();
    const bool inSite = !namesDriver && !settings.odbcIni.empty();
    const bool isDatabaseGiven = !parts.valueNamed("Database").empty();
    // The data source that ODBC is to find by itself, if any.
    const std::string dsn = inSite ? "" : parts.value("DSN");
    Description description;
    if (!dsn.empty()) description = readOdbcsOwnSection(dsn);
    const std::string driver = inSite        ? useSection(parts, settings, description)
                               : namesDriver ? driverNames(parts.value("DRIVER"))
                                             : driverNames(odbcsOwnDataSourceKey(dsn, "Driver"));

    if (!dsn.empty() && !namesDriver && driver.find_first_not_of(' ') == std::string::npos) {
        throw dataSourceNotFound(
            "[" + dsn + "] is in none of ODBC's own files; write it into one of those ('odbcinst " +
            "-j' lists them), or name a file that has it by \"odbc_ini\" in headerdtc.toml");
    }
    if (takesFile(driver))
        giveDatabaseFile(parts, dsn, isDatabaseGiven ? std::nullopt : description);

    OdbcDataSource source;
    if (takesFile(driver)) source.form = OdbcText::Utf8;
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
