#include "cli/command.h"
#include "cli/diff_output.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "host/diff/line_diff.h"
#include "host/generation/site_generation.h"
#include "host/page/page_session.h"
#include "host/page/quiet_host.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <optional>

namespace headerdtc::cli {
namespace {

using Verdict = GeneratedPage::Verdict;

struct GenerateOptions {
    PageRunOptions run;
    bool print = false;
    bool check = false;
    bool diff = false;  // with check: what would change, in the place of the list
    bool json = false;
    bool force = false;
};

// How a run is told: one class for each form of output.
class GenerateReport {
  public:
    GenerateReport(Sites& sites, const GenerateOptions& options)
        : sites_(sites), options_(options) {}
    virtual ~GenerateReport() = default;

    virtual void begin() {}
    // A path that could not be looked into.
    virtual void problem(const std::string& text) = 0;
    virtual void page(const PageRun::Page& page, const SiteGeneration::Done& done) = 0;
    virtual void end(const PageTotals&) {}

  protected:
    Sites& sites() { return sites_; }
    const GenerateOptions& options() const { return options_; }
    const CodePage& codePageOf(const std::string& page) const {
        return sites_.forPage(page)->configuration->codePage;
    }

  private:
    Sites& sites_;
    const GenerateOptions& options_;
};

// For people: the pages, or what would change in them, on standard output, everything said of them
// on standard error.
class GenerateText : public GenerateReport {
  public:
    using GenerateReport::GenerateReport;

    void problem(const std::string& text) override { printLine(stderr, text); }

    void page(const PageRun::Page& page, const SiteGeneration::Done& done) override {
        const Verdict verdict = done.page.verdict;
        if (verdict == Verdict::Losing || verdict == Verdict::Failing)
            lines_.printMissingConfiguration(sites(), page.name);
        if (const auto cause = causeOf(done.page)) lines_.count(*cause);
        const auto of = verdict == Verdict::NotConfigured ? PageFailure::Of::Configuration
                                                          : PageFailure::Of::Page;
        for (const std::string& message : done.page.messages)
            lines_.print(page.name, {of, message});
        if (verdict == Verdict::NoControl && page.named) printMessage(page.name, HoldsNoControl);
        if (verdict != Verdict::Stale) return;
        if (!options().diff) return printLine(stdout, page.name);
        printDiff(page.name, done.page.before, done.page.after, codePageOf(page.name));
    }

    void end(const PageTotals& totals) override {
        lines_.end(true);
        if (options().check && totals.found > 0)
            printLine(stderr, counted(totals.found, "page") + " out of date; to write " +
                                  (totals.found == 1 ? "it" : "them") + ": headerdtc generate " +
                                  options().run.paths.inWords());
    }

  private:
    // A failure that other pages may have too: of a file that is missing, say.
    static std::optional<std::string> causeOf(const GeneratedPage& page) {
        for (const auto& [control, doubt] : page.doubts) {
            if (doubt.kind == SaveDoubt::Kind::Failure) return doubt.reason;
        }
        return std::nullopt;
    }

    FailureLines lines_{"left as they were"};
};

// For programs: a JSON object for each page, docs/schemas/generate.schema.json.
class GenerateJson : public GenerateReport {
  public:
    using GenerateReport::GenerateReport;

    void begin() override { lines_.begin("generate"); }

    void problem(const std::string& text) override {
        lines_.write({{"type", "problem"}, {"message", text}});
    }

    void page(const PageRun::Page& page, const SiteGeneration::Done& done) override {
        const auto& [before, after] = std::tie(done.page.before, done.page.after);
        JsonLines::Json line = {{"type", "page"},
                                {"page", page.name},
                                {"status", done.written ? "written" : nameOf(done.page.verdict)},
                                {"messages", done.page.messages}};
        if (options().check && done.page.verdict == Verdict::Stale) {
            line["line"] = firstDifferentLine(before, after);
            if (options().diff)
                line["diff"] = cli::codePageOf(before, codePageOf(page.name))
                                   .decode(unifiedDiff(page.name, before, after));
        }
        lines_.write(line);
    }

    void end(const PageTotals& totals) override {
        lines_.write({{"type", "summary"},
                      {"pages", totals.pages},
                      {options().check ? "stale" : "written", totals.found},
                      {"failed", totals.failed},
                      {"exitStatus", totals.status(options().check)}});
    }

  private:
    static const char* nameOf(Verdict verdict) {
        switch (verdict) {
            case Verdict::NoControl:
                return "no-control";
            case Verdict::UpToDate:
                return "up-to-date";
            case Verdict::Stale:
                return "stale";
            case Verdict::Losing:
            case Verdict::Failing:
                return "left-alone";
            case Verdict::NotReadable:
                return "not-readable";
            case Verdict::NotConfigured:
                break;
        }
        return "not-configured";
    }

