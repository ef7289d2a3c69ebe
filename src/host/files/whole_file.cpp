#include "host/files/whole_file.h"

#include "host/files/file_error.h"
#include "host/files/new_file.h"

#include <atomic>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <map>
#include <optional>
#include <system_error>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

std::int64_t nanoseconds(const struct timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }

  private:
    int number_;
};

[[noreturn]] void failToRead(const fs::path& path, int error) {
    throw SystemFileError(path, "cannot be read", error);
}

struct stat statusOf(const fs::path& path, const Descriptor& file) {
    struct stat status {};
    if (fstat(file.number(), &status) != 0) failToRead(path, errno);
    return status;
}

std::string readToEnd(const fs::path& path, const Descriptor& file, std::size_t expected) {
    std::string bytes(expected + 1, '\0');  // one more, so that the end shows in the same call
    std::size_t size = 0;
    while (true) {
        const auto got = pread(file.number(), bytes.data() + size, bytes.size() - size,
                               static_cast<off_t>(size));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) failToRead(path, errno);
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
        if (size == bytes.size()) bytes.resize(2 * size + 4096);
    }
    bytes.resize(size);
    return bytes;
}

}  // namespace

// ---- stamps and reading -------------------------------------------------------------------------

FileStamp FileStamp::of(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

FileStamp FileStamp::of(const fs::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? of(status) : FileStamp();
}

bool FileStamp::isSettled() const {
    // The coarsest file systems count in two seconds. What a clock says that was set back does not
    // matter here: a stamp from the future is not settled.
    constexpr std::int64_t Grain = 2'500'000'000;
    struct timespec now {};
    clock_gettime(CLOCK_REALTIME, &now);
    return changed < nanoseconds(now) - Grain;
}

bool FileStamp::operator==(const FileStamp& other) const {
    const auto shown = [](const FileStamp& stamp) {
        return std::tie(stamp.device, stamp.inode, stamp.size, stamp.modified, stamp.changed);
    };
    return shown(*this) == shown(other);
}

bool FileStamp::isStillOf(const fs::path& path) const {
    if (of(path) != *this) return false;
    if (!digest) return true;
    try {
        const WholeFile now = readWholeFile(path);
        return now.stamp == *this && digestOf(now.bytes) == *digest;
    } catch (const FileError&) {
        return false;
    }
}

bool FileStamp::isStillOfMoved(const fs::path& path) const {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) return false;
    FileStamp moved = *this;
    moved.changed = nanoseconds(status.st_ctim);
    return FileStamp::of(status) == moved && moved.isStillOf(path);
}

std::uint64_t digestOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

WholeFile readWholeFile(const fs::path& path) {
    // Without waiting, for the sake of pipes that nobody writes to.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!file.isOpen()) failToRead(path, errno);

    constexpr int Attempts = 5;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const auto status = statusOf(path, file);
        if (S_ISDIR(status.st_mode)) failToRead(path, EISDIR);
        if (!S_ISREG(status.st_mode)) throw FileError(path, "cannot be read: it is no file");
        const auto stamp = FileStamp::of(status);
        const bool settled = stamp.isSettled();
        auto bytes = readToEnd(path, file, static_cast<std::size_t>(status.st_size));
        if (FileStamp::of(statusOf(path, file)) != stamp) continue;
        WholeFile whole{std::move(bytes), stamp};
        if (!settled) whole.stamp.digest = digestOf(whole.bytes);
        return whole;
    }
    throw FileError(path, "cannot be read: another program keeps writing it");
}

// ---- replacing ----------------------------------------------------------------------------------

namespace {

constexpr const char* ChangedMeanwhile =
    "was changed by someone else since it was read; read it again and repeat the change";

// The path under which a file really stands, behind any symbolic link.
fs::path behindLinks(const fs::path& path) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return fs::absolute(path);
    auto real = fs::canonical(path, error);
    if (error) throw SystemFileError(path, "cannot be replaced", error.value());
    return real;
}

// The status of a file that can be replaced; `path` is its name in errors.
struct stat statusToReplace(const fs::path& path, const fs::path& target) {
    struct stat status {};
    if (stat(target.c_str(), &status) != 0)
        throw SystemFileError(path, "cannot be replaced", errno);
    if (!S_ISREG(status.st_mode)) throw FileError(path, "cannot be replaced: it is no file");
    if (status.st_nlink > 1) {
        throw FileError(path,
                        "cannot be replaced: it has several names (hard links), which would part; "
                        "remove the others, or make them symbolic links");
    }
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        throw SystemFileError(path, "cannot be written", errno);
    return status;
}

