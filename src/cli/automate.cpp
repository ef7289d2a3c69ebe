#include "cli/command.h"
#include "cli/page_changes.h"
#include "cli/streams.h"
#include "host/automation/automation_session.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace headerdtc::cli {
namespace {

struct AutomateOptions {
    std::vector<std::string> words;  // a page; with `over`: pages and folders, then the script
    std::string control;             // ID; empty: each page's only or first control
    bool over = false;
    bool apply = false;
    PageRunOptions run;
    std::string script;  // a file; "-": standard input

    void choose() {
        if (over && words.size() < 2)
            throw CLI::ValidationError("--over takes pages or folders, then the script");
        if (!over && words.size() != 1)
            throw CLI::ValidationError("automate takes one page, or --over PATH... SCRIPT");
        script = words.back();
        run.paths.words.assign(words.begin(), words.end() - 1);
    }
};

// One page is driven over standard input and output.
ExitStatus automate(const CommonOptions& common, const AutomateOptions& options) {
    Sites sites(common.only());
    const std::string& page = options.words.front();
    FailureLines().printMissingConfiguration(sites, page);
    std::ios::sync_with_stdio(false);
    const bool opened = automatePage(sites, page, options.control, std::cin, std::cout);
    // The control's own message does not say what to do.
    const std::string failure = sites.forPage(page)->registry.lastFailure();
    if (!failure.empty()) printMessage(page, failure);
    return opened ? Done : PageNotDone;
}

// Shows what a script would change, page by page, and writes it where that is wanted.
ExitStatus replayOver(Sites& sites, const AutomateOptions& options, const std::string& script) {
    FailureLines failures;
    PageChanges changes(sites, options.run, {.apply = options.apply},
                        [&](auto& page, auto& failure) { failures.print(page, failure); });
    const bool isWhole = changes.over<PageChange>(
        [&](const std::filesystem::path& page) {
            return replayOnPage(sites, page, options.control, script);
        },
        [&](const PageRun::Page& page, const PageChange& replayed) {
            for (const std::string& message : replayed.messages)
                printMessage(page.name, message);
            // Of those found in folders not every one has to have the control.
            if (replayed.outcome != PageChange::Outcome::NoControl || !page.named) return;
            if (options.control.empty()) return printMessage(page.name, HoldsNoControl);
            changes.fail(page.name, "there is no control with the ID '" + options.control + "'");
        });
    if (!isWhole) return Interrupted;
    changes.write();
    if (!options.run.quiet) printLine(stderr, changes.summary());
    return changes.status();
}

ExitStatus replay(const CommonOptions& common, const AutomateOptions& options) {
    const std::string script = readInput(options.script);
    if (!scriptSaves(script)) {
        printLine(stderr,
                  options.script + ": the script saves no page; end it with {\"do\":\"save\"}");
        return WrongUsage;
    }
    Sites sites(common.only());
    return replayOver(sites, options, script);
}

}  // namespace

void addAutomate(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<AutomateOptions>();
    CLI::App& command = addCommand(
        app, "automate", "Drive the editor by name: JSON commands on standard input",
        R"(With --over, what the script would save is shown as a difference and, without --apply,
nothing is written. Neither the translation database nor any other file is changed.

Examples:
  headerdtc automate page.asp <steps       one JSON object a line, one back for each
  headerdtc automate --over site/ steps    what the steps would change in every page
  headerdtc automate --over --apply site/orders/ steps

Exit status: 0 done, 2 wrong usage or configuration, 3 the page cannot be opened; with --over:
0 done or nothing to change, 1 pages would be changed, 2 wrong usage or configuration, 3 a line
of the script was refused, or a page could not be done, 130 interrupted, nothing written.)");
    command
        .add_option("PAGE", options->words,
                    "the page; with --over: pages or folders, then the script (- for standard\n"
                    "input)")
        ->type_name(FileType)
        ->required();
    command.add_option("--control", options->control, "ID of the control");
    auto* over = command.add_flag("--over", options->over, "replay a script over many pages");
    command
        .add_flag("--apply", options->apply,
                  "with --over: write the pages, after showing the difference")
        ->needs(over);
    addRunOptions(command, options->run);
    command.callback([&line, options] {
        options->choose();
        line.run = [&line, options] {
            return options->over ? replay(line.common, *options) : automate(line.common, *options);
        };
    });
}

}  // namespace headerdtc::cli
