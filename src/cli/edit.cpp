#include "cli/command.h"
#include "cli/page_run.h"
#include "host/site/site.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace headerdtc::cli {
namespace {

constexpr const char* EditorName = "headerdtc-editor";

void execute(const std::string& program, std::vector<char*>& arguments) {
    arguments.front() = const_cast<char*>(program.c_str());
    if (program.find('/') == std::string::npos) {
        execvp(program.c_str(), arguments.data());
    } else {
        execv(program.c_str(), arguments.data());
    }
}

// The editor is a program of its own: the command line needs no windows.
ExitStatus edit(const CommonOptions& common, const std::vector<std::string>& pages) {
    Sites sites(common.only());
    FailureLines lines;
    for (const std::string& page : pages)
        lines.printMissingConfiguration(sites, page);
    std::vector<std::string> words{EditorName};
    if (!common.configuration.empty()) {
        words.emplace_back("--config");
        words.push_back(common.configuration);
    }
    words.emplace_back("--");
    words.insert(words.end(), pages.begin(), pages.end());
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    // The one beside this program comes first, so that a build folder is complete by itself.
    std::error_code failure;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (!failure) execute((self.parent_path() / EditorName).string(), arguments);
    execute(EditorName, arguments);
    std::fprintf(stderr,
                 "headerdtc: %s cannot be started: %s\n"
                 "It is a package of its own; install headerdtc-editor, or build it with Qt 6.\n",
                 EditorName, std::strerror(errno));
    return WrongUsage;
}

}  // namespace

void addEdit(CLI::App& app, CommandLine& line) {
    const auto pages = std::make_shared<std::vector<std::string>>();
    CLI::App& command =
        addCommand(app, "edit", "Open the page editor",
                   R"(Starts headerdtc-editor. A folder opens as a site: its pages as a tree.

Examples:
  headerdtc edit site/ site/orders/list.asp

Exit status: 0 the window was closed, 2 there is no editor or no screen.)");
    command.add_option("PAGE", *pages, "pages to open");
    command.callback(whenNamed(line, pages, edit));
}

}  // namespace headerdtc::cli
