#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace headerdtc {

// What tells one state of a file from another without reading it: a file whose stamp is the same
// was neither rewritten nor replaced, if the stamp was settled. A file that is not there has a
// stamp of its own.
struct FileStamp {
    std::uint64_t device = 0, inode = 0;
    std::int64_t size = -1;
    std::int64_t modified = 0, changed = 0;  // nanoseconds
    // The digest of the bytes, where they were read before the stamp was settled: the next change
    // may leave the file with the same stamp, so that only the bytes show it.
    std::optional<std::uint64_t> digest = {};

    static FileStamp of(const struct stat& status);
    static FileStamp of(const std::filesystem::path& path);
    // Whether the stamp is older than the steps in which file systems count time, so that the next
    // change is sure to give the file another one.
    bool isSettled() const;
    // Whether a file still is what was read under this stamp; reads it where only its bytes tell.
    bool isStillOf(const std::filesystem::path& path) const;
    // The same for a file that was given another name, which some file systems count as a change.
    bool isStillOfMoved(const std::filesystem::path& path) const;
    // Compares all but the digest: what is known without reading the file.
    bool operator==(const FileStamp& other) const;
};

std::uint64_t digestOf(std::string_view bytes);

struct WholeFile {
    std::string bytes;
    FileStamp stamp;  // of the file as it was read
};

// Reads a file whole. Throws SystemFileError with the system's reason, and FileError for a device,
// a pipe, and a file that keeps changing meanwhile.
WholeFile readWholeFile(const std::filesystem::path& path);

}  // namespace headerdtc
