#include "host/generation/site_pages.h"

#include "platform/text.h"

#include <algorithm>
#include <set>

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
            addPage(path, true);
        }
    }

    SitePages found;

  private:
    void addPage(const fs::path& page, bool named) {
        std::error_code failure;
        const fs::path real = fs::canonical(page, failure);
        if (!seen_.insert(failure ? page : real).second) return;
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
        for (const fs::directory_entry& each : entries) {
            if (each.path().filename().native().starts_with('.')) continue;
            std::error_code ignored;
            if (each.is_symlink(ignored) ? false : each.is_directory(ignored)) {
                addFolder(each.path());
            } else if (isPage(each.path()) && each.is_regular_file(ignored)) {
                addPage(each.path(), false);
            }
        }
    }

    static bool isPage(const fs::path& path) {
        const std::string extension = path.extension().string();
        return equalIgnoringCase(extension, ".asp") || equalIgnoringCase(extension, ".inc");
    }

    std::set<fs::path> seen_;
};

}  // namespace

SitePages findSitePages(const std::vector<std::string>& paths) {
    Collector collector;
    for (const std::string& path : paths)
        collector.add(path);
    return std::move(collector.found);
}

}  // namespace headerdtc
