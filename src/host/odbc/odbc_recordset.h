#pragma once

#include "host/odbc/odbc_session.h"
#include "platform/database.h"

#include <memory>
#include <string>
#include <vector>

namespace headerdtc {

// The rows of one statement, fetched one by one; of a row only the columns up to the last one asked
// for. A statement that gives no rows is at its end from the start. Raises ADO's 3704 once its
// connection was closed, 3021 without a current row, 3265 for a column that is not there.
class OdbcRecordset : public Recordset {
  public:
    OdbcRecordset(std::shared_ptr<OdbcSession> session, OdbcSession::Statement statement);
    OdbcRecordset(const OdbcRecordset&) = delete;
    OdbcRecordset& operator=(const OdbcRecordset&) = delete;
    ~OdbcRecordset() override;

    bool EndOfFile() override;
    void MoveNext() override;
    Field& Item(const std::string& column) override;

  private:
    struct OdbcField : Field {
        std::string Value() override { return value; }
        std::string value;
    };

    void requireOpen() const;

    std::shared_ptr<OdbcSession> session_;
    OdbcSession::Statement statement_;
    std::vector<OdbcColumn> columns_;
    std::vector<OdbcField> fields_;  // of the current row
    std::size_t fieldsRead_ = 0;
    bool hasRow_;
};

}  // namespace headerdtc