// Makes the new names in a folder last; gives the error. A folder that cannot be opened, and a file
// system that has no such operation, do without.
int flushFolder(const fs::path& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen() || fsync(descriptor.number()) == 0 || errno == EINVAL) return 0;
    return errno;
}

}  // namespace

struct FileReplacer::Waiting {
    fs::path path;  // as it was given
    NewFile file;
    std::optional<FileStamp> expected;  // none: the file must not be there
    std::string problem = {};

    fs::path folder() const { return file.target().parent_path(); }
    // Does one step, unless an earlier one failed.
    template <class Step>
    void attempt(Step step) {
        if (!problem.empty()) return;
        try {
            step();
        } catch (const FileError& error) {
            problem = error.problem();
        }
    }
    void rename() {
        attempt([this] {
            if (!expected) {
                file.becomeTarget();
            } else if (!file.replaceTarget(*expected)) {
                throw FileError(path, ChangedMeanwhile);
            }
        });
    }
};

FileReplacer::FileReplacer() = default;
FileReplacer::~FileReplacer() = default;

std::size_t FileReplacer::waiting() const {
    return waiting_.size();
}

void FileReplacer::replace(const fs::path& path, std::string_view bytes,
                           const FileStamp& expected) {
    const auto target = behindLinks(path);
    const auto status = statusToReplace(path, target);
    if (FileStamp::of(status) != expected || !expected.isStillOf(target))
        throw FileError(path, ChangedMeanwhile);
    NewFile file(target, NewFile::Access::OwnerOnly, path);
    file.write(bytes);
    file.takeAttributes(status);
    wait({path, std::move(file), expected});
}

void FileReplacer::create(const fs::path& path, std::string_view bytes) {
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(path, ignored)))
        throw SystemFileError(path, "cannot be made", EEXIST);
    NewFile file(fs::absolute(path), NewFile::Access::AsNewFiles, path);
    file.write(bytes);
    wait({path, std::move(file), std::nullopt});
}

void FileReplacer::wait(Waiting file) {
    file.file.startFlushing();
    waiting_.push_back(std::move(file));
    // A group may be larger than the number of files that can be open.
    constexpr std::size_t OpenFiles = 64;
    if (waiting_.size() - flushed_ >= OpenFiles) flush();
}

// Side by side, because the file system does with one write of its journal for all that are asked
// for at a time: that makes a large group many times faster than one after the other.
void FileReplacer::flush() {
    std::atomic<std::size_t> next{flushed_};
    const auto flushOneByOne = [&] {
        for (auto at = next++; at < waiting_.size(); at = next++)
            waiting_[at].attempt([&] { waiting_[at].file.flush(); });
    };
    constexpr std::size_t Helpers = 15;
    const auto files = waiting_.size() - flushed_;
    std::vector<std::jthread> helpers;
    try {
        while (helpers.size() < Helpers && helpers.size() + 1 < files)
            helpers.emplace_back(flushOneByOne);
    } catch (const std::system_error&) {
        // With fewer helpers it takes longer.
    }
    flushOneByOne();
    helpers.clear();
    flushed_ = waiting_.size();
}

std::vector<FileReplacer::Outcome> FileReplacer::commit() {
    flush();
    std::vector<Waiting> files;
    files.swap(waiting_);
    flushed_ = 0;
    std::map<fs::path, int> errorOfFolder;
    for (auto& file : files) {
        file.rename();
        if (file.problem.empty()) errorOfFolder[file.folder()] = 0;
    }
    for (auto& [folder, error] : errorOfFolder)
        error = flushFolder(folder);
    for (auto& file : files) {
        file.attempt([&] {
            if (const int error = errorOfFolder[file.folder()]; error != 0)
                throw SystemFileError(file.path, "the new name may not last", error);
        });
    }
    std::vector<Outcome> outcomes;
    outcomes.reserve(files.size());
    for (auto& file : files)
        outcomes.push_back({std::move(file.path), std::move(file.problem)});
    return outcomes;
}

void replaceWholeFile(const fs::path& path, std::string_view bytes, const FileStamp& expected) {
    FileReplacer replacer;
    replacer.replace(path, bytes, expected);
    const auto outcomes = replacer.commit();
    if (!outcomes.front().problem.empty()) throw FileError(path, outcomes.front().problem);
}

}  // namespace headerdtc
