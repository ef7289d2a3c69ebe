#pragma once

#include "platform/database.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace headerdtc {

// Databases through ODBC, for one site: its two connect strings, and the file in which its data
// sources are looked up. See odbc_data_source.h for what becomes of a connect string.
class OdbcDatabase : public Database {
  public:
    struct Settings {
        std::string connectString;
        std::string labelConnectString;
        std::filesystem::path odbcIni;     // empty: whatever ODBC finds by itself
        std::filesystem::path siteFolder;  // where a relative Database of odbcIni is taken from
        // How long a log-on and a statement may take, as far as the driver can bound them.
        std::chrono::seconds connectTimeout{10};
        std::chrono::seconds statementTimeout{30};
        bool isReadOnly = false;  // sessions refuse to write, where the server can be told so
    };
    explicit OdbcDatabase(Settings settings);

    std::unique_ptr<Connection> createConnection() override;
    // Kind 8 is the translation database; raises 5 for another kind.
    std::string GetConnectString(std::int32_t kind) override;
    std::string labelConnectString() override { return settings_.labelConnectString; }
    const Settings& settings() const { return settings_; }

  private:
    Settings settings_;
};

}  // namespace headerdtc
