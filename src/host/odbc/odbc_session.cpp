#include "host/odbc/odbc_session.h"

#include "host/odbc/odbc_data_source.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <deque>
#include <sqlext.h>
#include <sqlucode.h>

namespace headerdtc {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

SQLWCHAR* wide(std::u16string& text) {
    return reinterpret_cast<SQLWCHAR*>(text.data());
}

SQLCHAR* narrow(std::string& text) {
    return reinterpret_cast<SQLCHAR*>(text.data());
}

// An attribute's number in the place of a pointer, as ODBC wants it.
SQLPOINTER attribute(std::uintptr_t number) {
    return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

OdbcEnvironment makeEnvironment() {
    SQLHANDLE handle = SQL_NULL_HANDLE;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle)))
        throw RuntimeError(ErrorNumber::CannotCreateObject, "ODBC cannot be used");
    OdbcEnvironment environment(handle);
    SQLSetEnvAttr(handle, SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0);
    return environment;
}

// Gives this thread the "C" locale. When a connection is made, the driver manager notes the
// thread's character set, in which it will convert the diagnostics of drivers that take bytes;
// under this one it leaves bytes as they are.
class PlainThread {
  public:
    PlainThread() : plain_(newlocale(LC_ALL_MASK, "C", nullptr)), before_(uselocale(plain_)) {}
    PlainThread(const PlainThread&) = delete;
    PlainThread& operator=(const PlainThread&) = delete;
    ~PlainThread() {
        uselocale(before_);
        freelocale(plain_);
    }

  private:
    locale_t plain_;
    locale_t before_;
};

// Values for the marks of one statement, kept where the driver finds them until it is executed.
class OdbcBoundValues {
  public:
    OdbcBoundValues(const std::vector<OdbcParameter>& values, OdbcText form);

    SQLRETURN bindTo(SQLHANDLE statement);

  private:
    struct Value {
        std::string utf8;
        std::u16string utf16;
        SQLINTEGER number = 0;
        SQLSMALLINT type = 0;     // in which it lies here
        SQLSMALLINT sqlType = 0;  // which the database gets
        SQLLEN bytes = 0;

        SQLPOINTER data();
    };

    std::deque<Value> values_;
};

OdbcBoundValues::OdbcBoundValues(const std::vector<OdbcParameter>& values, OdbcText form) {
    for (const OdbcParameter& given : values) {
        Value& value = values_.emplace_back();
        if (const auto* number = std::get_if<std::int32_t>(&given)) {
            value.number = *number;
            value.type = SQL_C_SLONG;
            value.sqlType = SQL_INTEGER;
            value.bytes = sizeof value.number;
        } else if (form == OdbcText::Utf16) {
            value.utf16 = utf8::toUtf16Replacing(std::get<std::string>(given));
            value.type = SQL_C_WCHAR;
            value.sqlType = SQL_WVARCHAR;
            value.bytes = static_cast<SQLLEN>(value.utf16.size() * sizeof(char16_t));
        } else {
            value.utf8 = std::get<std::string>(given);
            value.type = SQL_C_CHAR;
            value.sqlType = SQL_VARCHAR;
            value.bytes = static_cast<SQLLEN>(value.utf8.size());
        }
    }
}

SQLPOINTER OdbcBoundValues::Value::data() {
    switch (type) {
        case SQL_C_SLONG:
            return &number;
        case SQL_C_WCHAR:
            return utf16.data();
        default:
            return utf8.data();
    }
}

SQLRETURN OdbcBoundValues::bindTo(SQLHANDLE statement) {
    SQLUSMALLINT place = 0;
    for (Value& value : values_) {
        const std::size_t units =
            value.type == SQL_C_WCHAR ? value.utf16.size() : value.utf8.size();
        // The size of a text is in characters; an empty one has some all the same.
        const auto size = static_cast<SQLULEN>(std::max<std::size_t>(units, 1));
        const SQLRETURN result =
            SQLBindParameter(statement, ++place, SQL_PARAM_INPUT, value.type, value.sqlType, size,
                             0, value.data(), value.bytes, &value.bytes);
        if (!SQL_SUCCEEDED(result)) return result;
    }
    return SQL_SUCCESS;
}

}  // namespace

std::string OdbcColumn::unfilled(std::string value) const {
    if (fixedLength > 0 && static_cast<std::size_t>(utf8::length(value)) == fixedLength)
        value.erase(value.find_last_not_of(' ') + 1);
    return value;
}

