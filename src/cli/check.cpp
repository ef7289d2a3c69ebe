#include "cli/check_report.h"
#include "cli/interruption.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "cli/site_commands.h"
#include "host/generation/site_pages.h"
#include "host/inspection/ordered_run.h"
#include "host/inspection/rules/page_inspection.h"
#include "host/inspection/rules/rule_table.h"

#include <cstdio>

namespace headerdtc::cli {
namespace {

int listRules() {
    for (const Rule& rule : inspectionRules()) {
        std::printf("%-24s %-8s %s\n", std::string(rule.id).c_str(),
                    std::string(nameOf(rule.severity)).c_str(), std::string(rule.summary).c_str());
    }
    return Done;
}

void tell(const InspectedPage& page, const std::string& name, bool named, CheckReport& report,
          CheckTotals& totals) {
    for (const Finding& finding : page.findings) {
        ++(finding.severity == Severity::Error ? totals.errors : totals.warnings);
        report.finding(finding);
    }
    if (page.failure) {
        ++totals.failed;
        if (page.failure->of == PageFailure::Of::Configuration) totals.misconfigured = true;
        report.failure(name, *page.failure);
    } else if (!page.hasControl && named) {
        printMessage(name, "holds no HeaderDTC control");
    }
}

}  // namespace

int check(const CommonOptions& common, const CheckOptions& options) {
    if (options.listRules) return listRules();
    Sites sites(common.only());
    SiteFactsCache facts;
    const SitePages pages = options.paths.pages();
    const auto report = makeCheckReport(options);
    CheckTotals totals{.pages = pages.pages.size()};
    report->begin();
    for (const auto& problem : pages.problems) {
        ++totals.failed;
        report->failure(problem.path, {PageFailure::Of::Page, problem.reason});
    }
    Progress progress(pages.pages.size(), options.quiet);
    const Interruption interruption;
    const std::size_t done = runInOrder<InspectedPage>(
        pages.pages.size(), options.jobs,
        [&](std::size_t page) { return inspectPage(pages.pages[page], sites, facts); },
        [&](std::size_t page, const InspectedPage& inspected) {
            progress.hide();
            tell(inspected, pages.pages[page].string(), pages.named[page], *report, totals);
        },
        [&](std::size_t finished) {
            progress.show(finished);
            return !Interruption::seen();
        });
    totals.left = pages.pages.size() - done;
    report->end(totals);
    progress.end(totals.summary());
    if (totals.left > 0) tellOfPagesLeft(pages, done);
    return totals.status();
}

}  // namespace headerdtc::cli
