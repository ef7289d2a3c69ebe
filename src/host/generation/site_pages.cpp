#include "host/generation/site_pages.h"

#include "platform/text.h"

#include <algorithm>
#include <set>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

class Collector {
  public:
    enum class Is { Named, Found, Link };

    void add(const fs::path& path, Is page) {
        std::error_code failure;
        if (fs::is_directory(path, failure)) {
            addFolder(path);
        } else {
            addPage({path, page});
        }
    }

    SitePages take() {
        std::set<fs::path> seen;
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
        Is is;
        fs::path file = {};  // what it is in the end
    };

    void addPage(Candidate page) {
        std::error_code failure;
        page.file = fs::canonical(page.path, failure);
        if (failure) page.file = page.path;
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
        for (const fs::directory_entry& each : entries) {
            if (each.path().filename().native().starts_with('.')) continue;
            std::error_code ignored;
            const bool isLink = each.is_symlink(ignored);
            if (!isLink && each.is_directory(ignored)) {
                addFolder(each.path());
            } else if (isPage(each.path()) && each.is_regular_file(ignored)) {
                addPage({each.path(), isLink ? Is::Link : Is::Found});
            }
        }
    }

    static bool isPage(const fs::path& path) {
        const std::string extension = path.extension().string();
        return equalIgnoringCase(extension, ".asp") || equalIgnoringCase(extension, ".inc");
    }

    SitePages found_;
    std::vector<Candidate> candidates_;
    std::set<fs::path> files_;  // found under their own names
};

}  // namespace

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
