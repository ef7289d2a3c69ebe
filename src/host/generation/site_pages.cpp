#include "host/generation/site_pages.h"

#include "platform/text.h"

#include <algorithm>
#include <string>
#include <unordered_set>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

class Collector {
  public:
    void add(const fs::path& path) {
        std::error_code failure;
        if (fs::is_directory(path, failure)) {
            addFolder(path);
        } else {
            addPage({path, canonical(path).native(), Is::Named});
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
    enum class Is { Named, Found, Link };
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

    void addFolder(const fs::path& folder) {
        std::vector<fs::directory_entry> entries;
        std::error_code failure;
        fs::directory_iterator entry(folder, failure);
        for (; !failure && entry != fs::directory_iterator(); entry.increment(failure))
            entries.push_back(*entry);
        if (failure) found_.problems.push_back({folder.string(), failure.message()});
        std::sort(entries.begin(), entries.end());
        const fs::path realFolder = canonical(folder);
        for (const fs::directory_entry& each : entries) {
            if (each.path().filename().native().starts_with('.')) continue;
            std::error_code ignored;
            const bool isLink = each.is_symlink(ignored);
            if (!isLink && each.is_directory(ignored)) {
                addFolder(each.path());
            } else if (isPage(each.path()) && each.is_regular_file(ignored)) {
                // Of the page itself only a link can lead elsewhere.
                const fs::path file =
                    isLink ? canonical(each.path()) : realFolder / each.path().filename();
                addPage({each.path(), file.native(), isLink ? Is::Link : Is::Found});
            }
        }
    }

    static bool isPage(const fs::path& path) {
        const std::string extension = path.extension().string();
        return equalIgnoringCase(extension, ".asp") || equalIgnoringCase(extension, ".inc");
    }

    SitePages found_;
    std::vector<Candidate> candidates_;
    std::unordered_set<std::string> files_;  // found under their own names
};

}  // namespace

SitePages findSitePages(const std::vector<std::string>& paths) {
    Collector collector;
    for (const std::string& path : paths)
        collector.add(path);
    return collector.take();
}

}  // namespace headerdtc
