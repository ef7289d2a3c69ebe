#pragma once

#include "host/odbc/odbc_session.h"

#include <deque>
#include <string>
#include <vector>

namespace headerdtc {

// Values for the marks of one statement, kept where the driver finds them until it is executed.
class OdbcBoundValues {
  public:
    OdbcBoundValues(const std::vector<OdbcParameter>& values, OdbcText form);
    OdbcBoundValues(const OdbcBoundValues&) = delete;
    OdbcBoundValues& operator=(const OdbcBoundValues&) = delete;

    SQLRETURN bindTo(SQLHANDLE statement);

  private:
    struct Value {
        std::string utf8;
        std::u16string utf16;
        SQLINTEGER number = 0;
        SQLSMALLINT type = 0;     // in which it lies here
        SQLSMALLINT sqlType = 0;  // which the database gets
        SQLLEN bytes = 0;

        SQLPOINTER data();
    };

    std::deque<Value> values_;
};

}  // namespace headerdtc
