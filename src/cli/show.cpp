// The commands that show what pages store: show, of one page, and report, of many.

#include "cli/command.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "core/header_dtc.h"
#include "host/automation/property_json.h"
#include "host/inspection/configuration_text.h"
#include "host/page/page_document.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

namespace headerdtc::cli {
namespace {

struct ShowOptions {
    std::string page;
    bool json = false;
    bool summary = false;
};

using Json = JsonLines::Json;

// A control in words.
struct Summary {
    std::string id;
    std::vector<Statement> statements;
};

std::vector<Summary> summariesOf(const PageMarkup& page) {
    std::vector<Summary> summaries;
    for (const ControlSpan& span : page.controls())
        summaries.push_back({span.id, inWords(readStoredConfiguration(span.properties))});
    return summaries;
}

Json jsonOf(const std::vector<Summary>& summaries) {
    Json controls = Json::array();
    for (const Summary& summary : summaries) {
        Json statements = Json::array();
        for (const auto& [subject, text] : summary.statements)
            statements.push_back({{"subject", subject}, {"text", text}});
        controls.push_back({{"id", summary.id}, {"summary", std::move(statements)}});
    }
    return controls;
}

Json propertiesOf(const PageMarkup& page) {
    Json controls = Json::array();
    for (const ControlSpan& span : page.controls()) {
        Json control = Json::object();
        control["id"] = span.id;
        control["properties"] = propertiesJson(span.properties);
        controls.push_back(std::move(control));
    }
    return controls;
}

std::string asText(Json controls) {
    Json shown = Json::object();
    shown["controls"] = std::move(controls);
    return shown.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

// "NAME = VALUE", the line ends inside a value made visible.
std::string textOf(const PageMarkup& page) {
    std::string text;
    for (const ControlSpan& span : page.controls()) {
        text += "[" + span.id + "]\n";
        for (const auto& [name, value] : span.properties) {
            text += name + " = ";
            for (const char c : value) {
                if (c == '\r') {
                    text += "\\r";
                } else if (c == '\n') {
                    text += "\\n";
                } else if (c == '\t') {
                    text += "\\t";
                } else {
                    text += c;
                }
            }
            text += '\n';
        }
    }
    return text;
}

// "SUBJECT: WORDS"
std::string textOf(const std::vector<Summary>& summaries) {
    std::string shown;
    for (const Summary& summary : summaries) {
        shown += "[" + summary.id + "]\n";
        for (const auto& [subject, text] : summary.statements)
            shown += subject + ": " + visible(text) + "\n";
    }
    return shown;
}

ExitStatus show(const CommonOptions& common, const ShowOptions& options) {
    Sites sites(common.only());
    const auto site = siteOf(sites, options.page);
    const PageDocument page(options.page, site->configuration->codePage);
    const PageMarkup& markup = page.markup();
    std::string shown;
    if (options.summary) {
        const auto summaries = summariesOf(markup);
        shown = options.json ? asText(jsonOf(summaries)) : textOf(summaries);
    } else {
        shown = options.json ? asText(propertiesOf(markup)) : textOf(markup);
    }
    std::fwrite(shown.data(), 1, shown.size(), stdout);
    if (markup.controls().empty()) printMessage(options.page, HoldsNoControl);
    return Done;
}

// ---- the same of many pages ---------------------------------------------------------------------

struct ReportOptions {
    PageRunOptions run;
    bool json = false;
};

struct ReportedPage {
    std::vector<Summary> summaries;
    std::optional<PageFailure> failure;
};

// A text that means nothing to Markdown.
std::string plain(std::string_view text) {
    std::string result;
    for (const char c : visible(text)) {
        if (std::string_view("\\`*_[]<&~|").find(c) != std::string_view::npos) result += '\\';
        result += c;
    }
    return result;
}

void printMarkdown(const std::string& page, const std::vector<Summary>& summaries) {
    printLine(stdout, "\n## " + plain(page));
    for (const Summary& summary : summaries) {
        if (summaries.size() > 1) printLine(stdout, "\n### " + plain(summary.id));
        printLine(stdout, "");
        for (const auto& [subject, text] : summary.statements)
            printLine(stdout, "- **" + subject + ":** " + plain(text));
    }
}

ExitStatus report(const CommonOptions& common, const ReportOptions& options) {
    Sites sites(common.only());
    JsonLines lines;
    FailureLines failures;
    if (options.json) {
        lines.begin("report");
    } else {
        printLine(stdout, "# Data headers");
    }
    PageRun run(options.run, [&](const std::string& page, const PageFailure& failure) {
        if (!options.json) return failures.print(page, failure);
        lines.write({{"type", "failure"}, {"page", page}, {"message", failure.text}});
    });
    PageTotals& totals = run.totals();
    run.over<ReportedPage>(
        [&](const std::filesystem::path& page) {
            ReportedPage reported;
            reported.failure = failureOf(page, [&] {
                const PageDocument document(page, sites.forPage(page)->configuration->codePage);
                reported.summaries = summariesOf(document.markup());
            });
            return reported;
        },
        [&](const PageRun::Page& page, const ReportedPage& reported) {
            if (reported.failure) return run.fail(page.name, *reported.failure);
            if (reported.summaries.empty()) {
                if (page.named) printMessage(page.name, HoldsNoControl);
                return;
            }
            ++totals.found;
            if (!options.json) return printMarkdown(page.name, reported.summaries);
            lines.write(
                {{"type", "page"}, {"page", page.name}, {"controls", jsonOf(reported.summaries)}});
        });
    if (options.json)
        lines.write({{"type", "summary"},
                     {"pages", totals.pages},
                     {"reported", totals.found},
                     {"failed", totals.failed},
                     {"exitStatus", totals.status(false)}});
    run.end(counted(totals.pages, "page") + " looked at: " + std::to_string(totals.found) +
            " reported, " + std::to_string(totals.failed) + " not read");
    return totals.status(false);
}

}  // namespace

void addReport(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<ReportOptions>();
    CLI::App& command = addCommand(
        app, "report", "Describe in words what pages show, as Markdown",
        R"(For reviewers: data provider, fields, criteria, links, translations and files of each page.

Examples:
  headerdtc report site/ >site.md          all pages of a site
  git diff --name-only | headerdtc report --files-from -

Exit status: 0 done, 2 wrong usage or configuration, 3 a page could not be read, 130 interrupted.)");
    addPathList(command, options->run.paths, "pages, or folders with pages (default: this folder)");
    command.add_flag("--json", options->json, "one JSON object a page");
    addRunOptions(command, options->run);
    command.callback([&line, options] {
        if (options->run.paths.empty()) options->run.paths.words = {"."};
        line.run = [&line, options] { return report(line.common, *options); };
    });
}

void addShow(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App& command = addCommand(app, "show", "Show the stored properties of a page",
                                   R"(Examples:
  headerdtc show page.asp                  NAME = VALUE, below the ID of each control
  headerdtc show --summary page.asp        what the page shows, in words
  headerdtc show --json page.asp | jq -r '.controls[].id'

Exit status: 0 done, 2 wrong usage or configuration, 3 the page cannot be read.)");
    command.add_option("PAGE", options->page, "the page")->required();
    command.add_flag("--summary", options->summary, "in words, in the place of the properties");
    command.add_flag("--json", options->json, "as JSON");
    command.callback(whenNamed(line, options, show));
}

}  // namespace headerdtc::cli
