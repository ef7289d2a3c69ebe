#pragma once

#include "host/generation/page_change.h"
#include "host/generation/page_generation.h"
#include "host/inspection/finding.h"
#include "host/inspection/site_facts.h"
#include "host/site/site.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace headerdtc {

// The result of checking one page.
struct InspectedPage {
    bool hasControl = false;
    bool hasConfiguration = true;  // false: the defaults hold, for want of a headerdtc.toml
    GeneratedPage::Verdict verdict = GeneratedPage::Verdict::NoControl;
    std::vector<GeneratedPage::Doubt> doubts;
    std::vector<Finding> findings;       // by line
    std::optional<PageFailure> failure;  // nothing when it was checked
};

// Checks a page against every rule; writes nothing. Never throws for the page's sake. Thread-safe.
InspectedPage inspectPage(const std::filesystem::path& page, Sites& sites, SiteFactsCache& facts);

// The same for bytes that are not written yet: of a page that is being edited.
InspectedPage inspectPage(const std::filesystem::path& page, std::string bytes, Sites& sites,
                          SiteFactsCache& facts);

}  // namespace headerdtc
