#pragma once

#include "host/odbc/odbc_session.h"

#include <string>
#include <vector>

namespace headerdtc {

// A table or view of a database.
struct OdbcTable {
    std::string catalogue, schema, name;
    std::string type;  // "TABLE", "VIEW"
};

struct OdbcTableColumn {
    std::string name;
    long size = 0;  // characters that a text may have; 0: no bound is known
};

// What tables a database has and what is in them, asked by ODBC's own catalogue functions; nothing
// is executed. Raises RuntimeError with the driver's text.
class OdbcMetadata {
  public:
    // The session outlives it.
    explicit OdbcMetadata(OdbcSession& session) : session_(session) {}

    // Tables, and views too where they are wanted; none of the database's own, nor of other
    // databases of the server. In the driver's order.
    std::vector<OdbcTable> tables(bool withViews);
    // In the table's order.
    std::vector<OdbcTableColumn> columns(const OdbcTable& table);
    // The columns of the primary key, in the key's order; none for a table without one.
    std::vector<std::string> primaryKey(const OdbcTable& table);

  private:
    using Row = std::vector<std::string>;
    std::vector<Row> rows(OdbcSession::Statement statement, std::size_t columns);

    OdbcSession& session_;
};

}  // namespace headerdtc
