#pragma once

#include "host/odbc/odbc_database.h"
#include "host/odbc/odbc_handles.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <string>
#include <variant>
#include <vector>

namespace headerdtc {

// A column of a statement's rows, and the type in which it is to be fetched.
struct OdbcColumn {
    std::string name;
    SQLSMALLINT fetchAs;
    std::size_t fixedLength = 0;  // characters to which every text is filled up; 0: none is

    // A value of it without the blanks that fill it up.
    std::string unfilled(std::string value) const;
};

// A value bound to a mark ("?") of a statement; text is UTF-8.
using OdbcParameter = std::variant<std::string, std::int32_t>;

// One log-on to a database, with the statements that still have rows to give. Whatever fails
// raises RuntimeError with the driver's text and native number.
class OdbcSession {
  public:
    using Statement = std::list<OdbcStatement>::iterator;

    OdbcSession(const std::string& connectString, const OdbcDatabase::Settings& settings);
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;
    ~OdbcSession() { close(); }

    // False once it was closed; only then may it not be used any more.
    bool isOpen() const { return open_; }
    // Frees all statements, undoes an open transaction and logs off.
    void close();

    // The name of the database in use; empty where the driver knows none.
    std::string database() const;

    void beginTransaction();
    void commitTransaction();

    Statement execute(const std::string& text, const std::vector<OdbcParameter>& parameters = {});
    // For the functions of ODBC that give rows by themselves: lets `call` fill a new statement, in
    // the form that the driver takes.
    Statement open(const std::function<SQLRETURN(SQLHANDLE, OdbcText)>& call);
    SQLLEN rowCount(Statement statement) const;
    // Executes a statement that gives no rows; returns how many it changed.
    SQLLEN change(const std::string& text, const std::vector<OdbcParameter>& parameters);
    std::vector<OdbcColumn> columns(Statement statement) const;
    // Goes to the next row; tells whether there is one.
    bool fetch(Statement statement);
    // A value of the current row as UTF-8, NULL as the empty text. Columns count from 0 and have
    // to be read in ascending order, each once.
    std::string value(Statement statement, int column, SQLSMALLINT fetchAs) const;
    void free(Statement statement) { statements_.erase(statement); }

  private:
    void logOn(const std::string& connectString);
    OdbcText driversForm() const;
    std::string information(SQLUSMALLINT what) const;
    void makeReadOnly();
    OdbcColumn column(Statement statement, SQLUSMALLINT number) const;
    template <class Char>
    std::basic_string<Char> read(Statement statement, int column, SQLSMALLINT type) const;
    void setAutoCommit(bool on);

    OdbcEnvironment environment_;
    OdbcLogOn logOn_;
    std::list<OdbcStatement> statements_;
    // The form of text that the driver takes; before the log-on a guess by its name.
    OdbcText form_ = OdbcText::Utf16;
    bool open_ = false;
    bool inTransaction_ = false;
    // Seconds that a statement may take; 0 where the connect string says it to the driver.
    long statementSeconds_ = 0;
};

}  // namespace headerdtc
