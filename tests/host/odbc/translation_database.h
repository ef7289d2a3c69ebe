#pragma once

#include "host/odbc/odbc_database.h"
#include "i18n/translation_store.h"
#include "support/fake_surroundings.h"
#include "support/prologue.h"

namespace headerdtc::testing {

using Rows = std::vector<std::vector<std::string>>;

// Empty translation tables, made by the demo's schema: in an SQLite file, or on the server beside
// which with-server.sh runs the tests.
class TranslationDatabase {
  public:
    TranslationDatabase();

    // "sqlite", "postgresql" or "mariadb".
    std::string kind;
    bool isServer() const { return kind != "sqlite"; }
    // As a site's: data source Orvane, and 30 seconds for everything.
    OdbcDatabase::Settings settings;

    void run(const std::string& statement);
    // Every statement of one of the demo's files.
    void runFile(const std::string& name);
    // The named columns of a query's rows.
    Rows rows(const std::string& query, const std::vector<std::string>& columns);
    // An open connection, for tests that need one to stay.
    std::unique_ptr<Connection> connect();

    // How many connections of the data source's user the server has, this question's included; of
    // SQLite, how many files this process has open.
    int connectionCount();
    // Ends the server at once.
    void stopServer();

  private:
    TempFolder folder_;
};

// The control's statements on a real database.
class TranslationSite : public ::testing::Test {
  protected:
    // Another log-on for the statements that follow.
    void logOn(const std::string& connectString) {
        auto settings = translations.settings;
        settings.connectString = settings.labelConnectString = connectString;
        database = OdbcDatabase(settings);
    }

    TranslationDatabase translations;
    OdbcDatabase database{translations.settings};
    FakeSurroundings outside;
    Surroundings surroundings{outside.messages,    outside.fileDialog, outside.registry,
                              outside.dataSources, database,           outside.textFiles,
                              outside.clock,       outside.changes};
    TranslationStore store{surroundings};
};

}  // namespace headerdtc::testing
