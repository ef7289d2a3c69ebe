#pragma once

#include "cli/page_run.h"
#include "host/files/file_replacer.h"
#include "host/generation/page_change.h"
#include "host/site/site.h"

#include <filesystem>
#include <functional>
#include <string>

namespace headerdtc::cli {

// What a command would change in many pages: told page by page, as differences where nothing else
// is wanted, and written at the end where that is asked for. After Ctrl-C nothing is.
class PageChanges {
  public:
    struct Options {
        bool apply = false;
        bool showsDifferences = true;
    };
    PageChanges(Sites& sites, const PageRunOptions& run, Options options, PageRun::Fail say);

    // Works on each page, on several threads, and tells of each: whatever `tell` says, then why it
    // is not done, or what would change. False: it was interrupted.
    template <class Change>
    bool over(const std::function<Change(const std::filesystem::path&)>& work,
              const std::function<void(const PageRun::Page&, const Change&)>& tell) {
        run_.over<Change>(work, [&](const PageRun::Page& page, const Change& change) {
            if (change.outcome == PageChange::Outcome::Failed)
                lines_.printMissingConfiguration(sites_, page.name);
            tell(page, change);
            say(page.name, change);
            if (change.outcome == PageChange::Outcome::Changed) take(page.name, change);
        });
        return end();
    }

    PageTotals& totals() { return run_.totals(); }
    // A page could not be done.
    void fail(const std::string& page, const std::string& why);
    // Writes the pages, where that is wanted.
    void write();
    // "3 pages would be changed, 1 not done; --apply writes them"
    std::string summary() const;
    ExitStatus status() const { return run_.totals().status(!options_.apply); }

  private:
    void say(const std::string& page, const PageChange& change);
    void take(const std::string& page, const PageChange& change);
    bool end();

    Sites& sites_;
    const Options options_;
    const PageRun::Fail say_;
    FailureLines lines_;
    PageRun run_;
    FileReplacer replacer_;
};

}  // namespace headerdtc::cli
