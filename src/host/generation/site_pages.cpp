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
            add(path, canonical(path), true);
        }
    }

    SitePages found;

  private:
    static fs::path canonical(const fs::path& path) {
        std::error_code failure;
        auto real = fs::canonical(path, failure);
        return failure ? path : real;
    }

    void add(const fs::path& page, const fs::path& real, bool named) {
        if (!seen_.insert(real.native()).second) return;
        found.pages.push_back(page);
        found.named.push_back(named);
    }

    void addFolder(const fs::path& folder) {
        std::vector<fs::directory_entry> entries;
        std::error_code failure;
        fs::directory_iterator entry(folder, failure);
        for (; !failure && entry != fs::directory_iterator(); entry.increment(failure))
            entries.push_back(*entry);
        if (failure) found.problems.push_back(folder.string() + ": " + failure.message());
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
                add(each.path(),
                    isLink ? canonical(each.path()) : realFolder / each.path().filename(), false);
            }
        }
    }

    static bool isPage(const fs::path& path) {
        const std::string extension = path.extension().string();
        return equalIgnoringCase(extension, ".asp") || equalIgnoringCase(extension, ".inc");
    }

    std::unordered_set<std::string> seen_;  // by canonical paths
};

}  // namespace

SitePages findSitePages(const std::vector<std::string>& paths) {
    Collector collector;
    for (const std::string& path : paths)
        collector.add(path);
    return std::move(collector.found);
}

}  // namespace headerdtc
