#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace headerdtc {

// The pages that a command names.
struct SitePages {
    std::vector<std::filesystem::path> pages;
    // Named in so many words, rather than found below a folder; page by page.
    std::vector<bool> named;
    // What could not be looked into: "PATH: reason".
    std::vector<std::string> problems;
};

// The pages named, and those found below the folders named (*.asp and *.inc in any case), each
// once, in the order of the names and sorted below a folder. Links to folders are not followed, so
// no loop keeps it; links to files are. Hidden folders are passed over.
SitePages findSitePages(const std::vector<std::string>& paths);

}  // namespace headerdtc
