#pragma once

#include "core/family.h"

#include <optional>
#include <string>
#include <string_view>

namespace headerdtc {

// The type of a stored property.
enum class StoredType { Boolean, Integer, String };

namespace stored {
struct Row;
}

// The parts of a configuration in the order in which reports list them; those that only follow from
// a choice come last.
enum class StoredPart {
    LinkedDataProvider,
    DataProvider,
    ExtraFilters,
    Includes,
    Stylesheet,
    Scripts,
    ReturnFields,
    LinkedFields,
    TranslatedNames,
    TranslatedValues,
    Criteria,
    Links,
    // These follow.
    KeyFields,
    LinkedAvailableFields,
    AvailableFields,
    LinkedKeyFields,
};

// A part of one control: of a family, where each has its own.
struct ControlPart {
    StoredPart part;
    std::optional<Family> family;

    // "ZEKO return fields"
    std::string caption() const;
    // The page of the tab strip where it is edited, from 0.
    int tabPage() const;
    bool followsFromAChoice() const { return part >= StoredPart::KeyFields; }

    bool operator==(const ControlPart&) const = default;
    // The order of reports.
    bool operator<(const ControlPart& other) const;
};

// What of the catalogue a stored text names.
struct CatalogueName {
    enum class What {
        Provider,
        Entry,     // a field, as the lists show it
        KeyField,  // a field by its name alone
    };
    What what;
    bool ofLinked;  // the linked provider, or a field of it

    bool operator==(const CatalogueName&) const = default;
};

// A name that the control stores, taken apart.
struct StoredName {
    const stored::Row& row;       // of the table of stored properties
    int number = -1;              // of a numbered name; of a cell its row
    int column = -1;              // of a cell
    std::string_view entry = {};  // of a name with a suffix: what stands before it

    // What its text names, nothing for what the catalogue does not have. The field to which a link
    // leads counts as a key field: that is what the editor offers.
    std::optional<CatalogueName> catalogueName() const;
};

// Takes a name apart; nothing for one that the control never reads, whatever else the page stores.
// Numbered names are known by their pattern ("ZEKOReturnFields" and a decimal number, within what
// is counted, without leading zeros); names that end in a dictionary's suffix belong to the entry
// before it ("nZEKOCriteriaType" is an Integer, "ZEKOCriteriaType1" a String). Names compare
// exactly.
std::optional<StoredName> parseStoredName(std::string_view name);

// What a stored property belongs to, nothing for a name that the control never reads.
std::optional<ControlPart> partOf(std::string_view name);

// The type of a stored property, nothing for a name that the control never reads.
std::optional<StoredType> storedTypeOf(std::string_view name);

// Whether a name is of the cell with the button of the script dialog ("ZEKOCriteria2_4"). It is
// shown in each row that was current once, which says nothing of the query.
bool isScriptButton(std::string_view name);

}  // namespace headerdtc
