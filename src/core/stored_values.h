#pragma once

#include "platform/property_bag.h"

#include <cstdint>
#include <string>

namespace headerdtc {

// Conversions of a value that came out of a property bag. A page keeps text, so a number or a
// Boolean may arrive as a string.

// True and False in any case, or a number: everything but 0 is true. Raises 13 for another text.
bool toBoolean(const PropertyValue& value);

// A number, blanks around it allowed; a fraction is rounded, a half to the even neighbour; true
// is -1. Raises 13 for what is no number (the empty text included), 6 beyond 16 bits.
std::int16_t toInteger(const PropertyValue& value);

// Numbers in decimal; Booleans as "True" and "False".
std::string toText(PropertyValue value);

}  // namespace headerdtc
