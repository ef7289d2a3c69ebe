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

// Brings a catalogue up to what a database has: tables as record groups, columns in their order as
// numbered fields, primary keys as key fields.
//
// A table belongs to the provider that has it as a record group, else to the one of its name, else
// it makes a new one. Pages store a field's number and spelling, so both are kept where the field
// is there already; names compare without regard to case. New fields get the numbers after the last
// one. A provider keeps the families that it has, key fields beyond the primary key, and record
// groups from elsewhere with their fields; a new one has both families. Providers that have no
// table here are left as they are.
Catalogue mergeTables(Catalogue catalogue, const std::vector<DatabaseTable>& tables);

// Takes over what a list of fields has: each family of each provider as it stands there. What it
// does not name is left as it is.
Catalogue mergeList(Catalogue catalogue, const Catalogue& list);

// One thing in which a catalogue differs from an earlier one.
struct CatalogueChange {
    enum class Kind : char { Added = '+', Removed = '-', Changed = '~' };
    Kind kind;
    std::string provider;
    std::string what;  // "EAI ORDERS.WEIGHT", "ZEKO 4 - STATUS", "ZEKO key fields ORDNO, CUSTNO"
};

// What merging has changed; nothing: it is as it was.
std::vector<CatalogueChange> changesBetween(const Catalogue& before, const Catalogue& after);

// A catalogue as its file has it, for people to read and to compare: several fields a line.
std::string catalogueText(const Catalogue& catalogue);

}  // namespace headerdtc
