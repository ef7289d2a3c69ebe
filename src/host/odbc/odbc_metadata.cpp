#include "host/odbc/odbc_metadata.h"

#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <charconv>
#include <sqlext.h>
#include <sqlucode.h>

namespace headerdtc {
namespace {

// Places in the rows of the catalogue functions, from 0. Their names differ between the versions of
// ODBC that drivers speak, their places do not.
namespace place {
constexpr std::size_t Catalogue = 0, Schema = 1, Table = 2;
constexpr std::size_t TableType = 3;
constexpr std::size_t Column = 3, ColumnTypeName = 5, ColumnSize = 6, ColumnPosition = 16;
constexpr std::size_t KeyColumn = 3, KeyPosition = 4;
}  // namespace place

// A text for ODBC in one of the two forms, nothing for an empty one.
template <class Char, class Text>
class Argument {
  public:
    explicit Argument(Text text) : text_(std::move(text)) {}
    Char* data() { return text_.empty() ? nullptr : reinterpret_cast<Char*>(text_.data()); }
    SQLSMALLINT size() const { return static_cast<SQLSMALLINT>(text_.size()); }

  private:
    Text text_;
};
using Narrow = Argument<SQLCHAR, std::string>;
using Wide = Argument<SQLWCHAR, std::u16string>;

long numberIn(const std::string& text) {
    long number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// For a text without a bound drivers give the most that they would fetch; only the name of its type
// shows that it has no bound.
bool isBounded(std::string_view typeName) {
    return upperCase(typeName).find("CHAR") != std::string::npos;
}

bool isOf(const std::vector<std::string>& row, const OdbcTable& table) {
    return row[place::Table] == table.name && row[place::Schema] == table.schema;
}

}  // namespace

std::vector<OdbcMetadata::Row> OdbcMetadata::rows(OdbcSession::Statement statement,
                                                  std::size_t columns) {
    const auto described = session_.columns(statement);
    const std::size_t count = std::min(columns, described.size());
    std::vector<Row> rows;
    while (session_.fetch(statement)) {
        Row row(columns);
        for (std::size_t i = 0; i < count; ++i)
            row[i] = session_.value(statement, static_cast<int>(i), described[i].fetchAs);
        rows.push_back(std::move(row));
    }
    session_.free(statement);
    return rows;
}

std::vector<OdbcTable> OdbcMetadata::tables(bool withViews) {
    const std::string types = withViews ? "TABLE,VIEW" : "TABLE";
    const auto statement = session_.open([&](SQLHANDLE handle, OdbcText form) {
        if (form == OdbcText::Utf16) {
            Wide wanted(utf8::toUtf16Replacing(types));
            return SQLTablesW(handle, nullptr, 0, nullptr, 0, nullptr, 0, wanted.data(),
                              wanted.size());
        }
        Narrow wanted(types);
        return SQLTables(handle, nullptr, 0, nullptr, 0, nullptr, 0, wanted.data(), wanted.size());
    });
    const std::string database = session_.database();
    std::vector<OdbcTable> tables;
    for (Row& row : rows(statement, place::TableType + 1)) {
        const std::string& type = row[place::TableType];
        // Some drivers give other types than they are asked for.
        const bool isView = equalIgnoringCase(type, "VIEW");
        if (!equalIgnoringCase(type, "TABLE") && !(withViews && isView)) continue;
        // Some drivers list the tables of all databases of a server.
        const std::string& catalogue = row[place::Catalogue];
        if (!catalogue.empty() && !database.empty() && !equalIgnoringCase(catalogue, database))
            continue;
        tables.push_back({std::move(row[place::Catalogue]), std::move(row[place::Schema]),
                          std::move(row[place::Table]), isView ? "VIEW" : "TABLE"});
    }
    return tables;
}

std::vector<OdbcTableColumn> OdbcMetadata::columns(const OdbcTable& table) {
    const auto statement = session_.open([&](SQLHANDLE handle, OdbcText form) {
        if (form == OdbcText::Utf16) {
            Wide catalogue(utf8::toUtf16Replacing(table.catalogue)),
                schema(utf8::toUtf16Replacing(table.schema)),
                name(utf8::toUtf16Replacing(table.name));
            return SQLColumnsW(handle, catalogue.data(), catalogue.size(), schema.data(),
                               schema.size(), name.data(), name.size(), nullptr, 0);
        }
        Narrow catalogue(table.catalogue), schema(table.schema), name(table.name);
        return SQLColumns(handle, catalogue.data(), catalogue.size(), schema.data(), schema.size(),
                          name.data(), name.size(), nullptr, 0);
    });
    auto found = rows(statement, place::ColumnPosition + 1);
    // The name is a pattern to ODBC: an underscore in it fits any character.
    std::erase_if(found, [&](const Row& row) { return !isOf(row, table); });
    std::stable_sort(found.begin(), found.end(), [](const Row& a, const Row& b) {
        return numberIn(a[place::ColumnPosition]) < numberIn(b[place::ColumnPosition]);
    });
    std::vector<OdbcTableColumn> columns;
    for (const Row& row : found) {
        const bool isText = isBounded(row[place::ColumnTypeName]);
        columns.push_back({row[place::Column], isText ? numberIn(row[place::ColumnSize]) : 0});
    }
    return columns;
}

std::vector<std::string> OdbcMetadata::primaryKey(const OdbcTable& table) {
    const auto statement = session_.open([&](SQLHANDLE handle, OdbcText form) {
        if (form == OdbcText::Utf16) {
            Wide catalogue(utf8::toUtf16Replacing(table.catalogue)),
                schema(utf8::toUtf16Replacing(table.schema)),
                name(utf8::toUtf16Replacing(table.name));
            return SQLPrimaryKeysW(handle, catalogue.data(), catalogue.size(), schema.data(),
                                   schema.size(), name.data(), name.size());
        }
        Narrow catalogue(table.catalogue), schema(table.schema), name(table.name);
        return SQLPrimaryKeys(handle, catalogue.data(), catalogue.size(), schema.data(),
                              schema.size(), name.data(), name.size());
    });
    auto found = rows(statement, place::KeyPosition + 1);
    std::stable_sort(found.begin(), found.end(), [](const Row& a, const Row& b) {
        return numberIn(a[place::KeyPosition]) < numberIn(b[place::KeyPosition]);
    });
    std::vector<std::string> columns;
    columns.reserve(found.size());
    for (Row& row : found)
        columns.push_back(std::move(row[place::KeyColumn]));
    return columns;
}

}  // namespace headerdtc
