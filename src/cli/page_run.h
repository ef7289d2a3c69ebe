#pragma once

#include "cli/command.h"
#include "host/generation/ordered_run.h"
#include "host/generation/page_change.h"
#include "host/generation/site_pages.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class Option;
}

namespace headerdtc {
class Sites;
}

namespace headerdtc::cli {

// The pages and folders of a command: its words, and the lines of a file (--files-from).
struct PathList {
    std::vector<std::string> words;
    std::string file;

    // The pages of both. Throws UsageError when the file cannot be read.
    SitePages pages() const;
    // As a shell takes them again.
    std::string inWords() const;
    // Neither words nor a file.
    bool empty() const { return words.empty() && file.empty(); }
};

// Options of commands that go over many pages.
struct PageRunOptions {
    PathList paths;
    bool quiet = false;
    int jobs = 0;  // 0: one for each core
};

// Adds words and file of a path list to a command; returns the option of the words.
CLI::Option* addPathList(CLI::App& command, PathList& paths, const std::string& description);
// Adds those that say how a run goes: --quiet and --jobs.
void addRunOptions(CLI::App& command, PageRunOptions& options);

// What a run over many pages came to.
struct PageTotals {
    std::size_t pages = 0;   // looked at
    std::size_t found = 0;   // whatever the command looks for
    std::size_t failed = 0;  // pages, and paths, that could not be done
    std::size_t left = 0;    // not come to, when it was interrupted
    bool misconfigured = false;

    // Failing outranks what was found, wrong configuration both. `counts`: to find something is an
    // outcome of its own.
    ExitStatus status(bool counts) const;
};

// Failures of pages on standard error. What is wrong with a whole site is said once, at the end,
// with the number of its pages.
class FailureLines {
  public:
    // `undone`: what becomes of the pages of a site with which something is wrong, "not checked".
    explicit FailureLines(std::string undone = "not done") : undone_(std::move(undone)) {}

    static constexpr const char* WhereToLook =
        "'headerdtc doctor' looks at the whole set-up of a site";

    // That no headerdtc.toml holds for a page, which may be why what follows is said. Once.
    void printMissingConfiguration(Sites& sites, const std::filesystem::path& page);
    void print(const std::string& page, const PageFailure& failure);
    // One more page with a cause that others may have too.
    void count(const std::string& cause) { ++causes_[cause]; }
    // Tells the causes: all, or where each page has said its own, those of several pages. Then what
    // looks further into them.
    void end(bool isEachSaid = false);

  private:
    const std::string undone_;
    bool isMissingSaid_ = false;
    std::set<std::string> said_;
    std::map<std::string, std::size_t> causes_;  // with the number of their pages
};

// A command's way over many pages: side by side, told in order, with the progress in the last line
// of a terminal. The first Ctrl-C ends it after the pages in work, a second one the program.
class PageRun {
  public:
    using Fail = std::function<void(const std::string& page, const PageFailure& failure)>;
    // A page that is told of; named: in so many words, rather than found below a folder.
    struct Page {
        std::string name;
        bool named;
    };

    // Tells of the paths that could not be looked into.
    PageRun(const PageRunOptions& options, Fail fail);
    PageRun(const PageRun&) = delete;
    PageRun& operator=(const PageRun&) = delete;
    ~PageRun();

    const std::vector<std::filesystem::path>& pages() const { return site_.pages; }
    PageTotals& totals() { return totals_; }
    const PageTotals& totals() const { return totals_; }

    // Works on each page, on several threads, and tells of each.
    template <class Result>
    void over(const std::function<Result(const std::filesystem::path&)>& work,
              const std::function<void(const Page&, const Result&)>& tell) {
        runInOrder<Result>(
            pages().size(), jobs_, [&](std::size_t page) { return work(pages()[page]); },
            [&](std::size_t page, const Result& result) { tell(come(page), result); },
            [&](std::size_t finished) { return goesOn(finished); });
    }
    // The pieces of that, for a loop of one's own: a page is come to, in order, in order to be told
    // of; whether to go on with so many finished.
    Page come(std::size_t page);
    bool goesOn(std::size_t finished);

    // Whether Ctrl-C was pressed, be it so late that no page is left.
    static bool interrupted();
    // A page could not be done.
    void fail(const std::string& page, const PageFailure& failure);
    // After all is told: the summary for whoever has watched the progress, and what is left.
    void end(const std::string& summary);

  private:
    class Watch;

    SitePages site_;
    int jobs_;
    bool tellsOfNone_;  // that no page was found where some were asked for
    Fail fail_;
    PageTotals totals_;
    std::unique_ptr<Watch> watch_;
};

}  // namespace headerdtc::cli
