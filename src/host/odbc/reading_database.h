#pragma once

#include "host/odbc/odbc_database.h"

namespace headerdtc {

// A site's database for whoever may only ask it: nothing that is done through it changes a row,
// whatever names and labels are spliced into the statements.
//
// Two walls, each of which would do: the session is read-only where the server knows such a thing,
// and a text is refused (70) unless it surely is one SELECT that puts its rows nowhere. Some
// drivers run several statements of one text, of which a second could make the session writable.
class ReadingDatabase : public OdbcDatabase {
  public:
    explicit ReadingDatabase(Settings settings);

    std::unique_ptr<Connection> createConnection() override;

    bool refused = false;  // something was, since it was made
};

}  // namespace headerdtc
