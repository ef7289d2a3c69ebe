#include "host/translations/translation_rows.h"

#include "host/odbc/odbc_session.h"

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

}  // namespace headerdtc
