#pragma once

#include "host/site/catalogue.h"

#include <string>
#include <string_view>

namespace headerdtc {

// A catalogue as a plain list, a field a line, CSV in UTF-8. The first line names the columns, in
// any order and case: provider, family (ZEKO or EAI), field, and number (of a ZEKO field), group
// (the record group of an EAI field), key (the place of a key field: 1 is the first). Other columns
// are passed over. Throws FileError with the line.
Catalogue readCatalogueList(const std::string& file, std::string_view text);

}  // namespace headerdtc
