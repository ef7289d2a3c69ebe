#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace headerdtc::cli {

// The pages and folders of a command: its words, and the lines of a file (--files-from).
struct PathList {
    std::vector<std::string> words;
    std::string file;

    // All of them. Throws FileError when the file cannot be read.
    std::vector<std::string> all() const;
    // Neither words nor a file.
    bool empty() const { return words.empty() && file.empty(); }
};

// Adds both to a command; returns the option of the words.
CLI::Option* addPathList(CLI::App& command, PathList& paths, const std::string& description);

}  // namespace headerdtc::cli
