#pragma once

#include "host/files/whole_file.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

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

// One file at once: replace() or create(), and commit(). Throws FileError.
void replaceWholeFile(const std::filesystem::path& path, std::string_view bytes,
                      const FileStamp& expected);
void createWholeFile(const std::filesystem::path& path, std::string_view bytes);
// Whichever of the two: makes the file where `seen` is the stamp of one that is not there.
void writeWholeFile(const std::filesystem::path& path, std::string_view bytes,
                    const FileStamp& seen);

}  // namespace headerdtc
