#include "host/inspection/rules/rule_settings.h"

#include "host/translations/translation_rules.h"
#include "platform/nearest_name.h"

#include <algorithm>

namespace headerdtc {
namespace {

using Level = RuleSetting::Level;

const RuleSetting* settingOf(std::string_view rule, const SiteConfiguration& site) {
    const auto found = site.rules.find(std::string(rule));
    return found == site.rules.end() ? nullptr : &found->second;
}

}  // namespace

std::vector<RuleText> allRules() {
    std::vector<RuleText> rules;
    for (const Rule& rule : inspectionRules())
        rules.push_back({rule.id, rule.summary, rule.explanation, rule.severity});
    for (const TranslationRule& rule : translationRules())
        rules.push_back({rule.id, rule.summary, rule.explanation, std::nullopt});
    return rules;
}

void requireKnownRules(const SiteConfiguration& site) {
    if (site.rules.empty()) return;
    const auto rules = allRules();
    for (const auto& [name, setting] : site.rules) {
        const auto fail = [&, &where = setting](const std::string& problem) {
            throw ConfigurationError(site.file.string(), where.line, where.column, problem);
        };
        const auto rule = std::find_if(rules.begin(), rules.end(),
                                       [&, &id = name](const auto& each) { return each.id == id; });
        if (rule == rules.end()) {
            NearestName nearest(name);
            for (const RuleText& each : rules)
                nearest.offer(each.id);
            fail("there is no rule " + inQuotes(name) + nearest.question() +
                 " ('headerdtc explain' lists them)");
        } else if (!rule->severity && setting.level != Level::Off) {
            fail(inQuotes(name) + " is a rule of translations, which can only be \"off\"");
        }
    }
}

std::optional<Severity> severityOf(const Rule& rule, const SiteConfiguration& site) {
    const RuleSetting* setting = settingOf(rule.id, site);
    if (!setting) return rule.severity;
    if (setting->level == Level::Off) return std::nullopt;
    return setting->level == Level::Error ? Severity::Error : Severity::Warning;
}

bool isOff(std::string_view rule, const SiteConfiguration& site) {
    const RuleSetting* setting = settingOf(rule, site);
    return setting && setting->level == Level::Off;
}

}  // namespace headerdtc
