#include "cli/generate_json.h"

#include "cli/diff_output.h"
#include "host/diff/unified_diff.h"

namespace headerdtc::cli {
namespace {

using Verdict = GeneratedPage::Verdict;

const char* statusOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::NoControl:
            return "no-control";
        case Verdict::UpToDate:
            return "up-to-date";
        case Verdict::Stale:
            return "stale";
        case Verdict::LeftAlone:
            return "left-alone";
        case Verdict::NotReadable:
            return "not-readable";
        case Verdict::NotConfigured:
            break;
    }
    return "not-configured";
}

}  // namespace

void GenerateJson::begin() {
    lines_.begin("generate");
}

void GenerateJson::problem(const std::string& text) {
    lines_.write({{"type", "problem"}, {"message", text}});
}

void GenerateJson::page(const std::string& page, bool, const SiteGeneration::Done& done) {
    JsonLines::Json line = {{"type", "page"},
                            {"page", page},
                            {"status", done.written ? "written" : statusOf(done.page.verdict)},
                            {"messages", done.page.messages}};
    if (options_.check && done.page.verdict == Verdict::Stale) {
        line["line"] = firstDifferentLine(done.page.before, done.page.after);
        if (options_.diff) line["diff"] = diffOf(page, done.page);
    }
    lines_.write(line);
}

std::string GenerateJson::diffOf(const std::string& page, const GeneratedPage& made) {
    const CodePage& codePage =
        codePageOf(made.before, sites_.forPage(page)->configuration->codePage);
    return codePage.decode(unifiedDiff(page, made.before, made.after));
}

void GenerateJson::end(const GenerateTotals& totals) {
    lines_.write({{"type", "summary"},
                  {"pages", totals.pages},
                  {options_.check ? "stale" : "written", totals.stale},
                  {"failed", totals.failed},
                  {"exitStatus", totals.status(options_)}});
}

}  // namespace headerdtc::cli
