#pragma once

#include "cli/streams.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace CLI {
class App;
}

namespace headerdtc::cli {

struct BaselineOptions {
    std::string file;     // empty: there is none
    bool update = false;  // write what is found into it, in the place of telling it
};

void addBaselineOptions(CLI::App& command, BaselineOptions& options);

// Findings that somebody has looked at and lives with, in a file: a JSON array with an object of
// texts for each. They say what was found and in what, never on which line, so that they last when
// something else is changed. One entry stands for one finding.
class Baseline {
  public:
    using Entry = JsonLines::Json;
    static constexpr const char* Page = "page";

    // `scope` is the key of what a run looks at, Page or another: entries of what this run does not
    // look at stay. Throws UsageError for a file that is no baseline, or is not there to be used.
    Baseline(const BaselineOptions& options, std::string scope);

    bool isUsed() const { return !options_.file.empty(); }
    // A page's name as entries have it: as it is reached from the file.
    std::string nameOf(const std::string& page) const;
    void lookAt(const std::string& scope) { scopes_.insert(scope); }
    // Whether a finding is not to be told.
    bool has(const Entry& finding);
    // After all is told: writes the file, or tells of entries that were not found any more. Throws
    // FileError.
    void end(bool quiet);

  private:
    bool isLookedAt(const std::string& entry) const;

    const BaselineOptions& options_;
    const std::string scope_;
    std::map<std::string, int> entries_;  // as they stand in the file; how many were not found yet
    std::multiset<std::string> found_;
    std::set<std::string> scopes_;
};

}  // namespace headerdtc::cli
