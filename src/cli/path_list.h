#pragma once

#include "host/generation/site_pages.h"

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

    // Those of the file. Throws FileError when it cannot be read.
    std::vector<std::string> listed() const;
    // The pages of both.
    SitePages pages() const { return findSitePages(words, listed()); }
    // Neither words nor a file.
    bool empty() const { return words.empty() && file.empty(); }
};

// Adds both to a command; returns the option of the words.
CLI::Option* addPathList(CLI::App& command, PathList& paths, const std::string& description);

}  // namespace headerdtc::cli
