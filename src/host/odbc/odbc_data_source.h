#pragma once

#include "host/odbc/odbc_database.h"
#include "host/odbc/odbc_handles.h"

#include <string>
#include <vector>

namespace headerdtc {

// A data source as the driver manager is asked for it.
struct OdbcDataSource {
    std::string connectString;
    // The form in which the driver has to be given it.
    OdbcText form = OdbcText::Utf16;
    // The passwords in it, which no message may show.
    std::vector<std::string> passwords;
    // The connect string bounds the time of a statement in the driver's own way.
    bool boundsStatements = false;
};

// Makes a connect string ready for the driver manager.
//
// With an odbc_ini of the site, the section that DSN names is put in DSN's place, so that the file
// is read for this connection only: the driver manager would have to be sent there by an
// environment variable of the whole process, and remembers what it has read. What the connect
// string gives wins over the section; what it leaves empty ("PWD=") the section may give. A
// relative Database of the section is taken from the site's folder when it is a file: when the
// driver is SQLite's, or when the name has a slash. To other drivers it is a name on the server.
//
// With and without that file, some drivers are told more, unless the author has: the time limits,
// to those that do not take them otherwise, and to MariaDB's to count all rows that an update
// finds.
//
// SQLite's driver makes a file where it finds none, so it is only ever sent to one that is there.
//
// Raises 53 when odbc_ini or a database file cannot be found, 380 for a name or value that is
// longer than ODBC takes, and the driver manager's "Data source name not found" when the section is
// not there or names no Driver; each with file and line.
OdbcDataSource findDataSource(const std::string& connectString,
                              const OdbcDatabase::Settings& settings);

}  // namespace headerdtc
