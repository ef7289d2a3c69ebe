#include "host/odbc/odbc_connection.h"

#include "host/odbc/ado_errors.h"
#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_recordset.h"
#include "host/odbc/odbc_session.h"

namespace headerdtc {

void OdbcConnection::requireClosed() const {
    if (session_) throw objectIsOpen();
}

OdbcSession& OdbcConnection::session() {
    if (!session_) throw objectIsClosed();
    return *session_;
}

void OdbcConnection::ConnectionString(const std::string& connectString) {
    requireClosed();
    connectString_ = connectString;
}

void OdbcConnection::Open(const std::string& connectString, const std::string& userId,
                          const std::string& password, int) {
    requireClosed();
    OdbcConnectString parts(connectString.empty() ? connectString_ : connectString);
    const auto replace = [&parts](const char* keyword, const std::string& value) {
        if (value.empty()) return;
        parts.remove(keyword);
        parts.add(keyword, value);
    };
    replace("UID", userId);
    replace("PWD", password);
    session_ = std::make_shared<OdbcSession>(parts.text(), settings_);
}

std::unique_ptr<Recordset> OdbcConnection::Execute(const std::string& commandText,
                                                   std::int32_t* recordsAffected, int) {
    const auto statement = session().execute(commandText);
    auto recordset = std::make_unique<OdbcRecordset>(session_, statement);
    if (recordsAffected)
        *recordsAffected = static_cast<std::int32_t>(session_->rowCount(statement));
    return recordset;
}

void OdbcConnection::BeginTrans() {
    session().beginTransaction();
}

void OdbcConnection::CommitTrans() {
    session().commitTransaction();
}

void OdbcConnection::Close() {
    session().close();
    session_.reset();
}

}  // namespace headerdtc
