#pragma once

#include "core/family.h"
#include "host/generation/page_change.h"
#include "host/page/page_markup.h"
#include "host/site/site.h"
#include "host/translations/translation_table.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc {

// A data provider, or a field of one, that got another name. Names compare exactly.
struct Renaming {
    std::string provider, newProvider;  // the same of a field
    // Of a field; empty of a provider.
    std::string field, newField;
    // Of a field that is named by its whole entry, "9 - CITY" or "ADDRESS.CITY"; then it is that
    // family's field alone.
    std::string entry, newEntry;
    std::optional<Family> family;

    // Both throw std::invalid_argument, with what to do, for names that cannot be exchanged.
    static Renaming ofProvider(const std::string& from, const std::string& to);
    static Renaming ofField(const std::string& provider, const std::string& from,
                            const std::string& to);

    bool isOfField() const { return !field.empty(); }
};

// A stored text that is another one now.
struct RenamedText {
    std::string property, before, after;
};

// What a renaming makes of the properties of one control.
struct StoredRenaming {
    StoredProperties properties;
    std::vector<RenamedText> texts;  // what was renamed, in the order of the properties
    // Why it should not be done: a list would have the new name twice. Empty when it can.
    std::string conflict;
};

// Renames wherever a control names a provider or a field: as chosen or linked provider, among the
// fields that are chosen or available, in keys, criteria, links and marks for translation. A key is
// stored by its name alone: it goes with the entry of that name, unless another entry has it too.
StoredRenaming renameStored(const StoredProperties& properties, const Renaming& renaming);

// What a renaming would change in one page.
struct PageRenaming : PageChange {
    struct Name {
        std::string control;  // ID
        RenamedText text;
    };
    std::vector<Name> names;  // in the order of the page
    // Whether the scripts of the controls that are changed belong to the new names. A script that
    // was out of date before stays as it is.
    bool isGenerated = true;
};

// Renames in what a page's controls store, and gives a script that was up to date the new names
// too; writes nothing. It makes no difference whether the catalogue has the old or the new name by
// now. Never throws for the page's sake. Thread-safe.
PageRenaming renameInPage(const std::filesystem::path& page, Sites& sites,
                          const Renaming& renaming);

// What the catalogue of a site lacks of the new names, a sentence without its full stop; empty when
// it has them. Throws FileError when it cannot be read.
std::string missingInCatalogue(Site& site, const Renaming& renaming);

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
