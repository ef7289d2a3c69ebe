#include "host/generation/site_pages.h"

#include "host/files/file_error.h"
#include "platform/text.h"

#include <algorithm>
#include <string>
#include <unordered_set>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

class Collector {
  public:
    enum class Is { Named, Found, Link };

    void add(const fs::path& path, Is page) {
        std::error_code failure;
        if (path.empty()) {
            found_.problems.push_back({EmptyPath, EmptyPathProblem});
        } else if (fs::is_directory(path, failure)) {
            addFolder(path.native(), canonical(path).native());
        } else {
            addPage({path, canonical(path).native(), page});
        }
    }

    SitePages take() {
        std::unordered_set<std::string> seen;
        for (const Candidate& each : candidates_) {
            if (each.is == Is::Link && files_.contains(each.file)) continue;
            if (!seen.insert(each.file).second) continue;
            found_.pages.push_back(each.path);
            found_.named.push_back(each.is == Is::Named);
        }
        return std::move(found_);
    }

  private:
    struct Candidate {
        fs::path path;
        std::string file;  // what it is in the end
        Is is;
    };

    static fs::path canonical(const fs::path& path) {
        std::error_code failure;
        auto real = fs::canonical(path, failure);
        return failure ? path : real;
    }

    void addPage(Candidate page) {
        if (page.is == Is::Found) files_.insert(page.file);
        candidates_.push_back(std::move(page));
    }

    // `realFolder` is what the folder is in the end. It is handed down, because to ask the system
    // for it in every folder of a deep site takes time by the square of the depth, and more. For
    // the same reason a folder keeps names only while those in it are looked into.
    void addFolder(const std::string& folder, const std::string& realFolder) {
        struct Entry {
            std::string name;
            bool isLink, isFolder;
        };
        std::vector<Entry> entries;
        std::error_code failure;
        fs::directory_iterator entry(folder, failure);
        for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
            std::error_code ignored;
            std::string name = entry->path().filename().native();
            const bool isLink = entry->is_symlink(ignored);
            const bool isFolder = !isLink && entry->is_directory(ignored);
            if (isHidden(name)) continue;
            if (isFolder || (isPageName(name) && entry->is_regular_file(ignored)))
                entries.push_back({std::move(name), isLink, isFolder});
        }
        if (failure) found_.problems.push_back({folder, failure.message()});
        std::sort(entries.begin(), entries.end(),
                  [](const Entry& a, const Entry& b) { return a.name < b.name; });
        for (const Entry& each : entries) {
            const std::string path = joined(folder, each.name);
            if (each.isFolder) {
                addFolder(path, joined(realFolder, each.name));
            } else {
                // Only where the page itself is a link can the file have another name.
                addPage({path,
                         each.isLink ? canonical(path).native() : joined(realFolder, each.name),
                         each.isLink ? Is::Link : Is::Found});
            }
        }
    }

    static std::string joined(const std::string& folder, const std::string& name) {
        return folder + (folder.ends_with('/') ? "" : "/") + name;
    }

    static bool isHidden(const std::string& name) {
        return name.starts_with('.') && !name.starts_with("..");
    }

    SitePages found_;
    std::vector<Candidate> candidates_;
    std::unordered_set<std::string> files_;  // found under their own names
};

}  // namespace

bool isPageName(const fs::path& path) {
    const std::string extension = path.extension().string();
    return equalIgnoringCase(extension, ".asp") || equalIgnoringCase(extension, ".inc");
}

SitePages findSitePages(const std::vector<std::string>& paths,
                        const std::vector<std::string>& listed) {
    Collector collector;
    for (const std::string& path : paths)
        collector.add(path, Collector::Is::Named);
    for (const std::string& path : listed)
        collector.add(path, Collector::Is::Found);
    return collector.take();
}

}  // namespace headerdtc
