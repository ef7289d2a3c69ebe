#pragma once

#include "host/generation/page_change.h"
#include "host/rename/stored_rename.h"
#include "host/site/site.h"

#include <filesystem>
#include <string>
#include <vector>

namespace headerdtc {

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

}  // namespace headerdtc
