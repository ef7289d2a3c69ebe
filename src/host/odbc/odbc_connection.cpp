#include "host/odbc/odbc_connection.h"

#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_session.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <vector>

namespace headerdtc {
namespace {

// Failures of the ADO objects themselves.
RuntimeError objectIsClosed() {
    return {3704, "Operation is not allowed when the object is closed."};
}

RuntimeError objectIsOpen() {
    return {3705, "Operation is not allowed when the object is open."};
}

RuntimeError noCurrentRecord() {
    return {
        3021,
        "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
        "requires a current record."};
}

RuntimeError noSuchItem() {
    return {3265,
            "Item cannot be found in the collection corresponding to the requested name or "
            "ordinal."};
}

// The rows of one statement, fetched one by one; of a row only the columns up to the last one asked
// for. A statement that gives no rows is at its end from the start. Raises ADO's 3704 once its
// connection was closed, 3021 without a current row, 3265 for a column that is not there.
class OdbcRecordset : public Recordset {
  public:
    OdbcRecordset(std::shared_ptr<OdbcSession> session, OdbcSession::Statement statement);
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

OdbcRecordset::OdbcRecordset(std::shared_ptr<OdbcSession> session, OdbcSession::Statement statement)
    : session_(std::move(session)),
      statement_(statement),
      columns_(session_->columns(statement)),
      fields_(columns_.size()),
      hasRow_(!columns_.empty() && session_->fetch(statement)) {}

OdbcRecordset::~OdbcRecordset() {
    if (session_->isOpen()) session_->free(statement_);
}

void OdbcRecordset::requireOpen() const {
    if (!session_->isOpen()) throw objectIsClosed();
}

bool OdbcRecordset::EndOfFile() {
    requireOpen();
    return !hasRow_;
}

void OdbcRecordset::MoveNext() {
    requireOpen();
    hasRow_ = session_->fetch(statement_);
    fieldsRead_ = 0;
}

Field& OdbcRecordset::Item(const std::string& column) {
    requireOpen();
    const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const OdbcColumn& c) {
        return equalIgnoringCase(c.name, column);
    });
    if (found == columns_.end()) throw noSuchItem();
    if (!hasRow_) throw noCurrentRecord();
    // Not every driver gives its columns in any order, so those before are read too.
    const auto index = static_cast<std::size_t>(found - columns_.begin());
    for (; fieldsRead_ <= index; ++fieldsRead_) {
        fields_[fieldsRead_].value = session_->value(statement_, static_cast<int>(fieldsRead_),
                                                     columns_[fieldsRead_].fetchAs);
    }
    return fields_[index];
}

}  // namespace

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
