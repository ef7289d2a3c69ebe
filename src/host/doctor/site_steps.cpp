#include "host/doctor/examination.h"
#include "host/inspection/rules/rule_settings.h"

#include <cerrno>
#include <unistd.h>

namespace headerdtc::doctor {
namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    std::error_code failure;
    return fs::is_directory(path, failure);
}

// A folder in which nothing can be found.
bool isClosed(const fs::path& path) {
    return access(path.c_str(), R_OK | X_OK) != 0 && errno == EACCES;
}

// Why this configuration is the one that holds; nothing where its path says it.
std::string reasonFor(const Examination& seen, const fs::path& file) {
    if (!seen.named.empty()) return ", named by " + seen.namedBy;
    const fs::path place = fs::absolute(seen.place).lexically_normal();
    const fs::path folder = isFolder(place) ? place / "" : place;
    if (file.parent_path() == folder.parent_path()) return {};
    return ", in the nearest folder above " + seen.place.string() + " that has one";
}

void examineProjectRoot(Examination& seen) {
    const fs::path& root = seen.configuration->projectRoot;
    if (isClosed(root)) return seen.refused("project root", root);
    if (isFolder(root)) return seen.whole("project root", root.string());
    seen.broken("project root", "there is no folder " + root.string(),
                "set \"root\" in [project] of headerdtc.toml to the folder of the pages");
}

void examineDrives(Examination& seen) {
    for (const auto& [letter, folder] : seen.configuration->drives.drives()) {
        const std::string link = std::string("drive ") + letter;
        if (isClosed(folder)) {
            seen.refused(link, folder);
        } else if (isFolder(folder)) {
            seen.whole(link, folder.string());
        } else {
            seen.broken(link, "there is no folder " + folder.string(),
                        "mount or copy the suite's drive there, or let \"" +
                            std::string(1, letter) +
                            "\" in [drives] of headerdtc.toml lead to where it is");
        }
    }
}

}  // namespace

void examineConfiguration(Examination& seen) {
    const auto file =
        seen.named.empty() ? findSiteConfiguration(seen.place) : std::optional(seen.named);
    if (!file) {
        seen.configuration = defaultSiteConfiguration(
            isFolder(seen.place) ? seen.place : fs::absolute(seen.place).parent_path());
        seen.doubtful(
            "configuration",
            "no headerdtc.toml in " + seen.configuration->folder.string() +
                " or above it; the defaults hold",
            "make a site with 'headerdtc init " + seen.configuration->folder.string() + "'");
        return;
    }
    try {
        seen.configuration = readSiteConfiguration(*file);
        requireKnownRules(*seen.configuration);
        seen.whole("configuration", seen.configuration->file.string() + reasonFor(seen, *file));
    } catch (const FileError& error) {
        seen.broken("configuration", error.what(),
                    seen.configuration ? "correct that place; 'headerdtc check' needs it"
                                       : "correct that place; all else hangs on it");
    }
}

void examineFolders(Examination& seen) {
    if (!seen.configuration) return;
    seen.whole("code page", seen.configuration->codePage.name());
    examineProjectRoot(seen);
    examineDrives(seen);
}

}  // namespace headerdtc::doctor