    JsonLines lines_;
};

// Every control's runtime text to standard output, in the page's code page.
ExitStatus print(Sites& sites, const std::string& page) {
    const auto site = sites.forPage(page);
    const PageMarkup markup(page, readWholeFile(page).bytes, site->configuration->codePage);
    if (markup.controls().empty()) {
        printMessage(page, HoldsNoControl);
        return PageNotDone;
    }
    bool failed = false;
    QuietHost host;
    for (const ControlSpan& span : markup.controls()) {
        OpenControl control(site, page, span, host.faces());
        const MadeContent made = control.content();
        if (made.doubt && made.doubt->kind == SaveDoubt::Kind::Failure) {
            failed = true;
            host.messages.push_back(made.doubt->reason);
        }
        const auto told = referencesTold(span, made.content.runtimeText, markup.codePage());
        if (told) host.messages.push_back(*told);
        const std::string bytes = markup.codePage().encodeWithReferences(made.content.runtimeText);
        std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    }
    if (failed) FailureLines().printMissingConfiguration(sites, page);
    for (const std::string& message : host.messages)
        printMessage(page, message);
    return failed ? PageNotDone : Done;
}

ExitStatus generate(Sites& sites, const GenerateOptions& options) {
    const std::unique_ptr<GenerateReport> report =
        options.json ? std::unique_ptr<GenerateReport>(new GenerateJson(sites, options))
                     : std::make_unique<GenerateText>(sites, options);
    report->begin();
    PageRun run(options.run, [&](const std::string& page, const PageFailure& failure) {
        report->problem(page + ": " + failure.text);
    });
    PageTotals& totals = run.totals();
    SiteGeneration generation(
        sites, {.mode = options.check ? SiteGeneration::Mode::Check : SiteGeneration::Mode::Write,
                .guard = options.force ? LossGuard::SaveAnyway : LossGuard::RefuseLosses,
                .jobs = options.run.jobs,
                .keepBytes = options.check && (options.diff || options.json)});
    generation.run(
        run.pages(),
        [&](const SiteGeneration::Done& done) {
            totals.found += done.page.verdict == Verdict::Stale ? 1 : 0;
            totals.failed += done.page.isFailure() ? 1 : 0;
            if (done.page.verdict == Verdict::NotConfigured) totals.misconfigured = true;
            report->page(run.come(done.index), done);
        },
        [&](std::size_t finished) {
            if (!run.goesOn(finished)) generation.cancel();
        });
    report->end(totals);
    run.end(counted(totals.pages, "page") + " looked at: " + std::to_string(totals.found) +
            (options.check ? " out of date, " : " written, ") + std::to_string(totals.failed) +
            " not done");
    return totals.status(options.check);
}

}  // namespace

void addGenerate(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<GenerateOptions>();
    CLI::App& command = addCommand(
        app, "generate", "Write the server script of pages",
        R"(A page is rewritten only when its bytes change, and left as it was, with the reason, when
something would be lost. Written pages are listed on standard output.

Examples:
  headerdtc generate .                     every page below this folder
  headerdtc generate --check --diff site/  what would change, for patch -p0
  headerdtc generate --print page.asp      the script of one page, nothing is saved
  git diff --name-only | headerdtc generate --files-from -

Exit status: 0 done, 1 --check found pages that are out of date, 2 wrong usage or
configuration, 3 at least one page could not be done, 130 interrupted.)");
    addPathList(command, options->run.paths, "pages, or folders with pages (*.asp, *.inc)");
    auto* print = command.add_flag("--print", options->print,
                                   "write the runtime text to standard output, save nothing");
    auto* check = command.add_flag("--check", options->check,
                                   "save nothing, list the pages that are out of date");
    auto* diff = command.add_flag("--diff", options->diff,
                                  "with --check: show what would change, as patch takes it");
    auto* json = command.add_flag("--json", options->json, "one JSON object a page");
    auto* force = command.add_flag(
        "--force", options->force,
        "write the new text also where something stored would be lost, and keep that");
    addRunOptions(command, options->run);
    print->excludes(check)->excludes(force)->excludes(diff)->excludes(json);
    check->excludes(force);
    diff->needs(check);
    command.callback([&line, options] {
        const PathList& paths = options->run.paths;
        if (paths.empty()) throw CLI::RequiredError("PATH");
        if (options->print && (paths.words.size() != 1 || !paths.file.empty()))
            throw UsageError("--print takes one page");
        line.run = [&line, options] {
            Sites sites(line.common.only());
            return options->print ? cli::print(sites, options->run.paths.words.front())
                                  : generate(sites, *options);
        };
    });
}

}  // namespace headerdtc::cli
