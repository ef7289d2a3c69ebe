#include "cli/commands.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
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

}  // namespace

// The editor is a program of its own: the command line needs no windows.
int edit(const CommonOptions& common, const EditOptions& options) {
    std::vector<std::string> words{EditorName};
    if (!common.configuration.empty()) {
        words.emplace_back("--config");
        words.push_back(common.configuration);
    }
    words.emplace_back("--");
    words.insert(words.end(), options.pages.begin(), options.pages.end());
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

}  // namespace headerdtc::cli
