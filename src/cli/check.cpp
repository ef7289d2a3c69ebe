#include "cli/check_report.h"
#include "cli/command.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "host/inspection/rules/page_inspection.h"
#include "host/inspection/rules/rule_table.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

namespace headerdtc::cli {
namespace {

struct CheckOptions {
    PageRunOptions run;
    bool listRules = false;
    bool json = false, sarif = false, annotations = false;

    CheckReport::Form form() const {
        using enum CheckReport::Form;
        return json ? Json : sarif ? Sarif : annotations ? Annotations : Text;
    }
};

ExitStatus listRules() {
    for (const Rule& rule : inspectionRules()) {
        std::printf("%-24s %-8s %s\n", std::string(rule.id).c_str(),
                    std::string(nameOf(rule.severity)).c_str(), std::string(rule.summary).c_str());
    }
    return Done;
}

ExitStatus check(const CommonOptions& common, const CheckOptions& options) {
    Sites sites(common.only());
    SiteFactsCache facts;
    const auto report = CheckReport::make(options.form());
    report->begin();
    PageRun run(options.run, [&](const std::string& page, const PageFailure& failure) {
        report->failure(page, failure);
    });
    PageTotals& totals = run.totals();
    std::size_t errors = 0;
    run.over<InspectedPage>(
        [&](const std::filesystem::path& page) { return inspectPage(page, sites, facts); },
        [&](const PageRun::Page& page, const InspectedPage& inspected) {
            for (const Finding& finding : inspected.findings) {
                ++totals.found;
                errors += finding.severity == Severity::Error ? 1 : 0;
                report->finding(finding);
            }
            if (inspected.failure) {
                run.fail(page.name, *inspected.failure);
            } else if (!inspected.hasControl && page.named) {
                printMessage(page.name, "holds no HeaderDTC control");
            }
        });
    report->end(totals, errors);
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
  headerdtc check --sarif site/ >log.sarif for a tool that gathers results
  headerdtc check --rules                  what is looked for

Exit status: 0 nothing found, 1 something found, 2 wrong usage or configuration,
3 at least one page could not be checked, 130 interrupted.)");
    auto* paths =
        addPathList(command, options->run.paths, "pages, or folders with pages (*.asp, *.inc)");
    auto* json = command.add_flag("--json", options->json, "one JSON object a finding");
    auto* sarif = command.add_flag("--sarif", options->sarif, "a SARIF 2.1.0 log");
    auto* annotations = command.add_flag("--annotations", options->annotations,
                                         "lines that build servers show beside the page");
    auto* rules = command.add_flag("--rules", options->listRules, "list the rules and end");
    addRunOptions(command, options->run);
    json->excludes(sarif)->excludes(annotations);
    sarif->excludes(annotations);
    rules->excludes(paths);
    command.callback([&line, options] {
        if (!options->listRules && options->run.paths.empty()) throw CLI::RequiredError("PATH");
        line.run = [&line, options] {
            return options->listRules ? listRules() : check(line.common, *options);
        };
    });
}

}  // namespace headerdtc::cli
