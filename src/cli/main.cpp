#include "cli/commands.h"
#include "cli/completion.h"
#include "cli/output.h"
#include "cli/site_commands.h"
#include "cli/version.h"
#include "cli/wrong_usage.h"
#include "host/odbc/secrets.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <limits>
#include <new>
#include <system_error>

namespace {

using namespace headerdtc::cli;

constexpr const char* Examples = R"(Examples:
  headerdtc generate site/               write the header of every page below site/
  headerdtc generate --check site/       only list the pages that are out of date
  headerdtc generate --check --diff site show what would change in them
  headerdtc check site/                  look for faults in the pages
  headerdtc where --field CUSTNO site/   which pages use a field
  headerdtc doctor site/                 what is missing in the set-up of a site
  headerdtc generate --print page.asp    show the header text of one page
  headerdtc new page.asp                 make a page with one new control
  headerdtc show --json page.asp         the stored properties, for other programs
  headerdtc automate page.asp < steps    drive the editor by name, a JSON command a line
  headerdtc automate --over site/ steps  what the steps would change in every page
  headerdtc translations check site/     gaps and faults of the translated texts
  headerdtc catalogue check --connect DSN=Data site/
                                         what the database has otherwise than the catalogue
  headerdtc edit page.asp                open the page editor

The site's configuration is the headerdtc.toml in the page's folder or the nearest one above it;
--config FILE or the environment variable HEADERDTC_CONFIG names another.

Exit status: 0 done, 1 --check found something, 2 wrong usage or configuration,
3 at least one page could not be done, whatever was found in others, 130 interrupted.)";

CLI::App* addGenerate(CLI::App& app, GenerateOptions& options) {
    auto* command = app.add_subcommand("generate", "Write the server script of pages");
    addPathList(*command, options.paths, "pages, or folders with pages (*.asp, *.inc)");
    auto* print = command->add_flag("--print", options.print,
                                    "write the runtime text to standard output, save nothing");
    auto* check = command->add_flag("--check", options.check,
                                    "save nothing, list the pages that are out of date");
    auto* diff = command->add_flag("--diff", options.diff,
                                   "with --check: show what would change, as patch takes it");
    auto* json = command->add_flag("--json", options.json, "one JSON object a page");
    auto* force = command->add_flag(
        "--force", options.force,
        "write the new text also where something stored would be lost, and keep that");
    command->add_flag("-q,--quiet", options.quiet, "no progress and no summary");
    command->add_option("-j,--jobs", options.jobs, "pages done at a time (default: one a core)")
        ->check(CLI::Range(1, 256));
    print->excludes(check)->excludes(force)->excludes(diff)->excludes(json);
    check->excludes(force);
    diff->needs(check);
    command->callback([&options] {
        if (options.paths.empty()) throw CLI::RequiredError("PATH");
    });
    command->footer(
        "A page is rewritten only when its bytes change, and left as it was, with the reason, "
        "when\n"
        "something would be lost. Written pages are listed on standard output.\n\n"
        "Exit status: 0 done, 1 --check found pages that are out of date, 2 wrong usage or\n"
        "configuration, 3 at least one page could not be done, 130 interrupted.");
    return command;
}

CLI::App* addNew(CLI::App& app, NewOptions& options) {
    auto* command = app.add_subcommand("new", "Make a page with a new control");
    command->add_option("PAGE", options.page, "the page")->required();
    auto* into = command->add_flag("--into", options.into, "add the control to an existing page");
    command
        ->add_option(
            "--line", options.line,
            "before this line (from 1) instead of behind the page's\ndirective, or at its start")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()))
        ->needs(into);
    return command;
}

int run(int argc, char** argv) {
    CLI::App app{
        "Keeps the data headers of dashboard pages: reads the configuration that a page "
        "stores and writes the server script that belongs to it.",
        "headerdtc"};
    app.set_version_flag("--version", std::string("headerdtc ") + Version);
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(Examples);

    CommonOptions common;
    app.add_option("--config", common.configuration, "the site's configuration (headerdtc.toml)")
        ->envname("HEADERDTC_CONFIG")
        ->type_name(FileType);

    GenerateOptions generateOptions;
    NewOptions newOptions;
    ShowOptions showOptions;
    EditOptions editOptions;
    auto* generateCommand = addGenerate(app, generateOptions);
    const auto siteCommands = addSiteCommands(app, common);
    auto* newCommand = addNew(app, newOptions);
    auto* showCommand = app.add_subcommand("show", "Show the stored properties of a page");
    showCommand->add_option("PAGE", showOptions.page, "the page")->required();
    showCommand->add_flag("--json", showOptions.json, "as JSON");
    auto* editCommand = app.add_subcommand("edit", "Open the page editor");
    editCommand->add_option("PAGE", editOptions.pages, "pages to open");

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        std::string said = unknownWord(app, {argv + 1, argv + argc});
        if (said.empty()) said = error.what();
        // A connect string may be among the words that are told.
        printLine(stderr, "headerdtc: " + headerdtc::maskSecrets(said) + "\n" +
                              "Run with --help for more information.");
        return WrongUsage;
    }

    for (const Command& command : siteCommands) {
        if (*command.app) return command.run();
    }
    if (*generateCommand) return generate(common, generateOptions);
    if (*newCommand) return newControl(common, newOptions);
    if (*showCommand) return show(common, showOptions);
    if (*editCommand) return edit(common, editOptions);
    return WrongUsage;
}

// Results that nobody could be given are a failure like others.
int afterFlushing(int status) {
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    std::fprintf(stderr, "headerdtc: the standard output cannot be written: %s\n",
                 std::generic_category().message(errno != 0 ? errno : EIO).c_str());
    return status == WrongUsage ? WrongUsage : PageNotDone;
}

}  // namespace

int main(int argc, char** argv) {
    // A file that would become too large is a failure to be reported, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return afterFlushing(run(argc, argv));
    } catch (const std::bad_alloc&) {
        std::fputs("headerdtc: there is not enough memory\n", stderr);
        return PageNotDone;
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::resource_unavailable_try_again) {
            std::fputs(
                "headerdtc: there is not enough memory to start a thread, or there are too "
                "many processes\n",
                stderr);
            return PageNotDone;
        }
        std::fprintf(stderr, "headerdtc: %s\n", error.what());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "headerdtc: %s\n", error.what());
    } catch (...) {
        std::fputs("headerdtc: something unknown went wrong\n", stderr);
    }
    return WrongUsage;
}
