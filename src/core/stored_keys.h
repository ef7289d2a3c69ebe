#pragma once

#include <optional>
#include <string_view>

namespace headerdtc {

// The type of a stored property.
enum class StoredType { Boolean, Integer, String };

namespace stored {
struct Row;
}

// A name that the control stores, taken apart.
struct StoredName {
    const stored::Row& row;       // of the table of stored properties
    int number = -1;              // of a numbered name; of a cell its row
    int column = -1;              // of a cell
    std::string_view entry = {};  // of a name with a suffix: what stands before it
};

// Takes a name apart; nothing for one that the control never reads, whatever else the page stores.
// Numbered names are known by their pattern ("ZEKOReturnFields" and a decimal number, within what
// is counted, without leading zeros); names that end in a dictionary's suffix belong to the entry
// before it ("nZEKOCriteriaType" is an Integer, "ZEKOCriteriaType1" a String). Names compare
// exactly.
std::optional<StoredName> parseStoredName(std::string_view name);

// The type of a stored property, nothing for a name that the control never reads.
std::optional<StoredType> storedTypeOf(std::string_view name);

// Whether a name is of the cell with the button of the script dialog ("ZEKOCriteria2_4"). It is
// shown in each row that was current once, which says nothing of the query.
bool isScriptButton(std::string_view name);

}  // namespace headerdtc
