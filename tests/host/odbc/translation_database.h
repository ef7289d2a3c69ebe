#pragma once

#include "host/odbc/odbc_database.h"
#include "support/temp_folder.h"

#include <string>
#include <vector>

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

}  // namespace headerdtc::testing
