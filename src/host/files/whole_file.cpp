#include "host/files/whole_file.h"

#include "host/files/descriptor.h"
#include "host/files/file_error.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

std::int64_t nanoseconds(const struct timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

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
    if (path.empty()) throw FileError(EmptyPath, EmptyPathProblem);
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

}  // namespace headerdtc
