#include "host/site/folder_listings.h"

#include "platform/text.h"

#include <new>
#include <system_error>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

std::unordered_map<std::string, std::string> namesIn(const fs::path& folder) {
    std::unordered_map<std::string, std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto name = entry->path().filename().string();
        const auto [known, isNew] = names.emplace(foldCase(name), name);
        if (!isNew && name < known->second) known->second = name;
    }
    // Names that there was no memory to read are not missing.
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();
    return names;
}

}  // namespace

std::optional<std::string> FolderListings::find(const fs::path& folder, const std::string& name) {
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

}  // namespace headerdtc
