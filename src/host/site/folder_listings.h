#pragma once

#include "host/files/whole_file.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

namespace headerdtc {

// Finds names in folders without regard to case. What a folder holds is read again only when the
// folder changed. Thread-safe.
class FolderListings {
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

}  // namespace headerdtc
