#include "cli/page_changes.h"

#include "cli/diff_output.h"
#include "cli/streams.h"

#include <cstdio>

namespace headerdtc::cli {

using Outcome = PageChange::Outcome;

PageChanges::PageChanges(Sites& sites, const PageRunOptions& run, Options options,
                         PageRun::Fail say)
    : sites_(sites), options_(options), say_(std::move(say)), run_(run, say_) {}

void PageChanges::say(const std::string& page, const PageChange& change) {
    const bool isConfigured = change.outcome != Outcome::NotConfigured;
    if (!isConfigured || change.outcome == Outcome::Failed) ++totals().failed;
    if (!isConfigured) totals().misconfigured = true;
    for (const std::string& failure : change.failures)
        say_(page,
             {isConfigured ? PageFailure::Of::Page : PageFailure::Of::Configuration, failure});
}

void PageChanges::take(const std::string& page, const PageChange& change) {
    if (options_.showsDifferences)
        printDiff(page, change.before, change.after, sites_.forPage(page)->configuration->codePage);
    try {
        if (options_.apply) replacer_.replace(page, change.after, change.stamp);
        ++totals().found;
    } catch (const FileError& error) {
        fail(page, error.problem());
    }
}

bool PageChanges::end() {
    run_.end({});
    if (!PageRun::interrupted()) return true;
    printLine(stderr, "nothing was written");
    return false;
}

void PageChanges::fail(const std::string& page, const std::string& why) {
    run_.fail(page, {PageFailure::Of::Page, why});
}

void PageChanges::write() {
    for (const auto& outcome : replacer_.commit()) {
        if (outcome.problem.empty()) continue;
        --totals().found;
        fail(outcome.path.string(), outcome.problem);
    }
}

std::string PageChanges::summary() const {
    const PageTotals& totals = run_.totals();
    return counted(totals.found, "page") + (options_.apply ? " changed, " : " would be changed, ") +
           std::to_string(totals.failed) + " not done" +
           (totals.found > 0 && !options_.apply ? "; --apply writes them" : "");
}

}  // namespace headerdtc::cli
