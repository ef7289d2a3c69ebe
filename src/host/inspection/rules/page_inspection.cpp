#include "host/inspection/rules/page_inspection.h"

#include "host/generation/page_generation.h"
#include "host/inspection/page_view.h"
#include "host/inspection/property_line.h"
#include "host/inspection/rules/rule_table.h"

#include <algorithm>

namespace headerdtc {
namespace {

using Verdict = GeneratedPage::Verdict;

void inspectControl(const ControlView& control, const std::string& page,
                    std::vector<Finding>& findings) {
    for (const Rule& rule : inspectionRules()) {
        Remarks remarks;
        rule.check(control, remarks);
        for (Remark& remark : remarks) {
            const int line = remark.line > 0 ? remark.line
                                             : lineOfProperty(control.page.markup(), control.span(),
                                                              remark.property);
            findings.push_back(
                {rule.id, rule.severity, page, line, control.span().id, std::move(remark)});
        }
    }
}

void inspect(const std::filesystem::path& page, Sites& sites, SiteFactsCache& cache,
             InspectedPage& result) {
    const GeneratedPage generated = generatePage(page, sites, LossGuard::RefuseLosses);
    result.hasControl = generated.verdict != Verdict::NoControl;
    if (!result.hasControl) return;
    if (generated.verdict == Verdict::NotConfigured || generated.verdict == Verdict::NotReadable) {
        const bool isPages = generated.verdict == Verdict::NotReadable;
        result.failure = {isPages ? PageFailure::Of::Page : PageFailure::Of::Configuration,
                          generated.messages.back()};
        return;
    }
    const auto site = sites.forPage(page);
    const PageMarkup markup(page.string(), generated.before, site->configuration->codePage);
    const PageView view(markup, page, cache.of(site), generated);
    for (std::size_t i = 0; i < markup.controls().size(); ++i)
        inspectControl({view, i}, page.string(), result.findings);
    std::stable_sort(result.findings.begin(), result.findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
}

}  // namespace

InspectedPage inspectPage(const std::filesystem::path& page, Sites& sites, SiteFactsCache& facts) {
    InspectedPage result;
    const auto failure = failureOf(page, [&] { inspect(page, sites, facts, result); });
    if (failure) result.failure = failure;
    return result;
}

}  // namespace headerdtc
