#include "i18n/translation_store.h"

#include "platform/database.h"
#include "platform/surroundings.h"

#include <algorithm>
#include <cassert>

namespace headerdtc {
namespace {

// The statements, blank for blank as installations know them from their logs; each $ stands for a
// value.
constexpr std::string_view FindFieldname =
    "SELECT * FROM I18NFIELDNAMES LEFT OUTER JOIN I18NTEXT ON I18NFIELDNAMES.LABEL=I18NTEXT.LABEL "
    "WHERE PROVIDERNAME='$' AND BISTYPE='$' AND FIELDNAME='$'";
constexpr std::string_view LabelsAfterRangeStart =
    "SELECT * FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL > 'SLBDA1999'";
constexpr std::string_view LabelsOfRange =
    "SELECT * FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL LIKE 'SLBDA%'";
constexpr std::string_view TextOfLabel =
    "SELECT TEXT FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL = '$'";
constexpr std::string_view FieldValues =
    "SELECT * FROM I18NFIELDVALUES LEFT OUTER JOIN I18NTEXT ON "
    "I18NFIELDVALUES.LABEL=I18NTEXT.LABEL WHERE PROVIDERNAME='$' AND BISTYPE='$' AND "
    "FIELDNAME='$' AND I18NTEXT.LOCALEID = 1033";
constexpr std::string_view RelabelFieldname =
    "UPDATE I18NFIELDNAMES SET LABEL = '$' WHERE  PROVIDERNAME = '$' AND BISTYPE = '$' AND "
    "FIELDNAME = '$'";
constexpr std::string_view InsertFieldname =
    "INSERT INTO I18NFIELDNAMES (PROVIDERNAME, BISTYPE, FIELDNAME, LABEL)  VALUES ('$', '$', '$', "
    "'$')";
constexpr std::string_view DeleteFieldValue =
    "DELETE FROM I18NFIELDVALUES WHERE PROVIDERNAME = '$' AND BISTYPE = '$' AND FIELDNAME = '$' "
    "AND FIELDVALUE = '$'";
constexpr std::string_view RelabelFieldValue =
    "UPDATE I18NFIELDVALUES SET LABEL = '$' WHERE PROVIDERNAME = '$' AND BISTYPE = '$' AND "
    "FIELDNAME = '$' AND FIELDVALUE = '$'";
constexpr std::string_view InsertFieldValue =
    "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL) VALUES "
    "('$', '$', '$', '$', '$')";
constexpr std::string_view ChangeText =
    "UPDATE I18NTEXT SET TEXT = '$', DATECHANGED = '$', STATUS = 0 WHERE  LABEL = '$' AND "
    "LOCALEID = 1033";
// The date stands without quotes: the database reads it as an expression.
constexpr std::string_view InsertText =
    "INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID, DATECHANGED, STATUS)  VALUES ('$', '$', 1033, $, "
    "0)";
constexpr std::string_view OneStepText =
    "INSERT INTO I18NTEXT (LOCALEID, LABEL, TEXT, STATUS) VALUES (1033, '$', '$' ,0)";
constexpr std::string_view OneStepFieldValue =
    "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL)  VALUES "
    "('$', '$', '$', '$', '$')";

constexpr const char* ReminderToTranslate =
    "Warning: Don't forget to translate the (new) label to other languages";

constexpr std::int32_t TranslationDatabase = 8;  // its data-source kind
constexpr int Unspecified = -1;                  // options of a call

std::string splice(std::string_view statement, std::initializer_list<std::string_view> values) {
    assert(std::count(statement.begin(), statement.end(), '$') ==
           static_cast<std::ptrdiff_t>(values.size()));
    std::string text;
    const auto* value = values.begin();
    for (const char c : statement) {
        if (c == '$') {
            text += *value++;
        } else {
            text += c;
        }
    }
    return text;
}

std::unique_ptr<Recordset> query(Connection& connection, const std::string& statement) {
    return connection.Execute(statement, nullptr, Unspecified);
}

bool affectsOneRecord(Connection& connection, const std::string& statement) {
    std::int32_t count = 0;
    connection.Execute(statement, &count, Unspecified);
    return count == 1;
}

}  // namespace

std::string TranslationStore::TranslationConnectString() {
    return surroundings_.database.GetConnectString(TranslationDatabase);
}

std::unique_ptr<Connection> TranslationStore::open(const std::string& connectString) {
    auto connection = surroundings_.database.createConnection();
    connection->ConnectionString(connectString);
    connection->Open("", "", "", Unspecified);
    return connection;
}

bool TranslationStore::FieldnameTranslationExists(const std::string& provider,
                                                  const std::string& bisType,
                                                  const std::string& fieldname) {
    const auto connection = open(TranslationConnectString());
    const auto found = query(*connection, splice(FindFieldname, {provider, bisType, fieldname}));
    const bool exists = !found->EndOfFile();
    connection->Close();
    return exists;
}

std::vector<std::string> TranslationStore::ListLabels() {
    return listLabels(LabelsAfterRangeStart);
}

std::vector<std::string> TranslationStore::ListRangeLabels() {
    return listLabels(LabelsOfRange);
}

std::vector<std::string> TranslationStore::listLabels(std::string_view statement) {
    const auto connection = open(TranslationConnectString());
    std::vector<std::string> labels;
    for (const auto rows = query(*connection, std::string(statement)); !rows->EndOfFile();
         rows->MoveNext())
        labels.push_back(rows->Item("LABEL").Value());
    connection->Close();
    return labels;
}

std::optional<std::string> TranslationStore::LabelText(const std::string& label) {
    const auto connection = open(TranslationConnectString());
    const auto rows = query(*connection, splice(TextOfLabel, {label}));
    std::optional<std::string> text;
    if (!rows->EndOfFile()) text = rows->Item("TEXT").Value();
    connection->Close();
    return text;
}

std::vector<FieldValueTranslation> TranslationStore::ListFieldValueTranslations(
    const std::string& provider, const std::string& bisType, const std::string& fieldname) {
    const auto connection = open(TranslationConnectString());
    std::vector<FieldValueTranslation> translations;
    for (const auto rows = query(*connection, splice(FieldValues, {provider, bisType, fieldname}));
         !rows->EndOfFile(); rows->MoveNext()) {
        FieldValueTranslation& translation = translations.emplace_back();
        translation.value = rows->Item("FIELDVALUE").Value();
        translation.label = rows->Item("LABEL").Value();
        translation.text = rows->Item("TEXT").Value();
    }
    connection->Close();
    return translations;
}

void TranslationStore::AssignFieldnameLabel(const std::string& provider, const std::string& bisType,
                                            const std::string& fieldname,
                                            const std::string& label) {
    const auto connection = open(TranslationConnectString());
    if (!affectsOneRecord(*connection,
                          splice(RelabelFieldname, {label, provider, bisType, fieldname})))
        query(*connection, splice(InsertFieldname, {provider, bisType, fieldname, label}));
    connection->Close();
}

void TranslationStore::write(std::string_view statement,
                             std::initializer_list<std::string_view> values) {
    query(*open(TranslationConnectString()), splice(statement, values));
}

void TranslationStore::DeleteFieldValueTranslation(const std::string& provider,
                                                   const std::string& bisType,
                                                   const std::string& fieldname,
                                                   const std::string& value) {
    write(DeleteFieldValue, {provider, bisType, fieldname, value});
}

void TranslationStore::ChangeFieldValueTranslation(const std::string& provider,
                                                   const std::string& bisType,
                                                   const std::string& fieldname,
                                                   const std::string& value,
                                                   const std::string& label) {
    write(RelabelFieldValue, {label, provider, bisType, fieldname, value});
}

void TranslationStore::InsertFieldValueTranslation(const std::string& provider,
                                                   const std::string& bisType,
                                                   const std::string& fieldname,
                                                   const std::string& value,
                                                   const std::string& label) {
    write(InsertFieldValue, {provider, bisType, fieldname, value, label});
}

void TranslationStore::AddLabel(const std::string& label, const std::string& text) {
    const auto connection = open(surroundings_.database.labelConnectString());
    const std::string date = surroundings_.clock.shortDate();
    if (affectsOneRecord(*connection, splice(ChangeText, {text, date, label}))) {
        tell(ReminderToTranslate);
    } else {
        const std::string insert = splice(InsertText, {label, text, date});
        tell(affectsOneRecord(*connection, insert)
                 ? ReminderToTranslate
                 : "Error: No records affected using SQL command '" + insert + "'");
    }
    connection->Close();
}

void TranslationStore::AddFieldValueInOneStep(const std::string& provider,
                                              const std::string& bisType,
                                              const std::string& fieldname,
                                              const std::string& value, const std::string& label,
                                              const std::string& text) {
    const auto connection = open(TranslationConnectString());
    connection->BeginTrans();
    query(*connection, splice(OneStepText, {label, text}));
    const bool added = affectsOneRecord(
        *connection, splice(OneStepFieldValue, {provider, bisType, fieldname, value, label}));
    tell(added ? "1 record(s) affected" : "No records affected");
    connection->CommitTrans();
    connection->Close();
}

void TranslationStore::tell(const std::string& text) {
    surroundings_.messages.show(text);
}

}  // namespace headerdtc
