#pragma once

#include "core/family.h"
#include "host/page/page_markup.h"

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

}  // namespace headerdtc
