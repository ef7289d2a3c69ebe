#pragma once

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

}  // namespace headerdtc
