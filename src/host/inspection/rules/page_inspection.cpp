#include "host/inspection/rules/page_inspection.h"

#include "host/generation/page_generation.h"
#include "host/inspection/page_view.h"
#include "host/inspection/property_line.h"
#include "host/inspection/rules/rule_settings.h"

#include <algorithm>

namespace headerdtc {
namespace {

using Verdict = GeneratedPage::Verdict;

// Whether a remark on what would be lost, or on a failure, has been made by another rule already:
// one cause is told once.
bool isTold(const ControlView& control, const std::vector<Remark>& remarks, bool isFailureTold) {
    for (const auto& doubt : control.page.generated().doubts) {
        if (doubt.control != control.index) continue;
        if (doubt.doubt.kind == SaveDoubt::Kind::Failure) return isFailureTold;
        return std::any_of(
            doubt.doubt.losses.begin(), doubt.doubt.losses.end(), [&](const StoredLoss& loss) {
                return std::any_of(remarks.begin(), remarks.end(), [&](const Remark& remark) {
                    return remark.property == loss.name;
                });
            });
    }
    return false;
}

std::string storedText(const ControlView& control, const std::string& property) {
    const auto& properties = control.span().properties;
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const auto& each) { return each.first == property; });
    return found == properties.end() ? std::string() : found->second;
}

void inspectControl(const ControlView& control, const std::string& page,
                    const SiteConfiguration& site, bool isFailureTold,
                    std::vector<Finding>& findings) {
    Remarks all;
    for (const Rule& rule : inspectionRules()) {
        if (rule.finds == Rule::Finds::Consequence && isTold(control, all, isFailureTold)) continue;
        Remarks remarks;
        rule.check(control, remarks);
        if (rule.finds == Rule::Finds::CauseOfFailure && !remarks.empty()) isFailureTold = true;
        const auto severity = severityOf(rule, site);
        for (Remark& remark : remarks) {
            all.push_back(remark);
            // The site has switched the rule off. The remark counts as made, so that no other rule
            // reports what follows from it.
            if (!severity) continue;
            const int line = remark.line > 0 ? remark.line
                                             : lineOfProperty(control.page.markup(), control.span(),
                                                              remark.property);
            findings.push_back({rule.id, *severity, page, line, control.span().id,
                                storedText(control, remark.property), std::move(remark)});
        }
    }
}

void inspect(const std::filesystem::path& page, const GeneratedPage& generated, Sites& sites,
             SiteFactsCache& cache, InspectedPage& result) {
    result.verdict = generated.verdict;
    result.doubts = generated.doubts;
    result.hasControl = generated.verdict != Verdict::NoControl;
    if (!result.hasControl) return;
    if (generated.verdict == Verdict::NotConfigured || generated.verdict == Verdict::NotReadable) {
        const bool isPages = generated.verdict == Verdict::NotReadable;
        result.failure = {isPages ? PageFailure::Of::Page : PageFailure::Of::Configuration,
                          generated.messages.back()};
        return;
    }
    const auto site = sites.forPage(page);
    result.hasConfiguration = !site->configuration->file.empty();
    const PageMarkup markup(page.string(), generated.before, site->configuration->codePage);
    requireKnownRules(*site->configuration);
    const auto facts = cache.of(site);
    // Without it no page can be generated, but the other rules have something to say.
    const std::string& unread = facts->siteTemplate().failure;
    if (!unread.empty()) result.failure = {PageFailure::Of::Site, unread};
    const PageView view(markup, page, facts, generated);
    for (std::size_t i = 0; i < markup.controls().size(); ++i)
        inspectControl({view, i}, page.string(), *site->configuration, !unread.empty(),
                       result.findings);
    std::stable_sort(result.findings.begin(), result.findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
}

InspectedPage inspected(const std::filesystem::path& page, const GeneratedPage& generated,
                        Sites& sites, SiteFactsCache& facts) {
    InspectedPage result;
    const auto failure = failureOf(page, [&] { inspect(page, generated, sites, facts, result); });
    if (failure) {
        result.failure = failure;
        result.verdict = std::max(result.verdict, Verdict::Failing);
    }
    return result;
}

}  // namespace

InspectedPage inspectPage(const std::filesystem::path& page, Sites& sites, SiteFactsCache& facts) {
    return inspected(page, generatePage(page, sites, LossGuard::RefuseLosses), sites, facts);
}

InspectedPage inspectPage(const std::filesystem::path& page, std::string bytes, Sites& sites,
                          SiteFactsCache& facts) {
    return inspected(page, generatePage(page, std::move(bytes), sites, LossGuard::RefuseLosses),
                     sites, facts);
}

}  // namespace headerdtc
