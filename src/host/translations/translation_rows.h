#pragma once

#include "host/odbc/odbc_connection.h"

#include <memory>
#include <string>
#include <vector>

namespace headerdtc {

// The rows of the translation tables, as tools that look at all of them read them. Texts come
// without the blanks with which a database fills up a column of fixed length; others are kept.

struct TextRow {
    std::string label;
    std::string text;
    std::string locale;  // decimal
};

struct FieldNameRow {
    std::string provider;
    std::string family;  // "zeko", "eai"
    std::string field;
    std::string label;
};

struct FieldValueRow {
    std::string provider;
    std::string family;
    std::string field;
    std::string value;
    std::string label;
};

// The locale of the texts that all others are translated from: US English.
inline constexpr const char* SourceLocale = "1033";

// A connection to the translation database of a site. Raises what the database raises.
std::unique_ptr<OdbcConnection> openTranslations(const OdbcDatabase& database);

// All rows of a table, in the database's order. Whoever wants some of them picks them out: no value
// becomes part of a statement.
std::vector<TextRow> readTextRows(OdbcConnection& connection);
std::vector<FieldNameRow> readFieldNameRows(OdbcConnection& connection);
std::vector<FieldValueRow> readFieldValueRows(OdbcConnection& connection);

}  // namespace headerdtc
