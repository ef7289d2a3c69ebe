#include "host/translations/translation_rows.h"

namespace headerdtc {
namespace {

constexpr int Unspecified = -1;
constexpr std::int32_t TranslationDatabase = 8;

std::string key(Recordset& row, const char* column) {
    std::string text = row.Item(column).Value();
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

template <class Row, class Read>
std::vector<Row> readAll(Connection& connection, const char* statement, Read&& read) {
    std::vector<Row> rows;
    const auto result = connection.Execute(statement, nullptr, Unspecified);
    for (; !result->EndOfFile(); result->MoveNext())
        rows.push_back(read(*result));
    return rows;
}

}  // namespace

std::unique_ptr<Connection> openTranslations(Database& database) {
    auto connection = database.createConnection();
    connection->ConnectionString(database.GetConnectString(TranslationDatabase));
    connection->Open("", "", "", Unspecified);
    return connection;
}

std::vector<TextRow> readTextRows(Connection& connection) {
    return readAll<TextRow>(connection, "SELECT LABEL, TEXT, LOCALEID FROM I18NTEXT",
                            [](Recordset& row) {
                                // Read in the order of the columns, which not every driver gives
                                // otherwise.
                                TextRow result;
                                result.label = key(row, "LABEL");
                                result.text = row.Item("TEXT").Value();
                                result.locale = key(row, "LOCALEID");
                                return result;
                            });
}

std::vector<FieldNameRow> readFieldNameRows(Connection& connection) {
    return readAll<FieldNameRow>(
        connection, "SELECT PROVIDERNAME, BISTYPE, FIELDNAME, LABEL FROM I18NFIELDNAMES",
        [](Recordset& row) {
            FieldNameRow result;
            result.provider = key(row, "PROVIDERNAME");
            result.family = key(row, "BISTYPE");
            result.field = key(row, "FIELDNAME");
            result.label = key(row, "LABEL");
            return result;
        });
}

std::vector<FieldValueRow> readFieldValueRows(Connection& connection) {
    return readAll<FieldValueRow>(
        connection,
        "SELECT PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL FROM I18NFIELDVALUES",
        [](Recordset& row) {
            FieldValueRow result;
            result.provider = key(row, "PROVIDERNAME");
            result.family = key(row, "BISTYPE");
            result.field = key(row, "FIELDNAME");
            result.value = row.Item("FIELDVALUE").Value();
            result.label = key(row, "LABEL");
            return result;
        });
}

}  // namespace headerdtc
