#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// A text as it stands in an attribute of the markup: & < > ", CR, LF, TAB and the second hyphen of
// each two in a row as character references.
std::string escapeReferences(std::string_view text);

// The text again. References to what is no character, and names other than amp, lt, gt, quot and
// apos, stay as they are.
std::string resolveReferences(std::string_view text);

}  // namespace headerdtc
