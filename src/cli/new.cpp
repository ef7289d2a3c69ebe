#include "cli/command.h"
#include "cli/streams.h"
#include "host/generation/site_pages.h"
#include "host/page/new_control.h"
#include "host/page/page_document.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <limits>
#include <memory>

namespace headerdtc::cli {
namespace {

struct NewOptions {
    std::string page;
    bool into = false;
    std::optional<int> line;  // 1-based; the control goes before it, else behind the directive
};

ExitStatus newControl(const CommonOptions& common, const NewOptions& options) {
    Sites sites(common.only());
    const auto site = siteOf(sites, options.page);
    const auto& codePage = site->configuration->codePage;
    if (options.into) {
        const PageDocument page(options.page, codePage);
        addNewControl(page, options.line);
    } else {
        std::error_code ignored;
        if (std::filesystem::exists(options.page, ignored))
            throw FileError(options.page, "it is there already; --into adds a control to it");
        makeNewPage(options.page, codePage);
        if (!isPageName(options.page))
            printMessage(options.page,
                         "commands on a folder find only pages named *.asp and *.inc");
    }
    std::printf("%s\n", options.page.c_str());
    return Done;
}

}  // namespace

void addNew(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<NewOptions>();
    CLI::App& command = addCommand(
        app, "new", "Make a page with a new control",
        R"(The control has the properties of a fresh one. A page that is there already is not made anew;
--into adds a control to it.

Examples:
  headerdtc new site/orders/list.asp       a page that is not there yet
  headerdtc new --into --line 12 page.asp  one more control, before line 12

Exit status: 0 done, 2 wrong usage or configuration, 3 the page cannot be made or changed.)");
    command.add_option("PAGE", options->page, "the page")->required();
    auto* into = command.add_flag("--into", options->into, "add the control to an existing page");
    command
        .add_option(
            "--line", options->line,
            "before this line (from 1) instead of behind the page's\ndirective, or at its start")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()))
        ->needs(into);
    command.callback(whenNamed(line, options, newControl));
}

}  // namespace headerdtc::cli