OdbcSession::OdbcSession(const std::string& connectString, const OdbcDatabase::Settings& settings) {
    const PlainThread plain;
    environment_ = makeEnvironment();
    logOn_ = makeOdbcHandle<SQL_HANDLE_DBC>(environment_, form_);
    const OdbcDataSource source = findDataSource(connectString, settings);
    if (!source.boundsStatements) statementSeconds_ = settings.statementTimeout.count();
    SQLSetConnectAttr(logOn_.get(), SQL_ATTR_LOGIN_TIMEOUT,
                      attribute(static_cast<std::uintptr_t>(settings.connectTimeout.count())), 0);
    if (settings.isReadOnly)
        SQLSetConnectAttr(logOn_.get(), SQL_ATTR_ACCESS_MODE, attribute(SQL_MODE_READ_ONLY), 0);
    form_ = source.form;
    try {
        logOn(source.connectString);
    } catch (const RuntimeError& error) {
        std::string text = error.description();
        for (const std::string& password : source.passwords)
            text = replaceAll(text, password, "***");
        throw RuntimeError(error.number(), text);
    }
    form_ = driversForm();
    if (settings.isReadOnly) makeReadOnly();
}

void OdbcSession::logOn(const std::string& connectString) {
    SQLRETURN result = SQL_SUCCESS;
    if (form_ == OdbcText::Utf16) {
        std::u16string text = utf8::toUtf16Replacing(connectString);
        result = SQLDriverConnectW(logOn_.get(), nullptr, wide(text), SQL_NTS, nullptr, 0, nullptr,
                                   SQL_DRIVER_NOPROMPT);
    } else {
        std::string text = connectString;
        result = SQLDriverConnect(logOn_.get(), nullptr, narrow(text), SQL_NTS, nullptr, 0, nullptr,
                                  SQL_DRIVER_NOPROMPT);
    }
    checkOdbc(result, logOn_, form_);
    open_ = true;
}

// A driver that takes UTF-16 gives a character beyond the first 65,536 back as it was; to one that
// does not, the driver manager has to convert it, and cannot. No statement is executed.
OdbcText OdbcSession::driversForm() const {
    std::u16string text = u"'\U0001D11E'";
    std::u16string back(2 * text.size(), u'\0');
    SQLINTEGER length = 0;
    const SQLRETURN result =
        SQLNativeSqlW(logOn_.get(), wide(text), static_cast<SQLINTEGER>(text.size()), wide(back),
                      static_cast<SQLINTEGER>(back.size()), &length);
    back.resize(std::min(back.size(), back.find(u'\0')));
    return SQL_SUCCEEDED(result) && back == text ? OdbcText::Utf16 : OdbcText::Utf8;
}

void OdbcSession::close() {
    if (!open_) return;
    open_ = false;
    statements_.clear();
    if (inTransaction_) SQLEndTran(SQL_HANDLE_DBC, logOn_.get(), SQL_ROLLBACK);
    SQLDisconnect(logOn_.get());
}

std::string OdbcSession::information(SQLUSMALLINT what) const {
    std::u16string text(256, u'\0');
    SQLSMALLINT bytes = 0;
    const auto room = static_cast<SQLSMALLINT>(text.size() * sizeof(char16_t));
    if (!SQL_SUCCEEDED(SQLGetInfoW(logOn_.get(), what, text.data(), room, &bytes))) return {};
    text.resize(std::min(text.size(), text.find(u'\0')));
    return utf8::fromUtf16Replacing(text);
}

std::string OdbcSession::database() const {
    return information(SQL_DATABASE_NAME);
}

// ODBC has an attribute for this, of which none of these drivers tells its server.
void OdbcSession::makeReadOnly() {
    constexpr struct {
        std::string_view server, statement;
    } Statements[] = {
        {"POSTGRES", "SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY"},
        {"MARIADB", "SET SESSION TRANSACTION READ ONLY"},
        {"MYSQL", "SET SESSION TRANSACTION READ ONLY"},
        {"SQLITE", "PRAGMA query_only = ON"},
    };
    const std::string name = upperCase(information(SQL_DBMS_NAME));
    for (const auto& [server, statement] : Statements) {
        if (name.find(server) == std::string::npos) continue;
        free(execute(std::string(statement)));
        return;
    }
}

void OdbcSession::setAutoCommit(bool on) {
    checkOdbc(SQLSetConnectAttr(logOn_.get(), SQL_ATTR_AUTOCOMMIT,
                                attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0),
              logOn_, form_);
}

void OdbcSession::beginTransaction() {
    setAutoCommit(false);
    inTransaction_ = true;
}

void OdbcSession::commitTransaction() {
    checkOdbc(SQLEndTran(SQL_HANDLE_DBC, logOn_.get(), SQL_COMMIT), logOn_, form_);
    inTransaction_ = false;
    setAutoCommit(true);
}

OdbcSession::Statement OdbcSession::execute(const std::string& text,
                                            const std::vector<OdbcParameter>& parameters) {
    OdbcBoundValues values(parameters, form_);
    return open([&](SQLHANDLE statement, OdbcText form) {
        if (const SQLRETURN result = values.bindTo(statement); !SQL_SUCCEEDED(result))
            return result;
        if (form == OdbcText::Utf16) {
            std::u16string words = utf8::toUtf16Replacing(text);
            return SQLExecDirectW(statement, wide(words), static_cast<SQLINTEGER>(words.size()));
        }
        std::string words = text;
        return SQLExecDirect(statement, narrow(words), static_cast<SQLINTEGER>(words.size()));
    });
}

