#include "host/site/windows_paths.h"

#include "host/files/code_page.h"
#include "host/files/whole_file.h"
#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <unordered_map>
#include <vector>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

// The pieces of a path, "." left out and ".." applied; it cannot lead above the first piece.
std::vector<std::string> pieces(std::string_view path) {
    std::vector<std::string> result;
    while (!path.empty()) {
        const auto* const end = std::find_if(path.begin(), path.end(), isSeparator);
        const std::string_view piece(path.begin(), static_cast<std::size_t>(end - path.begin()));
        if (piece == "..") {
            if (!result.empty()) result.pop_back();
        } else if (!piece.empty() && piece != ".") {
            // Names that are no UTF-8 were made text when they came from this machine.
            result.push_back(CodePage::utf8().encode(piece));
        }
        path.remove_prefix(std::min(piece.size() + 1, path.size()));
    }
    return result;
}

bool standsThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

fs::path withoutTrailingSlash(const fs::path& folder) {
    auto normal = folder.lexically_normal();
    return normal.has_filename() || normal == normal.root_path() ? normal : normal.parent_path();
}

struct PlaceOnDrive {
    char letter;
    std::vector<fs::path> rest;  // of the path, behind the drive's folder
    bool isRoot;                 // the drive's folder is "/"
};

// By the longest folder that contains a file.
std::optional<PlaceOnDrive> placeOn(const std::map<char, fs::path>& drives, const fs::path& file) {
    std::optional<PlaceOnDrive> best;
    for (const auto& [letter, folder] : drives) {
        const auto [end, at] =
            std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
        if (end != folder.end()) continue;
        std::vector<fs::path> rest(at, file.end());
        if (best && best->rest.size() <= rest.size()) continue;
        best = PlaceOnDrive{letter, std::move(rest), folder == folder.root_path()};
    }
    return best;
}

// A path with its symbolic links followed, as far as it is there.
fs::path behindLinks(const fs::path& path) {
    std::error_code error;
    auto real = fs::weakly_canonical(path, error);
    return error ? path : real;
}

std::unordered_map<std::string, std::string> namesIn(const fs::path& folder) {
    std::unordered_map<std::string, std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto name = entry->path().filename().string();
        const auto [known, isNew] = names.emplace(foldCase(name), name);
        if (!isNew && name < known->second) known->second = name;
    }
    // For lack of memory the listing broke off; the names that it lacks are not missing.
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();
    return names;
}

}  // namespace

// Finds names in folders without regard to case. What a folder holds is read again only when the
// folder changed. Thread-safe.
class WindowsPaths::FolderListings {
  public:
    // The name as it stands in the folder; of several the first in byte order.
    std::optional<std::string> find(const std::filesystem::path& folder, const std::string& name);

  private:
    using Names = std::unordered_map<std::string, std::string>;  // by folded name
    struct Listing {
        FileStamp stamp;
        Names names;
    };

    std::mutex mutex_;
    std::map<std::filesystem::path, Listing> listings_;
};

std::optional<std::string> WindowsPaths::FolderListings::find(const fs::path& folder,
                                                              const std::string& name) {
    const auto stamp = FileStamp::of(folder);
    const bool settled = stamp.isSettled();
    const auto folded = foldCase(name);
    const auto in = [&folded](const Names& names) -> std::optional<std::string> {
        const auto found = names.find(folded);
        return found == names.end() ? std::nullopt : std::optional(found->second);
    };

    const std::lock_guard lock(mutex_);
    if (const auto known = listings_.find(folder);
        known != listings_.end() && known->second.stamp == stamp)
        return in(known->second.names);

    auto names = namesIn(folder);
    auto result = in(names);
    // A folder that changed a moment ago may get one more file without another stamp.
    constexpr std::size_t Folders = 256;
    if (listings_.size() >= Folders) listings_.clear();
    if (settled) listings_.insert_or_assign(folder, Listing{stamp, std::move(names)});
    return result;
}

WindowsPaths::WindowsPaths(const std::map<char, fs::path>& drives)
    : listings_(std::make_shared<FolderListings>()) {
    drives_['Z'] = "/";
    for (const auto& [letter, folder] : drives)
        drives_[ascii::upper(letter)] = withoutTrailingSlash(folder);
}

fs::path WindowsPaths::toLocal(std::string_view windowsPath) const {
    if (windowsPath.find('\0') != std::string_view::npos)
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    char letter = 'C';
    if (windowsPath.size() >= 2 && ascii::isLetter(windowsPath[0]) && windowsPath[1] == ':') {
        letter = ascii::upper(windowsPath[0]);
        windowsPath.remove_prefix(2);
    } else if (windowsPath.size() >= 2 && isSeparator(windowsPath[0]) &&
               isSeparator(windowsPath[1])) {
        throw RuntimeError(ErrorNumber::PathNotFound);  // of another computer
    }
    const auto drive = drives_.find(letter);
    if (drive == drives_.end()) throw RuntimeError(ErrorNumber::PathNotFound);

    const auto names = pieces(windowsPath);
    fs::path asWritten = drive->second;
    for (const auto& name : names)
        asWritten /= name;
    if (standsThere(asWritten)) return asWritten;

    fs::path found = drive->second;
    bool isThere = true;
    for (const auto& name : names) {
        if (isThere && !standsThere(found / name)) {
            const auto other = listings_->find(found, name);
            isThere = other.has_value();
            found /= other.value_or(name);
        } else {
            found /= name;
        }
    }
    return found;
}

std::string WindowsPaths::toWindows(const fs::path& file) const {
    const auto asNamed = withoutTrailingSlash(fs::absolute(file));
    auto place = placeOn(drives_, asNamed);
    // "/" contains every file; a drive that contains it behind symbolic links says more.
    if (!place || place->isRoot) {
        auto realDrives = drives_;
        for (auto& [letter, folder] : realDrives)
            folder = behindLinks(folder);
        auto real = placeOn(realDrives, behindLinks(asNamed));
        if (real && (!place || !real->isRoot)) place = std::move(real);
    }
    if (!place) throw RuntimeError(ErrorNumber::PathNotFound);

    std::string path{place->letter, ':'};
    for (const auto& piece : place->rest)
        path += '\\' + CodePage::utf8().decode(piece.native());
    return place->rest.empty() ? path + '\\' : path;
}

}  // namespace headerdtc
