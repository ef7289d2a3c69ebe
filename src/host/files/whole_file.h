#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace headerdtc {

// What tells one state of a file from another without reading it: a file whose stamp is the same
// was neither rewritten nor replaced, if the stamp was settled. A file that is not there has a
// stamp of its own.
struct FileStamp {
    std::uint64_t device = 0, inode = 0;
    std::int64_t size = -1;
    std::int64_t modified = 0, changed = 0;  // nanoseconds
    // Of bytes that were read before the stamp was settled: the next change may leave the file with
    // the same stamp, so only the bytes tell.
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
    // Of what a file shows without being read.
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

// Replaces files whole. The bytes go into a new file beside the old one, which is flushed and then
// renamed over it, so that at every moment, and after a power cut, the name leads to the old bytes
// or to the new ones. Mode and owner are kept, a symbolic link is followed to the real file, and a
// file with several names (hard links) is refused because renaming would part them.
//
// Flushing costs far more than writing, so replacements are grouped: replace() writes, commit()
// flushes and renames all that are waiting and then flushes their folders. What was not committed
// when this is destroyed is discarded, and the files stay as they were. Not thread-safe; each
// thread has its own.
class FileReplacer {
  public:
    FileReplacer();
    ~FileReplacer();
    FileReplacer(const FileReplacer&) = delete;
    FileReplacer& operator=(const FileReplacer&) = delete;

    // Waits for commit(). `expected` is the stamp of the file that the new bytes were made from;
    // a file that has become another one since is not overwritten. Where the file system can have
    // two files change places, this holds to the end: what was replaced is looked at once more,
    // and put back when it is not what was expected. Throws FileError.
    void replace(const std::filesystem::path& path, std::string_view bytes,
                 const FileStamp& expected);
    // Makes a file that is not there yet; the same promise. Throws FileError when it is there.
    void create(const std::filesystem::path& path, std::string_view bytes);

    struct Outcome {
        std::filesystem::path path;  // as it was given
        std::string problem;         // why it was not replaced; empty when it was
    };
    // What became of each, in the order of the calls. Never throws for one file's sake.
    std::vector<Outcome> commit();
    std::size_t waiting() const;

  private:
    struct Waiting;
    void wait(Waiting file);
    void flush();

    std::vector<Waiting> waiting_;
    std::size_t flushed_ = 0;  // of these, from the first on
};

// One file at once: replace() and commit(). Throws FileError.
void replaceWholeFile(const std::filesystem::path& path, std::string_view bytes,
                      const FileStamp& expected);

}  // namespace headerdtc
