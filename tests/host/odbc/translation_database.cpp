#include "translation_database.h"

#include "host/files/whole_file.h"

#include <regex>

namespace headerdtc::testing {
namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

// The statements of a schema file, whose comments stand on lines of their own.
std::vector<std::string> statementsOf(const fs::path& file) {
    const std::string text =
        std::regex_replace(readWholeFile(file).bytes, std::regex("--[^\n]*\n"), "");
    const std::regex separator(";\\s*");
    return {std::sregex_token_iterator(text.begin(), text.end(), separator, -1), {}};
}

}  // namespace

TranslationDatabase::TranslationDatabase() : kind(environment("HEADERDTC_SERVER")) {
    settings.connectString = settings.labelConnectString = "DSN=Orvane;UID=WWWappsOrvane;PWD=";
    settings.connectTimeout = settings.statementTimeout = std::chrono::seconds(30);
    settings.siteFolder = folder_.path();
    if (kind.empty()) {
        kind = "sqlite";
        folder_.write("translations.sqlite", "");
        settings.odbcIni = folder_.write(
            "odbc.ini", "[Orvane]\nDriver = SQLite3\nDatabase = translations.sqlite\n");
    } else {
        settings.odbcIni = environment("HEADERDTC_SERVER_INI");
        for (const char* table : {"I18NTEXT", "I18NFIELDNAMES", "I18NFIELDVALUES", "I18NHIDDEN"})
            run(std::string("DROP TABLE IF EXISTS ") + table);
    }
    runFile("schema-" + kind + ".sql");
}

std::unique_ptr<Connection> TranslationDatabase::connect() {
    auto connection = OdbcDatabase(settings).createConnection();
    connection->Open(settings.connectString, "", "", -1);
    return connection;
}

void TranslationDatabase::run(const std::string& statement) {
    connect()->Execute(statement, nullptr, -1);
}

void TranslationDatabase::runFile(const std::string& name) {
    for (const auto& statement :
         statementsOf(fs::path(HEADERDTC_SOURCE_DIR "/demo/translations") / name))
        if (!statement.empty()) run(statement);
}

Rows TranslationDatabase::rows(const std::string& query, const std::vector<std::string>& columns) {
    Rows rows;
    const auto connection = connect();
    for (const auto result = connection->Execute(query, nullptr, -1); !result->EndOfFile();
         result->MoveNext()) {
        auto& row = rows.emplace_back();
        for (const auto& column : columns)
            row.push_back(result->Item(column).Value());
    }
    return rows;
}

int TranslationDatabase::connectionCount() {
    if (!isServer())
        return static_cast<int>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
    const std::string query =
        kind == "postgresql"
            ? "SELECT COUNT(*) AS N FROM pg_stat_activity WHERE usename = 'WWWappsOrvane'"
            : "SELECT COUNT(*) AS N FROM information_schema.processlist "
              "WHERE user = 'WWWappsOrvane'";
    return std::stoi(rows(query, {"N"})[0][0]);
}

void TranslationDatabase::stopServer() {
    if (std::system(environment("HEADERDTC_SERVER_STOP").c_str()) != 0)
        throw std::runtime_error("the server could not be stopped");
}

}  // namespace headerdtc::testing
