#pragma once

#include "host/files/whole_file.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace headerdtc {

// A file that is going to take another's place. Until then it lies beside that one under a hidden
// name, ".headerdtc-PID-NUMBER.tmp", and goes away with this object. What a process that was killed
// left behind in that folder is removed on the way.
//
// Failures are SystemFileErrors.
class NewFile {
  public:
    // Who may read the new file while it is being written.
    enum class Access { AsNewFiles, OwnerOnly };

    // `target` is absolute; `called` is its name in errors.
    NewFile(std::filesystem::path target, Access access, std::string called);
    ~NewFile();
    NewFile(NewFile&& other) noexcept;
    NewFile& operator=(NewFile&&) = delete;

    const std::filesystem::path& target() const { return target_; }

    void write(std::string_view bytes);
    // Gives it the mode, owner, group and extended attributes (access lists) of the target. One
    // that cannot be given is a failure: a page must not change hands by being generated.
    void takeAttributes(const struct stat& ofTarget);

    // Lets the disk begin without waiting for it.
    void startFlushing() noexcept;
    // Waits until the bytes are on the disk, and closes the file.
    void flush();

    void replaceTarget();
    // The same for a target that has to be what was read under that stamp. Gives false when it is
    // not, and then has left it in its place.
    bool replaceTarget(const FileStamp& expected);
    // For a target that must not be there.
    void becomeTarget();

  private:
    [[noreturn]] void fail(std::string failure, int error);
    void copyExtendedAttributes();
    int changePlaces() noexcept;
    void remove() noexcept;
    void close() noexcept;

    std::filesystem::path target_;
    std::string called_;
    std::filesystem::path path_;  // empty: it is the target now, or moved from
    int descriptor_ = -1;
};

// A hidden name for a new file, with this process's id in it; each call gives another one.
std::string newFileName();

// Removes from a folder the files with such names whose process is gone. Looks into a folder only
// once in this process's life; failures are of no consequence.
void removeStrayFiles(const std::filesystem::path& folder) noexcept;

}  // namespace headerdtc
