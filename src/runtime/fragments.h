#pragma once

#include <string>

namespace headerdtc {

class HeaderDTC;

// The generators of the server-script fragments that fill the template's query placeholders. Each
// renders one list or grid of one family. They take a family code, 1 = EAI and 2 = ZEKO; those of
// the link take 4 = EAI and 5 = ZEKO. Any other code gives an empty text.
//
// The fragments name script variables by placeholders that later steps of the expansion resolve.
// They are built to stand at an indentation of three tabs: a line ends in CR LF and three tabs.
//
// A field entry without its family's separator raises 9 (Subscript out of range).

// One array expression of the key field names. Reports its own failures and gives what it had.
std::string GetKeyFieldsRuntimeText(HeaderDTC& control, int family);

// One line for each selected return field; one for each selected field of the linked provider.
std::string GetReturnFieldsRuntimeText(HeaderDTC& control, int family);
std::string GetLinkedReturnFieldsRuntimeText(HeaderDTC& control, int linkedFamily);

// One line for each criterion. Incomplete criteria and unknown operators are remarked upon in
// message boxes and do not stop the generation. Looking up a value's type adds a missing value to
// the family's type dictionary.
std::string GetCriteriaRuntimeText(HeaderDTC& control, int family);

// One call that names the fields selected for translation, empty when none is selected.
std::string GetI18NFieldnamesRuntimeText(HeaderDTC& control, int family);
std::string GetI18NFieldValuesRuntimeText(HeaderDTC& control, int family);

// One line for each link.
std::string GetLinkedFieldsRuntimeText(HeaderDTC& control, int linkedFamily);

}  // namespace headerdtc
