#include "cli/command.h"
#include "cli/diff_output.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "host/automation/automation_session.h"
#include "host/automation/replay.h"
#include "host/files/file_replacer.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace headerdtc::cli {
namespace {

using Outcome = ReplayedPage::Outcome;

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
    std::ios::sync_with_stdio(false);
    const bool opened = automatePage(sites, page, options.control, std::cin, std::cout);
    // The control's own message does not say what to do.
    const std::string failure = sites.forPage(page)->registry.lastFailure();
    if (!failure.empty()) printMessage(page, failure);
    return opened ? Done : PageNotDone;
}

// Shows what a script would change, page by page, and writes it where that is wanted.
class Replay {
  public:
    Replay(Sites& sites, const AutomateOptions& options)
        : sites_(sites),
          options_(options),
          run_(options.run, [this](auto& page, auto& failure) { failures_.print(page, failure); }) {
    }

    ExitStatus over(const std::string& script) {
        run_.over<ReplayedPage>(
            [&](const std::filesystem::path& page) {
                return replayOnPage(sites_, page, options_.control, script);
            },
            [&](const PageRun::Page& page, const ReplayedPage& replayed) { take(page, replayed); });
        run_.end({});
        if (PageRun::interrupted()) {
            printLine(stderr, "nothing was written");
            return Interrupted;
        }
        write();
        return run_.totals().status(!options_.apply);
    }

  private:
    void take(const PageRun::Page& page, const ReplayedPage& replayed) {
        for (const std::string& message : replayed.messages)
            printMessage(page.name, message);
        const bool configured = replayed.outcome != Outcome::NotConfigured;
        for (const std::string& failure : replayed.failures)
            failures_.print(
                page.name,
                {configured ? PageFailure::Of::Page : PageFailure::Of::Configuration, failure});
        switch (replayed.outcome) {
            case Outcome::NoControl:
                if (page.named) missControl(page.name);
                break;
            case Outcome::Unchanged:
                break;
            case Outcome::Changed:
                change(page.name, replayed);
                break;
            case Outcome::NotConfigured:
                run_.totals().misconfigured = true;
                [[fallthrough]];
            case Outcome::Failed:
                ++run_.totals().failed;
                break;
        }
    }

    // Of a page that was named; of those found in folders not every one has to have it.
    void missControl(const std::string& page) {
        if (options_.control.empty()) return printMessage(page, "holds no HeaderDTC control");
        fail(page, "there is no control with the ID '" + options_.control + "'");
    }

    void change(const std::string& page, const ReplayedPage& replayed) {
        ++run_.totals().found;
        printDiff(page, replayed.before, replayed.after,
                  sites_.forPage(page)->configuration->codePage);
        if (!options_.apply) return;
        try {
            replacer_.replace(page, replayed.after, replayed.stamp);
        } catch (const FileError& error) {
            fail(page, error.problem());
        }
    }

    void write() {
        for (const auto& outcome : replacer_.commit()) {
            if (!outcome.problem.empty()) fail(outcome.path.string(), outcome.problem);
        }
        if (options_.run.quiet) return;
        const PageTotals& totals = run_.totals();
        printLine(stderr, counted(totals.found, "page") +
                              (options_.apply ? " changed, " : " would be changed, ") +
                              std::to_string(totals.failed) + " not done" +
                              (totals.found > 0 && !options_.apply ? "; --apply writes them" : ""));
    }

    void fail(const std::string& page, const std::string& why) {
        run_.fail(page, {PageFailure::Of::Page, why});
    }

    Sites& sites_;
    const AutomateOptions& options_;
    FailureLines failures_;
    PageRun run_;
    FileReplacer replacer_;
};

ExitStatus replay(const CommonOptions& common, const AutomateOptions& options) {
    const std::string script = readInput(options.script);
    if (!scriptSaves(script)) {
        printLine(stderr,
                  options.script + ": the script saves no page; end it with {\"do\":\"save\"}");
        return WrongUsage;
    }
    Sites sites(common.only());
    return Replay(sites, options).over(script);
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
