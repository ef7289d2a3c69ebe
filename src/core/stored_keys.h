#pragma once

#include "platform/property_bag.h"

#include <optional>
#include <string_view>

namespace headerdtc {

// The type of a stored property.
enum class StoredType { Boolean, Integer, String };

// What is known of a stored property by its name alone.
struct StoredKind {
    StoredType type;
    // What reading makes of the property where it is not stored, in the property's type.
    PropertyValue readingDefault;
    // Where the number of a name says where the entry stood and no more, the key before it: for the
    // entries of dictionaries ("ZEKOCriteriaType2") and of selections ("EAII18NFieldnames0"), which
    // are written in the order of the list that they are selected in. Empty for all others.
    std::string_view unordered = {};
};

// The type of a stored property, nothing for a name that the control never stores. Numbered names
// are known by their pattern ("ZEKOReturnFields" and a decimal number without leading zeros);
// names that end in a dictionary suffix belong to the entry before it ("nZEKOCriteriaType" is an
// Integer, "ZEKOCriteriaType1" a String). Names compare exactly.
std::optional<StoredType> storedTypeOf(std::string_view name);

// The same, with the default.
std::optional<StoredKind> storedKindOf(std::string_view name);

}  // namespace headerdtc
