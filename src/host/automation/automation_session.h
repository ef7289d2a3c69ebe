#pragma once

#include "host/generation/page_change.h"
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

// Whether a script has a line that saves the page, without which it changes none.
bool scriptSaves(const std::string& script);

// Does on a page what the lines of an automation script say, and writes nothing: what the script
// saves is kept, and neither the translation database nor any other file is changed; a line that
// would is a failure. Failures name the line of the script, "line 4: ..."; messages are the texts
// of message boxes. `control` is an ID, empty for the page's only or first one. Never throws for
// the page's sake. Thread-safe.
PageChange replayOnPage(Sites& sites, const std::filesystem::path& page, const std::string& control,
                        const std::string& script);

}  // namespace headerdtc
