#include "host/doctor/examination.h"
#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_data_source.h"
#include "host/odbc/odbc_ini.h"
#include "host/odbc/odbc_session.h"
#include "host/site/site.h"
#include "platform/text.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <span>
#include <sqlext.h>

namespace headerdtc::doctor {
namespace {

namespace fs = std::filesystem;

// The links of one connect string, and the words for them.
struct Words {
    std::string key;  // in [translations]
    std::string source, driver, logOn;
};
const Words Translations = {"connect_string", "data source", "driver", "log-on"};
const Words Labels = {"label_connect_string", "data source for labels", "driver for labels",
                      "log-on for labels"};

// Debian's packages of the drivers, by a part of their names.
constexpr struct {
    std::string_view driver, package;
} Packages[] = {{"SQLITE", "libsqliteodbc"}, {"POSTGRES", "odbc-postgresql"},
                {"PSQL", "odbc-postgresql"}, {"MARIADB", "odbc-mariadb"},
                {"MYSQL", "odbc-mariadb"},   {"MAODBC", "odbc-mariadb"}};

// The tables, and of each a statement that needs all of its columns and reads no row.
constexpr struct {
    const char* table;
    const char* statement;
} Tables[] = {
    {"I18NTEXT", "SELECT LABEL, TEXT, LOCALEID, DATECHANGED, STATUS FROM I18NTEXT WHERE 1 = 0"},
    {"I18NFIELDNAMES",
     "SELECT PROVIDERNAME, BISTYPE, FIELDNAME, LABEL FROM I18NFIELDNAMES WHERE 1 = 0"},
    {"I18NFIELDVALUES",
     "SELECT PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL FROM I18NFIELDVALUES WHERE 1 = 0"},
};

OdbcDatabase::Settings settingsOf(const SiteConfiguration& configuration) {
    return Site(std::make_shared<const SiteConfiguration>(configuration)).database.settings();
}

std::string packageFor(const std::string& driver) {
    const std::string name = upperCase(driver);
    for (const auto& [part, package] : Packages) {
        if (name.find(part) != std::string::npos) return std::string(package);
    }
    return {};
}

// Walks from a connect string to an open session; every link that holds is told.
//
// A connect string stands at the end of what is told: whatever follows its password is masked too.
class LogOnExamination {
  public:
    LogOnExamination(Examination& seen, const Words& words, const std::string& connectString)
        : seen_(seen),
          words_(words),
          connectString_(connectString),
          settings_(settingsOf(*seen.configuration)) {}

    // The session, nothing when a link is broken.
    std::unique_ptr<OdbcSession> walk() {
        if (!findSource() || !findDriver()) return nullptr;
        return logOn();
    }

  private:
    bool findSource() {
        if (connectString_.empty()) {
            seen_.doubtful(words_.source, "\"" + words_.key + "\" is empty",
                           "set it in [translations] of headerdtc.toml, where texts are to be "
                           "translated");
            return false;
        }
        try {
            parts_ = OdbcConnectString(findDataSource(connectString_, settings_).connectString);
        } catch (const RuntimeError& error) {
            const auto is = [&](ErrorNumber number) {
                return error.number() == static_cast<int>(number);
            };
            const std::string ini = settings_.odbcIni.string();
            seen_.broken(words_.source, error.description() + ": " + connectString_,
                         is(ErrorNumber::FileNotFound)
                             ? "put the file there, or correct where it is looked for"
                         : is(ErrorNumber::InvalidPropertyValue) ? "shorten it"
                         : ini.empty() ? "describe it in the odbc.ini of this machine, or let "
                                         "\"odbc_ini\" in [translations] of headerdtc.toml name a "
                                         "file that does"
                                       : "describe it in " + ini);
            return false;
        }
        const std::string own = parts_.value("DSN");
        driver_ = own.empty() ? parts_.value("DRIVER") : odbcsOwnDataSourceKey(own, "Driver");
        if (driver_.empty() && parts_.value("FILEDSN").empty()) {
            seen_.broken(
                words_.source,
                "ODBC knows no data source " +
                    (own.empty() ? "of that description" : "\"" + own + "\"") + ": " +
                    connectString_,
                "describe it in the odbc.ini of this machine (odbcinst -q -s lists what is "
                "there), or in a file that \"odbc_ini\" in [translations] names");
            return false;
        }
        const bool isOfSite = own.empty() && !settings_.odbcIni.empty();
        seen_.whole(words_.source,
                    (isOfSite ? settings_.odbcIni.string() + ": " : "") + connectString_);
        return true;
    }

