#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace headerdtc {

// The suite's Windows paths and this machine's, by a table of drives.
class WindowsPaths {
  public:
    // Letters 'A' to 'Z' with absolute folders. Z is "/" unless it is given.
    explicit WindowsPaths(const std::map<char, std::filesystem::path>& drives = {});

    const std::map<char, std::filesystem::path>& drives() const { return drives_; }

    // Where a Windows path is opened on this machine: the drive by the table, both slashes as
    // separators, each component found without regard to case, an exact match first; components
    // that are not there are taken as they are written. ".." never leads above the drive's folder.
    // A path without a drive is taken from drive C. Raises RuntimeError 76 (Path not found) for a
    // drive that the table lacks and 75 for a path that no file can have.
    std::filesystem::path toLocal(std::string_view windowsPath) const;

    // The Windows path of a file: the longest drive folder that contains it, by its name or behind
    // symbolic links, gives the letter. Raises 76 when none does.
    std::string toWindows(const std::filesystem::path& file) const;

  private:
    class FolderListings;

    std::map<char, std::filesystem::path> drives_;
    std::shared_ptr<FolderListings> listings_;  // shared by copies
};

}  // namespace headerdtc
