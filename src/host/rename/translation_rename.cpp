#include "host/inspection/finding.h"
#include "host/odbc/odbc_session.h"
#include "host/rename/rename.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace headerdtc {
namespace {

constexpr const char* Names = "I18NFIELDNAMES";
constexpr const char* Values = "I18NFIELDVALUES";

[[noreturn]] void refuse(const char* table, const std::string& problem) {
    throw RuntimeError(ErrorNumber::DeviceIoError, std::string(table) + " " + problem);
}

template <class Row>
bool isMeant(const Row& row, const Renaming& renaming) {
    return row.provider == renaming.provider &&
           (!renaming.isOfField() || row.field == renaming.field) &&
           (!renaming.family || row.family == traitsOf(*renaming.family).tag);
}

// What tells a row from the others of its table.
std::vector<std::string> keyOf(const FieldNameRow& row) {
    return {row.provider, row.family, row.field};
}
std::vector<std::string> keyOf(const FieldValueRow& row) {
    return {row.provider, row.family, row.field, row.value};
}

// How many rows are meant.
template <class Row>
std::size_t look(const char* table, std::vector<Row> rows, const Renaming& renaming) {
    const auto end = std::partition(rows.begin(), rows.end(),
                                    [&](const Row& row) { return isMeant(row, renaming); });
    std::set<std::vector<std::string>> others;
    for (auto row = end; row != rows.end(); ++row)
        others.insert(keyOf(*row));
    for (auto row = rows.begin(); row != end; ++row) {
        row->provider = renaming.newProvider;
        if (renaming.isOfField()) row->field = renaming.newField;
        if (others.contains(keyOf(*row)))
            refuse(table, "has a row of " + row->provider + " " + row->family + " " + row->field +
                              " already, beside that of the old name; take one of them out");
    }
    return static_cast<std::size_t>(end - rows.begin());
}

}  // namespace

TranslationRenaming::TranslationRenaming(const OdbcDatabase& database, const Renaming& renaming)
    : renaming_(renaming), connection_(openTranslations(database)) {
    connection_->BeginTrans();
    // A field that is renumbered, or moved to another group, keeps its name.
    const bool isSame =
        renaming.provider == renaming.newProvider && renaming.field == renaming.newField;
    if (isSame) return;
    names_ = look(Names, readFieldNameRows(*connection_), renaming);
    values_ = look(Values, readFieldValueRows(*connection_), renaming);
}

void TranslationRenaming::write() {
    writeTable(Names, names_);
    writeTable(Values, values_);
}

void TranslationRenaming::writeTable(const char* table, std::size_t rows) {
    if (rows == 0) return;
    const bool isOfField = renaming_.isOfField();
    std::string statement = "UPDATE " + std::string(table) + " SET " +
                            (isOfField ? "FIELDNAME" : "PROVIDERNAME") +
                            " = ? WHERE PROVIDERNAME = ?";
    std::vector<OdbcParameter> values = {isOfField ? renaming_.newField : renaming_.newProvider,
                                         renaming_.provider};
    if (isOfField) {
        statement += " AND FIELDNAME = ?";
        values.emplace_back(renaming_.field);
    }
    if (renaming_.family) {
        statement += " AND BISTYPE = ?";
        values.emplace_back(std::string(traitsOf(*renaming_.family).tag));
    }
    const auto changed = connection_->session().change(statement, values);
    if (changed != static_cast<SQLLEN>(rows))
        refuse(table, "would have " + std::to_string(changed) + " rows renamed instead of " +
                          std::to_string(rows) +
                          ": it was changed meanwhile, or has other spellings of the name");
}

void TranslationRenaming::commit() {
    connection_->CommitTrans();
}

}  // namespace headerdtc