    bool findDriver() {
        const bool isLibrary = driver_.find('/') != std::string::npos;
        const std::string library = isLibrary ? driver_ : odbcsDriverLibrary(driver_);
        std::error_code ignored;
        if (library.empty() || (library.front() == '/' && !fs::exists(library, ignored))) {
            const std::string package = packageFor(driver_);
            seen_.broken(words_.driver, "the driver \"" + driver_ + "\" is not installed",
                         package.empty() ? "install it (odbcinst -q -d lists the drivers that are)"
                                         : "install it: apt install " + package);
            return false;
        }
        seen_.whole(words_.driver, driver_ + (isLibrary ? "" : ", " + library));
        return true;
    }

    std::unique_ptr<OdbcSession> logOn() {
        const auto begin = std::chrono::steady_clock::now();
        try {
            auto session = std::make_unique<OdbcSession>(connectString_, settings_);
            const auto taken = std::chrono::duration_cast<std::chrono::milliseconds>(
                std::chrono::steady_clock::now() - begin);
            seen_.whole(words_.logOn, "in " + std::to_string(taken.count()) + " ms");
            return session;
        } catch (const RuntimeError& error) {
            seen_.broken(words_.logOn, error.description(),
                         "see that the server runs, and that user, password and database of the "
                         "data source are right");
            return nullptr;
        }
    }

    Examination& seen_;
    const Words& words_;
    std::string connectString_;
    OdbcDatabase::Settings settings_;
    OdbcConnectString parts_{""};
    std::string driver_;
};

// What to do where a table cannot be read, by what the drivers say of it.
const char* remedyFor(const std::string& refusal) {
    const auto says = [&](const char* words) { return refusal.find(words) != std::string::npos; };
    if (says("locked") || says("timeout"))
        return "another program keeps it locked: let that end, and try again";
    if (says("not a database"))
        return "the file is no SQLite database: correct where it is looked for, or move it away "
               "and let 'headerdtc init' make one";
    return "make it with all of its columns; the formats describe it, and the demo has a file for "
           "each kind of database";
}

// A new label is stored with today's date as the user's locale writes it, which the database has to
// take for an expression: 26/11/2026 is one, 26.11.2026 is none.
void examineDate(Examination& seen) {
    const std::string date = SystemClock().shortDate();
    const std::string numbers = replaceAll(date, "/", "-");
    bool isExpression = !date.empty();
    for (const std::string_view number : splitText(numbers, "-"))
        isExpression = isExpression && !number.empty() &&
                       number.find_first_not_of("0123456789") == std::string_view::npos;
    if (isExpression) return;
    constexpr const char* All = "LC_ALL";  // outranks the others
    const char* set = std::getenv(All);
    const std::string variable = set && *set ? All : "LC_TIME";
    seen.doubtful("date of a new label",
                  "in this locale today is \"" + date +
                      "\", which databases do not take as \"Add label...\" writes it",
                  "start the editor with " + variable +
                      "=C.UTF-8, or another locale that writes "
                      "dates with slashes or hyphens");
}

// `words` are put behind the names of the links.
template <class Wanted>
void examineTables(Examination& seen, OdbcSession& session, const Wanted& wanted,
                   const std::string& words) {
    for (const auto& [table, statement] : wanted) {
        const std::string link = "table " + (table + words);
        try {
            session.free(session.execute(statement));
            const auto counted = session.execute(std::string("SELECT COUNT(*) FROM ") + table);
            const bool has = session.fetch(counted);
            const std::string count = has ? session.value(counted, 0, SQL_C_CHAR) : "0";
            session.free(counted);
            seen.whole(link, count + (count == "1" ? " row" : " rows"));
        } catch (const RuntimeError& error) {
            seen.broken(link, error.description(), remedyFor(error.description()));
        }
    }
}

}  // namespace

void examineDatabase(Examination& seen) {
    if (!seen.configuration) return;
    const std::string& suite = seen.configuration->connectString;
    const std::string& labels = seen.configuration->labelConnectString;
    const auto session = LogOnExamination(seen, Translations, suite).walk();
    if (session) {
        examineTables(seen, *session, Tables, "");
        examineDate(seen);
    } else {
        seen.skipped("tables", "they are in the translation database");
    }
    if (labels == suite) return;
    // A label is added to the texts alone.
    if (const auto own = LogOnExamination(seen, Labels, labels).walk())
        examineTables(seen, *own, std::span(Tables).first<1>(), " for labels");
}

}  // namespace headerdtc::doctor
