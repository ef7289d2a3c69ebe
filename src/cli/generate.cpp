#include "cli/commands.h"
#include "cli/generate_report.h"
#include "cli/interruption.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "host/generation/site_generation.h"
#include "host/generation/site_pages.h"
#include "host/page/page_session.h"
#include "host/page/quiet_host.h"

#include <cstdio>

namespace headerdtc::cli {
namespace {

// Every control's runtime text to standard output, in the page's code page.
ExitStatus print(Sites& sites, const std::string& page) {
    const auto site = sites.forPage(page);
    const PageMarkup markup(page, readWholeFile(page).bytes, site->configuration->codePage);
    if (markup.controls().empty()) {
        printMessage(page, "holds no HeaderDTC control");
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
    for (const std::string& message : host.messages)
        printMessage(page, message);
    return failed ? PageNotDone : Done;
}

}  // namespace

int generate(const CommonOptions& common, const GenerateOptions& options) {
    Sites sites(common.only());
    if (options.print) {
        const auto& words = options.paths.words;
        if (words.size() != 1 || !options.paths.file.empty()) {
            printLine(stderr, "headerdtc: --print takes one page");
            return WrongUsage;
        }
        return guarded([&] { return print(sites, words.front()); });
    }

    const SitePages pages = options.paths.pages();
    const auto report = makeGenerateReport(sites, options);
    GenerateTotals totals{.pages = pages.pages.size()};
    report->begin();
    for (const auto& problem : pages.problems) {
        report->problem(problem.text());
        ++totals.failed;
    }
    SiteGeneration generation(
        sites, {.mode = options.check ? SiteGeneration::Mode::Check : SiteGeneration::Mode::Write,
                .guard = options.force ? LossGuard::SaveAnyway : LossGuard::RefuseLosses,
                .jobs = options.jobs,
                .keepBytes = options.check && (options.diff || options.json)});
    Progress progress(pages.pages.size(), options.quiet);
    const Interruption interruption;
    std::size_t told = 0;
    generation.run(
        pages.pages,
        [&](const SiteGeneration::Done& done) {
            progress.hide();
            ++told;
            totals.add(done.page.verdict);
            report->page(pages.pages[done.index].string(), pages.named[done.index], done);
        },
        [&](std::size_t finished) {
            if (Interruption::seen()) generation.cancel();
            progress.show(finished);
        });
    totals.left = pages.pages.size() - told;
    report->end(totals);
    progress.end(totals.summary(options));
    if (totals.left > 0) tellOfPagesLeft(pages, told);
    return totals.status(options);
}

}  // namespace headerdtc::cli
