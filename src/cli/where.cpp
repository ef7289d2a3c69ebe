#include "cli/command.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "host/inspection/finding.h"
#include "host/inspection/where_used.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace headerdtc::cli {
namespace {

// What is looked for: the one option of them that was given; a provider may also narrow a field.
struct WhereOptions {
    PageRunOptions run;
    WhereQuery query;
    bool json = false;
    std::string provider, field, include, stylesheet, label;

    void choose() {
        using Kind = WhereQuery::Kind;
        if (run.paths.empty()) run.paths.words = {"."};
        const struct {
            const std::string& value;
            Kind kind;
        } choices[] = {{field, Kind::Field},
                       {include, Kind::Include},
                       {stylesheet, Kind::Stylesheet},
                       {label, Kind::Label},
                       {provider, Kind::Provider}};
        int chosen = 0;
        for (const auto& [value, kind] : choices) {
            if (value.empty()) continue;
            if (kind == Kind::Provider && !field.empty()) {
                query.ofProvider = value;
                continue;
            }
            query.kind = kind;
            query.value = value;
            ++chosen;
        }
        if (chosen != 1)
            throw CLI::ValidationError(
                "name one of --provider, --field, --include, --stylesheet and --label");
    }
};

// "the field "CUSTNO" of "Orders""
std::string inWords(const WhereQuery& query) {
    using Kind = WhereQuery::Kind;
    static constexpr std::pair<Kind, const char*> Words[] = {{Kind::Provider, "data provider"},
                                                             {Kind::Field, "field"},
                                                             {Kind::Include, "include file"},
                                                             {Kind::Stylesheet, "stylesheet"},
                                                             {Kind::Label, "label"}};
    const auto* const word =
        std::find_if(std::begin(Words), std::end(Words),
                     [&](const auto& each) { return each.first == query.kind; });
    return std::string("the ") + word->second + " " + inQuotes(query.value) +
           (query.ofProvider.empty() ? "" : " of " + inQuotes(query.ofProvider));
}

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

    FailureLines& failures() { return failures_; }

    void failure(const std::string& page, const PageFailure& failure) {
        if (!json_) return failures_.print(page, failure);
        lines_.write({{"type", "failure"}, {"page", page}, {"message", failure.text}});
    }

    void end(const PageTotals& totals, std::size_t pagesUsing) {
        failures_.end();
        if (!json_) return;
        lines_.write({{"type", "summary"},
                      {"pages", totals.pages},
                      {"pagesUsing", pagesUsing},
                      {"uses", totals.found},
                      {"failed", totals.failed},
                      {"exitStatus", totals.status(false)}});
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
    FailureLines failures_{"not looked into"};
};

ExitStatus where(const CommonOptions& common, const WhereOptions& options) {
    Sites sites(common.only());
    WhereUsed whereUsed(sites, options.query);
    WhereReport report(options.json);
    PageRun run(options.run, [&](const std::string& page, const PageFailure& failure) {
        report.failure(page, failure);
    });
    PageTotals& totals = run.totals();
    std::size_t pagesUsing = 0;
    run.over<PageUses>([&](const std::filesystem::path& page) { return whereUsed.lookInto(page); },
                       [&](const PageRun::Page& page, const PageUses& found) {
                           if (found.hasControl)
                               report.failures().printMissingConfiguration(sites, page.name);
                           for (const Use& use : found.uses)
                               report.use(page.name, use);
                           totals.found += found.uses.size();
                           pagesUsing += found.uses.empty() ? 0 : 1;
                           if (found.failure) run.fail(page.name, *found.failure);
                       });
    report.end(totals, pagesUsing);
    run.end(counted(totals.pages, "page") + " looked at: " + counted(totals.found, "use") + " in " +
            counted(pagesUsing, "page") + ", " + std::to_string(totals.failed) +
            " not looked into");
    if (totals.found == 0 && totals.left == 0 && totals.pages > 0 && !options.run.quiet)
        printLine(stderr, "none of " + counted(totals.pages, "page") + " uses " +
                              visible(inWords(options.query)));
    return totals.status(false);
}

}  // namespace

void addWhere(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<WhereOptions>();
    CLI::App& command = addCommand(
        app, "where", "Find the pages that use a field, provider, file or label",
        R"(Upper and lower case are the same. Each place is a line PAGE:LINE: CONTROL, what it is.

Examples:
  headerdtc where --field CUSTNO site/     pages that use a field
  headerdtc where --field CUSTNO --provider Orders --json site/
  headerdtc where --include Dates.asp      below this folder

Exit status: 0 done, whether something was found or not, 2 wrong usage or configuration,
3 a page or the database could not be read, 130 interrupted.)");
    command.add_option("--provider", options->provider,
                       "a data provider; with --field: only that provider's field");
    command.add_option("--field", options->field, "a field, by its name or its whole entry");
    command.add_option("--include", options->include, "an include file, by its path or name")
        ->type_name(FileType);
    command.add_option("--stylesheet", options->stylesheet, "a stylesheet, by its path or name")
        ->type_name(FileType);
    command.add_option("--label", options->label,
                       "a label that translates fields or values (asks the database)");
    addPathList(command, options->run.paths, "pages, or folders with pages (default: this folder)");
    command.add_flag("--json", options->json, "one JSON object a place");
    addRunOptions(command, options->run);
    command.callback([&line, options] {
        options->choose();
        line.run = [&line, options] { return where(line.common, *options); };
    });
}

}  // namespace headerdtc::cli
