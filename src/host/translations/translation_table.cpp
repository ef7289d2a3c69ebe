#include "host/translations/translation_table.h"

#include "host/odbc/odbc_session.h"
#include "platform/text.h"

#include <algorithm>
#include <set>

namespace headerdtc {
namespace {

constexpr int Unspecified = -1;

// The columns of a statement, in their order, go into these members.
template <class Row>
std::vector<Row> readAll(OdbcConnection& connection, const char* statement,
                         std::initializer_list<std::string Row::*> members) {
    std::vector<Row> rows;
    OdbcSession& session = connection.session();
    const auto result = session.execute(statement);
    const auto columns = session.columns(result);
    while (session.fetch(result)) {
        Row& row = rows.emplace_back();
        std::size_t index = 0;
        for (const auto member : members) {
            const OdbcColumn& column = columns.at(index);
            row.*member =
                column.unfilled(session.value(result, static_cast<int>(index), column.fetchAs));
            ++index;
        }
    }
    session.free(result);
    return rows;
}

template <class Row>
std::string placeOf(const Row& row) {
    return row.provider + " " + row.family + " " + row.field;
}

}  // namespace

std::unique_ptr<OdbcConnection> openTranslations(const OdbcDatabase& database) {
    auto connection = std::make_unique<OdbcConnection>(database.settings());
    connection->Open(database.settings().connectString, "", "", Unspecified);
    return connection;
}

std::vector<TextRow> readTextRows(OdbcConnection& connection) {
    return readAll(connection, "SELECT LABEL, TEXT, LOCALEID FROM I18NTEXT",
                   {&TextRow::label, &TextRow::text, &TextRow::locale});
}

std::vector<FieldNameRow> readFieldNameRows(OdbcConnection& connection) {
    return readAll(connection, "SELECT PROVIDERNAME, BISTYPE, FIELDNAME, LABEL FROM I18NFIELDNAMES",
                   {&FieldNameRow::provider, &FieldNameRow::family, &FieldNameRow::field,
                    &FieldNameRow::label});
}

std::vector<FieldValueRow> readFieldValueRows(OdbcConnection& connection) {
    return readAll(
        connection,
        "SELECT PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL FROM I18NFIELDVALUES",
        {&FieldValueRow::provider, &FieldValueRow::family, &FieldValueRow::field,
         &FieldValueRow::value, &FieldValueRow::label});
}

bool localeLess(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

const std::string* TranslationTable::Entry::text(const std::string& locale) const {
    const auto found = texts.find(locale);
    return found == texts.end() || found->second.empty() ? nullptr : &found->second;
}

TranslationTable TranslationTable::gather(const std::vector<TextRow>& texts,
                                          const std::vector<FieldNameRow>& names,
                                          const std::vector<FieldValueRow>& values) {
    TranslationTable table;
    std::set<std::string> locales;
    for (const TextRow& row : texts) {
        Entry& entry = table.entries[row.label];
        if (!entry.texts.emplace(row.locale, row.text).second) entry.repeated.push_back(row.locale);
        if (row.locale != SourceLocale && !row.text.empty()) locales.insert(row.locale);
    }
    const auto addPlace = [&](const std::string& label, const std::string& place) {
        const bool isEmpty = trimBlanks(label).empty();
        (isEmpty ? table.unlabelled : table.entries[label].places).push_back(place);
    };
    for (const FieldNameRow& row : names)
        addPlace(row.label, placeOf(row));
    for (const FieldValueRow& row : values)
        addPlace(row.label, placeOf(row) + " = " + row.value);
    table.locales.assign(locales.begin(), locales.end());
    std::sort(table.locales.begin(), table.locales.end(), localeLess);
    return table;
}

TranslationTable TranslationTable::read(OdbcConnection& connection) {
    return gather(readTextRows(connection), readFieldNameRows(connection),
                  readFieldValueRows(connection));
}

}  // namespace headerdtc
