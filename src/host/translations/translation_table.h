#pragma once

#include "host/odbc/odbc_connection.h"

#include <map>
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

// The texts of a translation database by label, with the places that use them.
struct TranslationTable {
    struct Entry {
        std::map<std::string, std::string> texts;  // by locale; of several rows the first
        std::vector<std::string> repeated;         // locales that have several rows
        std::vector<std::string> places;           // "Orders zeko STATUS", "... STATUS = 10"

        // The text of a locale, nullptr where there is none. An empty one counts as none.
        const std::string* text(const std::string& locale) const;
    };

    std::map<std::string, Entry> entries;  // by label; also of labels that only a field names
    std::vector<std::string> unlabelled;   // places whose label is empty
    std::vector<std::string> locales;      // that have a text, by number, the source's left out

    static TranslationTable gather(const std::vector<TextRow>& texts,
                                   const std::vector<FieldNameRow>& names,
                                   const std::vector<FieldValueRow>& values);
    // Of a whole database. Raises what the database raises.
    static TranslationTable read(OdbcConnection& connection);
};

// Locales sort as numbers.
bool localeLess(const std::string& a, const std::string& b);

}  // namespace headerdtc
