#pragma once

#include "host/doctor/diagnosis.h"
#include "host/site/site_configuration.h"

#include <filesystem>
#include <string>
#include <vector>

namespace headerdtc {

// Looks at everything that a site needs, from its configuration to the tables of its translation
// database, and says what is missing and what to do. Writes nothing, and makes no database that is
// not there. `place` is a page or folder of the site; a configuration that was named holds instead
// of the one found from there. Never throws for the site's sake.
std::vector<Diagnosis> examineSite(const std::filesystem::path& place,
                                   const std::filesystem::path& named, const std::string& namedBy);

// The same for a configuration that is not written yet.
std::vector<Diagnosis> examineSite(SiteConfiguration configuration);

}  // namespace headerdtc
