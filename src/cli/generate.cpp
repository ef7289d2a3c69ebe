#include "cli/commands.h"
#include "cli/progress.h"
#include "host/generation/site_generation.h"
#include "host/generation/site_pages.h"
#include "host/page/page_session.h"
#include "host/quiet_host.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace headerdtc::cli {
namespace {

using Verdict = GeneratedPage::Verdict;

void printLine(std::FILE* stream, const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
}

void printMessage(const std::string& page, const std::string& message) {
    std::string line = page;
    line.append(": ").append(message);
    printLine(stderr, line);
}

// What a run came to, page by page, and the exit status that follows from all of it.
class Outcome {
  public:
    Outcome(const SitePages& pages, const GenerateOptions& options)
        : pages_(pages), options_(options) {}

    void take(const SiteGeneration::Done& done) {
        const std::string page = pages_.pages[done.index].string();
        for (const std::string& message : done.page.messages)
            say(page, message, done.page.verdict);
        switch (done.page.verdict) {
            case Verdict::NoControl:
                if (pages_.named[done.index])
                    printLine(stderr, page + ": holds no HeaderDTC control");
                break;
            case Verdict::UpToDate:
                break;
            case Verdict::Stale:
                ++stale_;
                printLine(stdout, page);
                break;
            case Verdict::NotConfigured:
                misconfigured_ = true;
                ++failed_;
                break;
            case Verdict::LeftAlone:
            case Verdict::NotReadable:
                ++failed_;
                break;
        }
    }

    ExitStatus status() const {
        if (misconfigured_) return WrongUsage;
        if (failed_ > 0) return PageNotDone;
        return options_.check && stale_ > 0 ? CheckFoundSomething : Done;
    }
    void fail() { ++failed_; }

    std::string summary() const {
        const char* found = options_.check ? " out of date, " : " written, ";
        return std::to_string(pages_.pages.size()) + " pages looked at: " + std::to_string(stale_) +
               found + std::to_string(failed_) + " not done";
    }

  private:
    void say(const std::string& page, const std::string& message, Verdict verdict) {
        if (verdict != Verdict::NotConfigured) return printMessage(page, message);
        // One wrong configuration is said once, not for each of its pages.
        if (said_.insert(message).second) printLine(stderr, message);
    }

    const SitePages& pages_;
    const GenerateOptions& options_;
    std::set<std::string> said_;
    std::size_t stale_ = 0, failed_ = 0;
    bool misconfigured_ = false;
};

// Every control's runtime text to standard output, in the page's code page.
ExitStatus print(Sites& sites, const std::string& page) {
    const auto site = sites.forPage(page);
    const PageMarkup markup(page, readWholeFile(page).bytes, site->configuration->codePage);
    if (markup.controls().empty()) {
        printLine(stderr, page + ": holds no HeaderDTC control");
        return PageNotDone;
    }
    bool failed = false;
    for (const ControlSpan& span : markup.controls()) {
        QuietHost host;
        OpenControl control(site, page, span, host.faces());
        const MadeContent made = control.content();
        for (const std::string& message : host.messages)
            printMessage(page, message);
        failed = failed || !made.errors.empty();
        const std::string bytes = markup.codePage().encodeWithReferences(made.content.runtimeText);
        std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    }
    return failed ? PageNotDone : Done;
}

}  // namespace

int generate(const CommonOptions& common, const GenerateOptions& options) {
    Sites sites(common.only());
    if (options.print) {
        if (options.paths.size() != 1) {
            printLine(stderr, "headerdtc: --print takes one page");
            return WrongUsage;
        }
        return guarded([&] { return print(sites, options.paths.front()); });
    }

    const SitePages pages = findSitePages(options.paths);
    Outcome outcome(pages, options);
    for (const std::string& problem : pages.problems) {
        printLine(stderr, problem);
        outcome.fail();
    }
    SiteGeneration generation(
        sites, {.mode = options.check ? SiteGeneration::Mode::Check : SiteGeneration::Mode::Write,
                .guard = options.force ? LossGuard::SaveAnyway : LossGuard::Refuse,
                .jobs = options.jobs});
    Progress progress(pages.pages.size(), options.quiet);
    generation.run(
        pages.pages,
        [&](const SiteGeneration::Done& done) {
            progress.hide();
            outcome.take(done);
        },
        [&](std::size_t finished) { progress.show(finished); });
    progress.end(outcome.summary());
    return outcome.status();
}

}  // namespace headerdtc::cli
