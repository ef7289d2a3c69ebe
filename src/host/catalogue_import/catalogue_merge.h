#pragma once

#include "host/site/catalogue.h"

#include <string>
#include <vector>

namespace headerdtc {

// A table as a database describes it.
struct DatabaseTable {
    std::string name;
    std::vector<std::string> columns;  // in their order
    std::vector<std::string> key;      // columns of the primary key; empty: it has none
};

struct MergeOptions {
    // The provider that all tables are record groups of. Empty: each table belongs to the provider
    // that has it as a record group, else to the one of its name, else it makes a new one.
    std::string provider;
    // Of the providers that have a table here: takes out record groups and fields that no table
    // has, and key fields that are in no primary key.
    bool prune = false;
};

// What merging changes, one thing each.
struct CatalogueChange {
    enum class Kind : char { Added = '+', Removed = '-', Changed = '~' };
    Kind kind;
    std::string provider;
    std::string what;  // "EAI ORDERS.WEIGHT", "ZEKO 4 - STATUS", "ZEKO key fields ORDNO, CUSTNO"
};

struct MergedCatalogue {
    Catalogue catalogue;
    std::vector<CatalogueChange> changes;  // none: it is as it was
};

// Brings a catalogue up to what a database has: tables as record groups, columns in their order as
// numbered fields, primary keys as key fields.
//
// Pages store a field's number and spelling, so both are kept where the field is there already;
// names compare without regard to case. New fields get the numbers after the last one. A provider
// keeps the families that it has, and key fields beyond the primary key; a new one has both
// families. Providers that have no table here are left as they are.
MergedCatalogue mergeTables(const Catalogue& before, const std::vector<DatabaseTable>& tables,
                            const MergeOptions& options);

// A catalogue as its file has it, for people to read and to compare: several fields a line.
std::string catalogueText(const Catalogue& catalogue);

}  // namespace headerdtc
