#include "host/automation/replay.h"

#include "cli/diff_output.h"
#include "cli/input.h"
#include "cli/interruption.h"
#include "cli/output.h"
#include "cli/site_commands.h"
#include "host/files/file_replacer.h"
#include "host/generation/site_pages.h"
#include "host/inspection/ordered_run.h"

#include <set>

namespace headerdtc::cli {
namespace {

using Outcome = ReplayedPage::Outcome;

// Shows what a script would change, page by page, and writes it where that is wanted.
class Replay {
  public:
    Replay(Sites& sites, const ReplayOptions& options) : sites_(sites), options_(options) {}

    void take(const std::string& page, bool named, const ReplayedPage& replayed) {
        for (const std::string& message : replayed.messages)
            printMessage(page, message);
        for (const std::string& failure : replayed.failures) {
            if (replayed.outcome != Outcome::NotConfigured) {
                printMessage(page, failure);
            } else if (said_.insert(failure).second) {
                // One wrong configuration is said once, not for each of its pages.
                printLine(stderr, failure);
            }
        }
        switch (replayed.outcome) {
            case Outcome::NoControl:
                if (named) missControl(page);
                break;
            case Outcome::Unchanged:
                break;
            case Outcome::Changed:
                change(page, replayed);
                break;
            case Outcome::NotConfigured:
                misconfigured_ = true;
                ++failed_;
                break;
            case Outcome::Failed:
                ++failed_;
                break;
        }
    }

    void end() {
        for (const auto& outcome : replacer_.commit()) {
            if (outcome.problem.empty()) continue;
            ++failed_;
            printMessage(outcome.path.string(), outcome.problem);
        }
        printLine(stderr, counted(changed_, "page") +
                              (options_.apply ? " changed, " : " would be changed, ") +
                              std::to_string(failed_) + " not done" +
                              (changed_ > 0 && !options_.apply ? "; --apply writes them" : ""));
    }

    void fail() { ++failed_; }

    ExitStatus status() const {
        if (misconfigured_) return WrongUsage;
        if (failed_ > 0) return PageNotDone;
        return changed_ > 0 && !options_.apply ? CheckFoundSomething : Done;
    }

  private:
    // Of a page that was named; of those found in folders not every one has to have it.
    void missControl(const std::string& page) {
        if (options_.control.empty()) return printMessage(page, "holds no HeaderDTC control");
        ++failed_;
        printMessage(page, "there is no control with the ID '" + options_.control + "'");
    }

    void change(const std::string& page, const ReplayedPage& replayed) {
        ++changed_;
        printDiff(page, replayed.before, replayed.after,
                  sites_.forPage(page)->configuration->codePage);
        if (!options_.apply) return;
        try {
            replacer_.replace(page, replayed.after, replayed.stamp);
        } catch (const FileError& error) {
            ++failed_;
            printMessage(page, error.problem());
        }
    }

    Sites& sites_;
    const ReplayOptions& options_;
    FileReplacer replacer_;
    std::set<std::string> said_;
    std::size_t changed_ = 0, failed_ = 0;
    bool misconfigured_ = false;
};

}  // namespace

int replay(const CommonOptions& common, const ReplayOptions& options) {
    return guarded([&] {
        const std::string script = readInput(options.script);
        if (!scriptSaves(script)) {
            printLine(stderr,
                      options.script + ": the script saves no page; end it with {\"do\":\"save\"}");
            return WrongUsage;
        }
        Sites sites(common.only());
        const SitePages pages = findSitePages(options.paths);
        Replay replay(sites, options);
        for (const auto& problem : pages.problems) {
            printLine(stderr, problem.text());
            replay.fail();
        }
        const Interruption interruption;
        const std::size_t done = runInOrder<ReplayedPage>(
            pages.pages.size(), options.jobs,
            [&](std::size_t page) {
                return replayOnPage(sites, pages.pages[page], options.control, script);
            },
            [&](std::size_t page, const ReplayedPage& replayed) {
                replay.take(pages.pages[page].string(), pages.named[page], replayed);
            },
            [](std::size_t) { return !Interruption::seen(); });
        if (done < pages.pages.size()) {
            tellOfPagesLeft(pages, done);
            printLine(stderr, "nothing was written");
            return Interrupted;
        }
        replay.end();
        return replay.status();
    });
}

}  // namespace headerdtc::cli
