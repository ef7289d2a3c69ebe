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
    // A folder that could not be looked into.
    struct Problem {
        std::string path, reason;
        std::string text() const { return path + ": " + reason; }
    };
    std::vector<Problem> problems;
};

// Whether a run over a folder takes a file of that name for a page: *.asp and *.inc in any case.
bool isPageName(const std::filesystem::path& path);

// The pages named, those of a list, which count as found, and those found below the folders named
// (*.asp and *.inc in any case), each once, in the order of the names and sorted below a folder.
// Links to folders are not followed, so no loop keeps it; links to files are, but a page that is
// found under its own name too goes by that, since its place in the site is part of its text.
// What is hidden is passed over: names that begin with one dot. An empty path is a problem.
SitePages findSitePages(const std::vector<std::string>& paths,
                        const std::vector<std::string>& listed = {});

}  // namespace headerdtc
