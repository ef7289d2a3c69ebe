#include "host/odbc/odbc_recordset.h"

#include "host/odbc/ado_errors.h"
#include "platform/text.h"

#include <algorithm>

namespace headerdtc {

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

}  // namespace headerdtc
