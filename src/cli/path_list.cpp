#include "cli/path_list.h"

#include "cli/completion.h"
#include "cli/input.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>

namespace headerdtc::cli {

std::vector<std::string> PathList::all() const {
    std::vector<std::string> paths = words;
    if (file.empty()) return paths;
    const std::string text = readInput(file);
    // Names that may have anything in them are ended by zeros, as find -print0 writes them.
    const bool hasZeros = text.find('\0') != std::string::npos;
    for (std::string_view line : splitText(text, hasZeros ? std::string_view("\0", 1) : "\n")) {
        if (!hasZeros && line.ends_with('\r')) line.remove_suffix(1);
        if (!line.empty()) paths.emplace_back(line);
    }
    return paths;
}

CLI::Option* addPathList(CLI::App& command, PathList& paths, const std::string& description) {
    auto* words = command.add_option("PATH", paths.words, description);
    command
        .add_option("--files-from", paths.file,
                    "more of them: the lines of this file (- for standard input), or what zeros\n"
                    "end in it")
        ->type_name(FileType);
    return words;
}

}  // namespace headerdtc::cli
