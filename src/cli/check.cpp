#include "cli/baseline.h"
#include "cli/check_report.h"
#include "cli/command.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "host/inspection/rules/page_inspection.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace headerdtc::cli {
namespace {

struct CheckOptions {
    PageRunOptions run;
    BaselineOptions baseline;
    bool listRules = false;
    bool json = false, sarif = false;

    CheckReport::Form form() const {
        using enum CheckReport::Form;
        return json ? Json : sarif ? Sarif : Text;
    }
};

// What tells a finding from others, wherever it stands in its page.
Baseline::Entry entryOf(const Finding& finding, const Baseline& baseline) {
    return {{Baseline::Page, baseline.nameOf(finding.page)},
            {"rule", finding.rule},
            {"control", finding.control},
            {"value", finding.value}};
}

ExitStatus check(const CommonOptions& common, const CheckOptions& options) {
    Sites sites(common.only());
    SiteFactsCache facts;
    const auto report = CheckReport::make(options.form());
    report->begin();
    FailureLines lines("not checked");
    PageRun run(options.run, [&](const std::string& page, const PageFailure& failure) {
        if (failure.of == PageFailure::Of::Site) lines.printMissingConfiguration(sites, page);
        report->failure(page, failure, lines);
    });
    PageTotals& totals = run.totals();
    Baseline baseline(options.baseline, Baseline::Page);
    std::size_t errors = 0;
    run.over<InspectedPage>(
        [&](const std::filesystem::path& page) { return inspectPage(page, sites, facts); },
        [&](const PageRun::Page& page, const InspectedPage& inspected) {
            if (baseline.isUsed() && !inspected.failure)
                baseline.lookAt(baseline.nameOf(page.name));
            for (const Finding& finding : inspected.findings) {
                if (baseline.isUsed() && baseline.has(entryOf(finding, baseline))) continue;
                ++totals.found;
                errors += finding.severity == Severity::Error ? 1 : 0;
                report->finding(finding);
            }
            if (inspected.failure) {
                run.fail(page.name, *inspected.failure);
            } else if (!inspected.hasControl && page.named) {
                printMessage(page.name, HoldsNoControl);
            }
        });
    if (totals.left == 0) baseline.end(options.run.quiet);
    report->end(totals, errors);
    lines.end();
    run.end(counted(totals.pages, "page") + " looked at: " + counted(errors, "error") + ", " +
            counted(totals.found - errors, "warning") + ", " + std::to_string(totals.failed) +
            " not checked");
    return totals.status(true);
}

}  // namespace

void addCheck(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App& command = addCommand(
        app, "check", "Look for faults in pages",
        R"(Nothing is written. Each finding has its page, line, control, query family, row and rule,
and what to do.

Examples:
  headerdtc check site/                    all pages of a site
  headerdtc check --sarif site/ >log.sarif for editors, code hosts and build servers
  headerdtc check --rules                  what is looked for
  headerdtc check --baseline known.json --update-baseline site/
  headerdtc check --baseline known.json site/
                                           only what is new since then

Exit status: 0 nothing found, 1 something found, 2 wrong usage or configuration,
3 at least one page could not be checked, 130 interrupted.)");
    auto* paths =
        addPathList(command, options->run.paths, "pages, or folders with pages (*.asp, *.inc)");
    auto* json = command.add_flag("--json", options->json, "one JSON object a finding");
    auto* sarif = command.add_flag("--sarif", options->sarif, "a SARIF 2.1.0 log");
    auto* rules = command.add_flag("--rules", options->listRules, "list the rules and end");
    addBaselineOptions(command, options->baseline);
    addRunOptions(command, options->run);
    json->excludes(sarif);
    rules->excludes(paths);
    command.callback([&line, options] {
        if (!options->listRules && options->run.paths.empty()) throw CLI::RequiredError("PATH");
        line.run = [&line, options] {
            if (!options->listRules) return check(line.common, *options);
            listRules(false);
            return Done;
        };
    });
}

}  // namespace headerdtc::cli