OdbcSession::Statement OdbcSession::open(
    const std::function<SQLRETURN(SQLHANDLE, OdbcText)>& call) {
    OdbcStatement made = makeOdbcHandle<SQL_HANDLE_STMT>(logOn_, form_);
    // Both are wishes: drivers that do not know them say so and go on.
    if (statementSeconds_ > 0)
        SQLSetStmtAttr(made.get(), SQL_ATTR_QUERY_TIMEOUT,
                       attribute(static_cast<std::uintptr_t>(statementSeconds_)), 0);
    SQLSetStmtAttr(made.get(), SQL_ATTR_NOSCAN, attribute(SQL_NOSCAN_ON), 0);
    const SQLRETURN result = call(made.get(), form_);
    // An UPDATE or DELETE that found nothing is no failure.
    if (result != SQL_NO_DATA) checkOdbc(result, made, form_);
    return statements_.insert(statements_.end(), std::move(made));
}

SQLLEN OdbcSession::rowCount(Statement statement) const {
    SQLLEN count = 0;
    checkOdbc(SQLRowCount(statement->get(), &count), *statement, form_);
    return count;
}

SQLLEN OdbcSession::change(const std::string& text, const std::vector<OdbcParameter>& parameters) {
    const auto statement = execute(text, parameters);
    const SQLLEN count = rowCount(statement);
    free(statement);
    return count;
}

std::vector<OdbcColumn> OdbcSession::columns(Statement statement) const {
    SQLSMALLINT count = 0;
    checkOdbc(SQLNumResultCols(statement->get(), &count), *statement, form_);
    std::vector<OdbcColumn> columns;
    for (SQLSMALLINT number = 1; number <= count; ++number)
        columns.push_back(column(statement, static_cast<SQLUSMALLINT>(number)));
    return columns;
}

OdbcColumn OdbcSession::column(Statement statement, SQLUSMALLINT number) const {
    constexpr std::size_t MaxNameLength = 256;
    OdbcColumn column;
    SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
    SQLULEN size = 0;
    const auto describe = [&](auto function, auto* name) {
        checkOdbc(function(statement->get(), number, name, MaxNameLength, &length, &type, &size,
                           &digits, &nullable),
                  *statement, form_);
        return std::clamp<std::size_t>(length, 0, MaxNameLength - 1);
    };
    if (form_ == OdbcText::Utf16) {
        std::u16string name(MaxNameLength, u'\0');
        name.resize(describe(SQLDescribeColW, wide(name)));
        column.name = utf8::fromUtf16Replacing(name);
    } else {
        column.name.resize(MaxNameLength);
        column.name.resize(describe(SQLDescribeCol, narrow(column.name)));
    }
    const bool isWide = type == SQL_WCHAR || type == SQL_WVARCHAR || type == SQL_WLONGVARCHAR;
    column.fetchAs = isWide ? SQL_C_WCHAR : SQL_C_CHAR;
    if (type == SQL_CHAR || type == SQL_WCHAR) column.fixedLength = size;
    return column;
}

bool OdbcSession::fetch(Statement statement) {
    const SQLRETURN result = SQLFetch(statement->get());
    if (result == SQL_NO_DATA) return false;
    checkOdbc(result, *statement, form_);
    return true;
}

std::string OdbcSession::value(Statement statement, int column, SQLSMALLINT fetchAs) const {
    return fetchAs == SQL_C_WCHAR
               ? utf8::fromUtf16Replacing(read<char16_t>(statement, column, fetchAs))
               : read<char>(statement, column, fetchAs);
}

// Piece by piece: the driver says how much is left, or only that there is more.
template <class Char>
std::basic_string<Char> OdbcSession::read(Statement statement, int column, SQLSMALLINT type) const {
    std::basic_string<Char> text(256, Char{});
    std::size_t used = 0;
    for (;;) {
        const std::size_t room = text.size() - used - 1;  // without the terminator
        SQLLEN left = 0;
        const SQLRETURN result = SQLGetData(
            statement->get(), static_cast<SQLUSMALLINT>(column + 1), type, text.data() + used,
            static_cast<SQLLEN>((text.size() - used) * sizeof(Char)), &left);
        if (result == SQL_NO_DATA) break;
        checkOdbc(result, *statement, form_);
        if (left == SQL_NULL_DATA) break;
        const bool known = left != SQL_NO_TOTAL;
        const std::size_t units = known ? static_cast<std::size_t>(left) / sizeof(Char) : 0;
        if (known && units <= room) {
            used += units;
            break;
        }
        used += room;
        text.resize(known ? used + (units - room) + 1 : 2 * text.size());
    }
    text.resize(used);
    return text;
}

}  // namespace headerdtc
