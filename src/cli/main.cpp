#include "cli/command.h"
#include "cli/streams.h"
#include "cli/version.h"
#include "host/files/file_error.h"
#include "host/odbc/secrets.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>
#include <system_error>

namespace headerdtc::cli {
namespace {

constexpr const char* MainFooter = R"(Examples:
  headerdtc init site/                   set up a site
  headerdtc generate site/               write the header of every page below site/
  headerdtc generate --check site/       only list the pages that are out of date
  headerdtc generate --check --diff site show what would change in them
  headerdtc check site/                  look for faults in the pages
  headerdtc explain unknown-field        what a rule of the check means
  headerdtc where --field CUSTNO site/   which pages use a field
  headerdtc rename --field Orders CITY TOWN site/
                                         a field's new name in every page
  headerdtc doctor site/                 what is missing in the set-up of a site
  headerdtc generate --print page.asp    show the header text of one page
  headerdtc new page.asp                 make a page with one new control
  headerdtc show --summary page.asp      what a page shows, in words
  headerdtc show --json page.asp         the stored properties, for other programs
  headerdtc automate page.asp < steps    drive the editor by name, a JSON command a line
  headerdtc automate --over site/ steps  what the steps would change in every page
  headerdtc translations check site/     gaps and faults of the translated texts
  headerdtc catalogue import --list fields.csv site/
                                         data providers and fields from a list
  headerdtc edit page.asp                open the page editor
  headerdtc help generate                the options of a command, with examples

The site's configuration is the headerdtc.toml in the page's folder or the nearest one above it;
--config FILE or the environment variable HEADERDTC_CONFIG names another.

Exit status: 0 done, 1 --check found something, 2 wrong usage or configuration,
3 at least one page could not be done, whatever was found in others, 130 interrupted.)";

int complain(const char* text, ExitStatus status) {
    // A connect string may be part of what is said.
    std::fprintf(stderr, "%s\n", maskSecrets(text).c_str());
    return status;
}

// What ends a command otherwise than by itself.
int guarded(const std::function<ExitStatus()>& body) {
    try {
        return body();
    } catch (const UsageError& error) {
        return complain(("headerdtc: " + std::string(error.what())).c_str(), WrongUsage);
    } catch (const ConfigurationError& error) {
        return complain(error.what(), WrongUsage);
    } catch (const std::bad_alloc&) {
        std::fputs("headerdtc: there is not enough memory\n", stderr);
    } catch (const std::system_error& error) {
        if (error.code() != std::errc::resource_unavailable_try_again)
            return complain(error.what(), PageNotDone);
        std::fputs(
            "headerdtc: there is not enough memory to start a thread, or there are too many "
            "processes\n",
            stderr);
    } catch (const std::exception& error) {
        return complain(error.what(), PageNotDone);
    } catch (...) {
        std::fputs("headerdtc: something unknown went wrong\n", stderr);
    }
    return PageNotDone;
}

ExitStatus run(const std::vector<std::string>& words) {
    CLI::App app{
        "Keeps the data headers of dashboard pages: reads the configuration that a page "
        "stores and writes the server script that belongs to it.",
        "headerdtc"};
    app.set_version_flag("--version", std::string("headerdtc ") + Version);
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(MainFooter);
    makeHelpPlain(app);

    CommandLine line;
    app.add_option("--config", line.common.configuration,
                   "the site's configuration (headerdtc.toml)")
        ->envname("HEADERDTC_CONFIG")
        ->type_name(FileType);
    for (const auto add : {addInit, addGenerate, addCheck, addExplain, addWhere, addRename,
                           addDoctor, addNew, addShow, addReport, addEdit, addAutomate,
                           addTranslations, addCatalogue, addCompletion, addHelp})
        add(app, line);
    return obey(app, line, words);
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

CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& footer) {
    CLI::App& command = *app.add_subcommand(name, description);
    command.footer(footer);
    return command;
}

CLI::App& addCommandGroup(CLI::App& app, const std::string& name, const std::string& description,
                          const std::string& footer) {
    CLI::App& group = addCommand(app, name, description, footer);
    group.require_subcommand(1);
    return group;
}

void addSitePath(CLI::App& command, std::string& place) {
    command.add_option("PATH", place, "a page or folder of the site (default: this folder)")
        ->check([](const std::string& path) {
            std::error_code ignored;
            if (std::filesystem::exists(path, ignored)) return std::string();
            return path.empty() ? "an empty path names no page and no folder"
                                : "there is no page or folder '" + path + "'";
        });
}

ExitStatus obey(CLI::App& app, CommandLine& line, const std::vector<std::string>& words) {
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::Success& help) {
        return static_cast<ExitStatus>(app.exit(help));
    } catch (const CLI::ParseError& error) {
        const std::string unknown = unknownWord(app, words);
        std::string asked;
        for (const CLI::App* level = &app; !level->get_subcommands().empty();) {
            level = level->get_subcommands().front();
            asked += " " + level->get_name();
        }
        throw UsageError((unknown.empty() ? error.what() : unknown) + "\n'headerdtc help" + asked +
                         "' says more.");
    }
    const auto run = line.run;  // which may read further words
    return run();
}

}  // namespace headerdtc::cli

int main(int argc, char** argv) {
    using namespace headerdtc::cli;
    // A file that would become too large is a failure to be reported, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    return afterFlushing(guarded([&] { return run({argv + 1, argv + argc}); }));
}
