#include "cli/failure_lines.h"
#include "cli/interruption.h"
#include "cli/json_lines.h"
#include "cli/output.h"
#include "cli/site_commands.h"
#include "host/generation/site_pages.h"
#include "host/inspection/ordered_run.h"
#include "host/inspection/where_used.h"

namespace headerdtc::cli {
namespace {

// What looking into a site came to.
struct WhereTotals {
    std::size_t pages = 0, pagesUsing = 0, uses = 0, failed = 0;
    std::size_t left = 0;  // not come to, when it was interrupted
    bool misconfigured = false;

    ExitStatus status() const {
        if (left > 0) return Interrupted;
        if (misconfigured) return WrongUsage;
        return failed > 0 ? PageNotDone : Done;
    }
};

class WhereReport {
  public:
    explicit WhereReport(bool json) : json_(json) {
        if (json_) lines_.begin("where");
    }

    void use(const std::string& page, const Use& use) {
        if (json_) return lines_.write(jsonOf(page, use));
        std::string line = page + ":" + std::to_string(use.line) + ": " + use.control + ", ";
        if (use.family) line += std::string(traitsOf(*use.family).prefix) + " ";
        line += nameOf(use.role);
        if (use.item.row > 0) line += " " + std::to_string(use.item.row);
        printLine(stdout, line + ": " + visible(use.item.text));
    }

    void failure(const std::string& page, const PageFailure& failure) {
        if (!json_) return failures_.print(page, failure);
        lines_.write({{"type", "failure"}, {"page", page}, {"message", failure.text}});
    }

    void end(const WhereTotals& totals) {
        if (!json_) return;
        lines_.write({{"type", "summary"},
                      {"pages", totals.pages},
                      {"pagesUsing", totals.pagesUsing},
                      {"uses", totals.uses},
                      {"failed", totals.failed},
                      {"exitStatus", totals.status()}});
    }

  private:
    static JsonLines::Json jsonOf(const std::string& page, const Use& use) {
        JsonLines::Json line = {{"type", "use"},
                                {"page", page},
                                {"line", use.line},
                                {"control", use.control},
                                {"role", keyOf(use.role)}};
        if (use.family) line["family"] = traitsOf(*use.family).prefix;
        if (use.item.row > 0) line["row"] = use.item.row;
        line["property"] = use.item.property;
        line["value"] = use.item.text;
        return line;
    }

    bool json_;
    JsonLines lines_;
    FailureLines failures_;
};

}  // namespace

int where(const CommonOptions& common, const WhereOptions& options) {
    Sites sites(common.only());
    WhereUsed whereUsed(sites, options.query);
    const SitePages pages = options.paths.empty() ? findSitePages({"."}) : options.paths.pages();
    WhereReport report(options.json);
    WhereTotals totals{.pages = pages.pages.size()};
    for (const auto& problem : pages.problems) {
        ++totals.failed;
        report.failure(problem.path, {PageFailure::Of::Page, problem.reason});
    }
    const Interruption interruption;
    const std::size_t done = runInOrder<PageUses>(
        pages.pages.size(), options.jobs,
        [&](std::size_t page) { return whereUsed.lookInto(pages.pages[page]); },
        [&](std::size_t index, const PageUses& found) {
            const std::string page = pages.pages[index].string();
            for (const Use& use : found.uses)
                report.use(page, use);
            totals.uses += found.uses.size();
            totals.pagesUsing += found.uses.empty() ? 0 : 1;
            if (!found.failure) return;
            ++totals.failed;
            if (found.failure->of == PageFailure::Of::Configuration) totals.misconfigured = true;
            report.failure(page, *found.failure);
        },
        [](std::size_t) { return !Interruption::seen(); });
    totals.left = pages.pages.size() - done;
    report.end(totals);
    if (totals.left > 0) tellOfPagesLeft(pages, done);
    return totals.status();
}

}  // namespace headerdtc::cli
