#include "cli/generate_report.h"

#include "cli/diff_output.h"
#include "cli/generate_json.h"
#include "cli/output.h"

#include <set>

namespace headerdtc::cli {
namespace {

using Verdict = GeneratedPage::Verdict;

// For people: the pages, or what would change in them, on standard output, everything said of them
// on standard error.
class TextReport : public GenerateReport {
  public:
    TextReport(Sites& sites, const GenerateOptions& options) : sites_(sites), options_(options) {}

    void problem(const std::string& text) override { printLine(stderr, text); }

    void page(const std::string& page, bool named, const SiteGeneration::Done& done) override {
        const Verdict verdict = done.page.verdict;
        for (const std::string& message : done.page.messages)
            say(page, message, verdict);
        if (verdict == Verdict::NoControl && named)
            printMessage(page, "holds no HeaderDTC control");
        if (verdict != Verdict::Stale) return;
        if (!options_.diff) return printLine(stdout, page);
        const auto site = sites_.forPage(page);
        printDiff(page, done.page.before, done.page.after, site->configuration->codePage);
    }

  private:
    void say(const std::string& page, const std::string& message, Verdict verdict) {
        if (verdict != Verdict::NotConfigured) return printMessage(page, message);
        // One wrong configuration is said once, not for each of its pages.
        if (said_.insert(message).second) printLine(stderr, message);
    }

    Sites& sites_;
    const GenerateOptions& options_;
    std::set<std::string> said_;
};

}  // namespace

void GenerateTotals::add(Verdict verdict) {
    switch (verdict) {
        case Verdict::NoControl:
        case Verdict::UpToDate:
            break;
        case Verdict::Stale:
            ++stale;
            break;
        case Verdict::NotConfigured:
            misconfigured = true;
            ++failed;
            break;
        case Verdict::LeftAlone:
        case Verdict::NotReadable:
            ++failed;
            break;
    }
}

ExitStatus GenerateTotals::status(const GenerateOptions& options) const {
    if (left > 0) return Interrupted;
    if (misconfigured) return WrongUsage;
    if (failed > 0) return PageNotDone;
    return options.check && stale > 0 ? CheckFoundSomething : Done;
}

std::string GenerateTotals::summary(const GenerateOptions& options) const {
    return std::to_string(pages) + " pages looked at: " + std::to_string(stale) +
           (options.check ? " out of date, " : " written, ") + std::to_string(failed) + " not done";
}

std::unique_ptr<GenerateReport> makeGenerateReport(Sites& sites, const GenerateOptions& options) {
    if (options.json) return std::make_unique<GenerateJson>(sites, options);
    return std::make_unique<TextReport>(sites, options);
}

}  // namespace headerdtc::cli
