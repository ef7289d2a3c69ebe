#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace headerdtc {

// One column of the current row of a result.
class Field {
  public:
    virtual ~Field() = default;
    // The value as UTF-8 text, whatever the column's type; NULL is the empty text.
    virtual std::string Value() = 0;
};

// The rows of one statement, read forward.
class Recordset {
  public:
    virtual ~Recordset() = default;
    virtual bool EndOfFile() = 0;
    virtual void MoveNext() = 0;
    // The first column of that name (without regard to case). Raises RuntimeError when there is
    // none, or no current row.
    virtual Field& Item(const std::string& column) = 0;
};

// One database connection, ADO style. All failures are RuntimeErrors with the driver's text and
// native number. Destroying an open connection closes it and rolls back an open transaction.
class Connection {
  public:
    virtual ~Connection() = default;
    virtual void ConnectionString(const std::string& connectString) = 0;
    // Empty arguments leave the connect string as it stands; options -1 is "unspecified".
    virtual void Open(const std::string& connectString, const std::string& userId,
                      const std::string& password, int options) = 0;
    // Executes one statement. recordsAffected, where given, receives the driver's row count.
    virtual std::unique_ptr<Recordset> Execute(const std::string& commandText,
                                               std::int32_t* recordsAffected, int options) = 0;
    virtual void BeginTrans() = 0;
    virtual void CommitTrans() = 0;
    virtual void Close() = 0;
};

// What the translation store needs of its surroundings.
class Database {
  public:
    virtual ~Database() = default;
    virtual std::unique_ptr<Connection> createConnection() = 0;
    // "Velmora.DatasourceConnection": the suite's connect string of a data-source kind (8 is the
    // translation database). Raises RuntimeError when the component is not there.
    virtual std::string GetConnectString(std::int32_t kind) = 0;
    // The fixed connect string that only the add-label operation uses.
    virtual std::string labelConnectString() = 0;
};

}  // namespace headerdtc
