#pragma once

#include "host/odbc/odbc_database.h"

#include <memory>
#include <string>
#include <utility>

namespace headerdtc {

class OdbcSession;

// An ADO-style connection over ODBC. Besides the driver's failures it raises ADO's own: 3704 and
// 3705 for what is not allowed while it is closed, while it is open. A recordset that is still
// there when its connection closes is closed with it.
class OdbcConnection : public Connection {
  public:
    explicit OdbcConnection(OdbcDatabase::Settings settings) : settings_(std::move(settings)) {}

    void ConnectionString(const std::string& connectString) override;
    void Open(const std::string& connectString, const std::string& userId,
              const std::string& password, int options) override;
    std::unique_ptr<Recordset> Execute(const std::string& commandText,
                                       std::int32_t* recordsAffected, int options) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void Close() override;

    // What there is beyond ADO: bound values, catalogue functions. Raises 3704 while it is closed.
    OdbcSession& session();

  private:
    void requireClosed() const;

    OdbcDatabase::Settings settings_;
    std::string connectString_;
    std::shared_ptr<OdbcSession> session_;
};

}  // namespace headerdtc
