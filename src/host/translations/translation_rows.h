#pragma once

#include "platform/database.h"

#include <memory>
#include <string>
#include <vector>

namespace headerdtc {

// The rows of the translation tables, as tools that look at all of them read them. Key columns come
// without the blanks with which some databases fill them up.

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
std::unique_ptr<Connection> openTranslations(Database& database);

// All rows of a table, in the database's order. Whoever wants some of them picks them out: no value
// becomes part of a statement.
std::vector<TextRow> readTextRows(Connection& connection);
std::vector<FieldNameRow> readFieldNameRows(Connection& connection);
std::vector<FieldValueRow> readFieldValueRows(Connection& connection);

}  // namespace headerdtc
