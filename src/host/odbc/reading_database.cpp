#include "host/odbc/reading_database.h"

#include "host/odbc/odbc_connection.h"
#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <string_view>

namespace headerdtc {
namespace {

// Words that no question needs outside of its quoted texts. Not every server parts statements by a
// semicolon, and a SELECT can write by itself: into a table, or into a file of the server.
constexpr std::string_view WritingWords[] = {"INTO",    "INSERT", "UPDATE",   "DELETE", "MERGE",
                                             "DROP",    "ALTER",  "CREATE",   "EXEC",   "CALL",
                                             "EXECUTE", "GRANT",  "TRUNCATE", "REVOKE"};

// What stands outside of the quoted texts, or all of a statement where the databases would not
// agree on that: a backslash escapes a quotation mark in one and is a letter in another, and the
// same goes for other quotation marks and for comments. A doubled mark ends and begins a text.
std::string outsideOfTexts(std::string_view statement) {
    std::string outside;
    bool isQuoted = false;
    for (const char c : statement) {
        if (c == '\'') isQuoted = !isQuoted;
        if (c == '\'' || !isQuoted) outside += c == '\'' ? ' ' : c;
    }
    const auto has = [](std::string_view text, std::string_view part) {
        return text.find(part) != std::string_view::npos;
    };
    const bool isDoubtful = isQuoted || has(statement, "\\") ||
                            outside.find_first_of("\"`[$#") != std::string::npos ||
                            has(outside, "--") || has(outside, "/*");
    return isDoubtful ? std::string(statement) : outside;
}

bool hasWritingWord(std::string_view upper) {
    for (auto at = upper.begin(); at != upper.end();) {
        const auto end = std::find_if_not(at, upper.end(), ascii::isWordChar);
        const std::string_view word(at, end);
        if (std::find(std::begin(WritingWords), std::end(WritingWords), word) !=
            std::end(WritingWords))
            return true;
        at = std::find_if(end, upper.end(), ascii::isWordChar);
    }
    return false;
}

bool isOneQuestion(std::string_view statement) {
    constexpr std::string_view Question = "SELECT ";
    if (!equalIgnoringCase(statement.substr(0, Question.size()), Question)) return false;
    const std::string outside = upperCase(outsideOfTexts(statement));
    return outside.find(';') == std::string::npos && !hasWritingWord(outside);
}

class ReadingConnection : public OdbcConnection {
  public:
    ReadingConnection(const OdbcDatabase::Settings& settings, bool& refused)
        : OdbcConnection(settings), refused_(refused) {}

    std::unique_ptr<Recordset> Execute(const std::string& statement, std::int32_t* affected,
                                       int options) override {
        if (isOneQuestion(statement)) return OdbcConnection::Execute(statement, affected, options);
        refused_ = true;
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           "a replay does not write to the translation database");
    }

  private:
    bool& refused_;
};

OdbcDatabase::Settings readOnly(OdbcDatabase::Settings settings) {
    settings.isReadOnly = true;
    return settings;
}

}  // namespace

ReadingDatabase::ReadingDatabase(Settings settings) : OdbcDatabase(readOnly(std::move(settings))) {}

std::unique_ptr<Connection> ReadingDatabase::createConnection() {
    return std::make_unique<ReadingConnection>(settings(), refused);
}

}  // namespace headerdtc
