#pragma once

#include "host/site/site_configuration.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

enum class Health {
    Whole,
    Doubtful,  // works, but perhaps not as it was meant
    Broken,
    NotLookedAt,  // hangs on something that is broken
};

// "ok", "warning", "broken", "skipped"
std::string_view nameOf(Health health);

// What was found of one link of a site's set-up.
struct Diagnosis {
    std::string link;  // "configuration", "registry export", ...
    Health health = Health::Whole;
    std::string detail;    // what it is, or what is wrong; without secrets
    std::string nextStep;  // of what is broken or doubtful: what to do
};

// Looks at everything that a site needs, from its configuration to the tables of its translation
// database, and says what is missing and what to do. Writes nothing, and makes no database that is
// not there. `place` is a page or folder of the site; a configuration that was named holds instead
// of the one found from there. Never throws for the site's sake.
std::vector<Diagnosis> examineSite(const std::filesystem::path& place,
                                   const std::filesystem::path& named, const std::string& namedBy);

// The same for a configuration that is not written yet.
std::vector<Diagnosis> examineSite(SiteConfiguration configuration);

}  // namespace headerdtc
