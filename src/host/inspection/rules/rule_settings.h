#pragma once

#include "host/inspection/finding.h"
#include "host/inspection/rules/rule_table.h"
#include "host/site/site_configuration.h"

#include <optional>
#include <string_view>
#include <vector>

namespace headerdtc {

// A rule of pages or of translations, as people are told of it.
struct RuleText {
    std::string_view id, summary, explanation;
    std::optional<Severity> severity;  // nothing for a rule of translations, which has none
};

// All of them, those of pages first.
std::vector<RuleText> allRules();

// The settings of a site have to be of rules that there are; one of translations can only be off.
// Throws ConfigurationError with line and column.
void requireKnownRules(const SiteConfiguration& site);

// What a rule finds in the pages of a site; nothing where it is off.
std::optional<Severity> severityOf(const Rule& rule, const SiteConfiguration& site);
bool isOff(std::string_view rule, const SiteConfiguration& site);

}  // namespace headerdtc
