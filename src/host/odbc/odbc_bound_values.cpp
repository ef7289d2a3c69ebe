#include "host/odbc/odbc_bound_values.h"

#include "platform/utf8.h"

#include <algorithm>
#include <sqlext.h>

namespace headerdtc {

OdbcBoundValues::OdbcBoundValues(const std::vector<OdbcParameter>& values, OdbcText form) {
    for (const OdbcParameter& given : values) {
        Value& value = values_.emplace_back();
        if (const auto* number = std::get_if<std::int32_t>(&given)) {
            value.number = *number;
            value.type = SQL_C_SLONG;
            value.sqlType = SQL_INTEGER;
            value.bytes = sizeof value.number;
        } else if (form == OdbcText::Utf16) {
            value.utf16 = utf8::toUtf16Replacing(std::get<std::string>(given));
            value.type = SQL_C_WCHAR;
            value.sqlType = SQL_WVARCHAR;
            value.bytes = static_cast<SQLLEN>(value.utf16.size() * sizeof(char16_t));
        } else {
            value.utf8 = std::get<std::string>(given);
            value.type = SQL_C_CHAR;
            value.sqlType = SQL_VARCHAR;
            value.bytes = static_cast<SQLLEN>(value.utf8.size());
        }
    }
}

SQLPOINTER OdbcBoundValues::Value::data() {
    switch (type) {
        case SQL_C_SLONG:
            return &number;
        case SQL_C_WCHAR:
            return utf16.data();
        default:
            return utf8.data();
    }
}

SQLRETURN OdbcBoundValues::bindTo(SQLHANDLE statement) {
    SQLUSMALLINT place = 0;
    for (Value& value : values_) {
        const std::size_t units =
            value.type == SQL_C_WCHAR ? value.utf16.size() : value.utf8.size();
        // The size of a text is in characters; an empty one has some all the same.
        const auto size = static_cast<SQLULEN>(std::max<std::size_t>(units, 1));
        const SQLRETURN result =
            SQLBindParameter(statement, ++place, SQL_PARAM_INPUT, value.type, value.sqlType, size,
                             0, value.data(), value.bytes, &value.bytes);
        if (!SQL_SUCCEEDED(result)) return result;
    }
    return SQL_SUCCESS;
}

}  // namespace headerdtc
