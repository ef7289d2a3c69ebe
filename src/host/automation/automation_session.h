#pragma once

#include "host/site/site.h"

#include <filesystem>
#include <iosfwd>
#include <string>

namespace headerdtc {

// Opens a page's control and drives it by commands until the end of input. `control` is an ID,
// empty for the page's only or first one. Tells whether the page could be opened; the first line
// out says so too. Throws ConfigurationError after that line.
bool automatePage(Sites& sites, const std::filesystem::path& page, const std::string& control,
                  std::istream& in, std::ostream& out);

}  // namespace headerdtc
