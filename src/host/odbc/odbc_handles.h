#pragma once

#include "platform/runtime_error.h"

#include <memory>
#include <sql.h>

namespace headerdtc {

// An ODBC handle, freed with its owner.
template <SQLSMALLINT Kind>
struct FreeOdbcHandle {
    void operator()(SQLHANDLE handle) const { SQLFreeHandle(Kind, handle); }
};
template <SQLSMALLINT Kind>
using OdbcHandle = std::unique_ptr<void, FreeOdbcHandle<Kind>>;
using OdbcEnvironment = OdbcHandle<SQL_HANDLE_ENV>;
using OdbcLogOn = OdbcHandle<SQL_HANDLE_DBC>;
using OdbcStatement = OdbcHandle<SQL_HANDLE_STMT>;

// The form in which a driver takes and gives text. The driver manager converts between the two
// only with a loss, so each driver is spoken to in its own.
enum class OdbcText { Utf8, Utf16 };

// The diagnostics of a handle as a run-time error: all texts on one line, the first native number.
RuntimeError odbcFailure(SQLSMALLINT kind, SQLHANDLE handle, OdbcText form);

// Raises them unless the result is a success.
template <SQLSMALLINT Kind>
void checkOdbc(SQLRETURN result, const OdbcHandle<Kind>& handle, OdbcText form) {
    if (!SQL_SUCCEEDED(result)) throw odbcFailure(Kind, handle.get(), form);
}

// A new handle below another; raises the other's diagnostics.
template <SQLSMALLINT Kind, SQLSMALLINT ParentKind>
OdbcHandle<Kind> makeOdbcHandle(const OdbcHandle<ParentKind>& parent, OdbcText form) {
    SQLHANDLE handle = SQL_NULL_HANDLE;
    checkOdbc(SQLAllocHandle(Kind, parent.get(), &handle), parent, form);
    return OdbcHandle<Kind>(handle);
}

}  // namespace headerdtc
