#pragma once

#include "host/rename/stored_rename.h"
#include "host/translations/translation_table.h"

#include <cstddef>
#include <memory>

namespace headerdtc {

// A renaming in the tables of one translation database, in one transaction that is undone unless it
// is committed. Everything raises what the database raises.
class TranslationRenaming {
  public:
    // Looks for the rows. Raises 57 where a row of the new name is there already.
    TranslationRenaming(const OdbcDatabase& database, const Renaming& renaming);

    std::size_t names() const { return names_; }  // rows of translated field names
    std::size_t values() const { return values_; }

    // Changes them, each value bound to its statement. Raises 57 when other rows were changed than
    // were found: some databases take other spellings for the same name.
    void write();
    void commit();

  private:
    void writeTable(const char* table, std::size_t rows);

    const Renaming renaming_;
    std::unique_ptr<OdbcConnection> connection_;
    std::size_t names_ = 0, values_ = 0;
};

}  // namespace headerdtc
