#pragma once

#include "host/catalogue_import/catalogue_merge.h"
#include "host/odbc/odbc_database.h"

#include <string>
#include <vector>

namespace headerdtc {

// The tables of a live database, asked by ODBC's catalogue functions; it is only read. The
// settings say where its data source is described. `patterns` are names of tables and views, with a
// schema and a dot before them or without, * and ? standing for any characters and for one, without
// regard to case; none: all tables. Raises RuntimeError, the driver's text without secrets, and
// when there is no table that is wanted, or there are several of one name.
std::vector<DatabaseTable> readDatabaseTables(const std::string& connectString,
                                              const OdbcDatabase::Settings& settings,
                                              const std::vector<std::string>& patterns);

// Whether a name fits a pattern with * and ?.
bool fitsPattern(std::string_view name, std::string_view pattern);

}  // namespace headerdtc
