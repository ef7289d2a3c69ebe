#include "host/odbc/odbc_database.h"

#include "host/odbc/odbc_connection.h"
#include "platform/runtime_error.h"

namespace headerdtc {
namespace {

constexpr std::int32_t TranslationDatabase = 8;

}  // namespace

OdbcDatabase::OdbcDatabase(Settings settings) : settings_(std::move(settings)) {}

std::unique_ptr<Connection> OdbcDatabase::createConnection() {
    return std::make_unique<OdbcConnection>(settings_);
}

std::string OdbcDatabase::GetConnectString(std::int32_t kind) {
    if (kind != TranslationDatabase)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           "no data source of kind " + std::to_string(kind));
    return settings_.connectString;
}

}  // namespace headerdtc
