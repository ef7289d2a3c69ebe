#include "host/files/new_file.h"

#include "host/files/file_error.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <random>
#include <set>
#include <string_view>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace headerdtc {
namespace {

constexpr const char* AccessList = "system.posix_acl_access";

// The names of a file's extended attributes; none where the file system has no such thing.
std::vector<std::string> extendedAttributes(const std::filesystem::path& file) {
    std::string names;
    ssize_t size = listxattr(file.c_str(), nullptr, 0);
    while (size > 0) {
        names.resize(static_cast<std::size_t>(size));
        size = listxattr(file.c_str(), names.data(), names.size());
        if (size >= 0 || errno != ERANGE) break;
        size = listxattr(file.c_str(), nullptr, 0);
    }
    names.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    std::vector<std::string> result;
    for (std::size_t at = 0; at < names.size(); at += result.back().size() + 1)
        result.emplace_back(names.c_str() + at);
    return result;
}

bool isAppendOnly(const std::filesystem::path& folder) {
    struct statx status {};
    return statx(AT_FDCWD, folder.c_str(), 0, STATX_TYPE, &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_APPEND) != 0;
}

// A file that can be told from others under whatever name: while it is held, no new one can get its
// inode.
class HeldFile {
  public:
    explicit HeldFile(const std::filesystem::path& path)
        : descriptor_(open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC)) {}
    ~HeldFile() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(HeldFile&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    bool isAt(const std::filesystem::path& path) const {
        struct stat held {};
        struct stat there {};
        return fstat(descriptor_, &held) == 0 && lstat(path.c_str(), &there) == 0 &&
               held.st_dev == there.st_dev && held.st_ino == there.st_ino;
    }

  private:
    int descriptor_;
};

}  // namespace

NewFile::NewFile(std::filesystem::path target, Access access, std::string called)
    : target_(std::move(target)), called_(std::move(called)) {
    const auto folder = target_.parent_path();
    removeStrayFiles(folder);
    if (isAppendOnly(folder)) {
        throw FileError(called_,
                        "cannot be written: its folder takes new files but lets none go "
                        "(chattr +a), so that no new version can take the old one's place");
    }
    const mode_t mode = access == Access::AsNewFiles ? 0666 : 0600;
    do {
        path_ = folder / newFileName();
        descriptor_ =
            open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    } while (descriptor_ < 0 && errno == EEXIST);
    if (descriptor_ < 0) {
        const int error = errno;
        path_.clear();
        fail("no new file can be made in its folder", error);
    }
    // Tells others that this file is not a stray one; where there are no locks it does without.
    flock(descriptor_, LOCK_EX | LOCK_NB);
}

NewFile::NewFile(NewFile&& other) noexcept
    : target_(std::move(other.target_)),
      called_(std::move(other.called_)),
      path_(std::exchange(other.path_, {})),
      descriptor_(std::exchange(other.descriptor_, -1)) {}

NewFile::~NewFile() {
    remove();
    close();
}

void NewFile::fail(std::string failure, int error) {
    const auto unfinished = std::exchange(path_, {});
    if (!unfinished.empty() && unlink(unfinished.c_str()) != 0 && errno != ENOENT)
        failure += ", and its unfinished new version stays behind as " + unfinished.string();
    throw SystemFileError(called_, failure, error);
}

void NewFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            fail("cannot be written", errno);
        }
    }
}

void NewFile::takeAttributes(const struct stat& ofTarget) {
    struct stat own {};
    if (fstat(descriptor_, &own) != 0) fail("cannot be written", errno);
    const bool otherHands = own.st_uid != ofTarget.st_uid || own.st_gid != ofTarget.st_gid;
    if (otherHands && fchown(descriptor_, ofTarget.st_uid, ofTarget.st_gid) != 0)
        fail("belongs to an owner or group that you cannot give to a new file", errno);
    // After the owner, whose change takes the set-user-ID bits away.
    constexpr mode_t Modes = 07777;
    if ((otherHands || (own.st_mode & Modes) != (ofTarget.st_mode & Modes)) &&
        fchmod(descriptor_, ofTarget.st_mode & Modes) != 0)
        fail("has a mode that you cannot give to a new file", errno);
    copyExtendedAttributes();
}

void NewFile::copyExtendedAttributes() {
    bool hasAccessList = false;
    std::string value;
    for (const auto& name : extendedAttributes(target_)) {
        const auto size = getxattr(target_.c_str(), name.c_str(), nullptr, 0);
        if (size < 0) continue;  // gone meanwhile
        value.resize(static_cast<std::size_t>(size));
        const auto read = getxattr(target_.c_str(), name.c_str(), value.data(), value.size());
        if (read < 0) continue;
        hasAccessList = hasAccessList || name == AccessList;
        // Labels of the security module are its own business and come by themselves.
        if (fsetxattr(descriptor_, name.c_str(), value.data(), static_cast<std::size_t>(read), 0) !=
                0 &&
            !name.starts_with("security."))
            fail("has an attribute (" + name + ") that you cannot give to a new file", errno);
    }
    // The folder may have given the new file a list of its own.
    if (!hasAccessList) fremovexattr(descriptor_, AccessList);
}

void NewFile::startFlushing() noexcept {
    sync_file_range(descriptor_, 0, 0, SYNC_FILE_RANGE_WRITE);
}

void NewFile::flush() {
    if (fdatasync(descriptor_) != 0) fail("cannot be written", errno);
    close();
}

void NewFile::replaceTarget() {
    if (rename(path_.c_str(), target_.c_str()) != 0) fail("cannot be replaced", errno);
    path_.clear();
}

bool NewFile::replaceTarget(const FileStamp& expected) {
    if (!expected.isStillOf(target_)) return false;
    HeldFile placed(path_);
    if (const int error = changePlaces(); error == EINVAL || error == ENOSYS) {
        // Not every file system can do that; what others write in this very moment is lost then.
        replaceTarget();
        return true;
    } else if (error != 0) {
        fail("cannot be replaced", error);
    }
    if (expected.isStillOfMoved(path_)) {
        const auto before = std::exchange(path_, {});
        if (unlink(before.c_str()) != 0 && errno != ENOENT)
            fail("was written, but what it was before stays behind as " + before.string(), errno);
        return true;
    }
    // What others put there between the look at the target and its replacement lies here now, and
    // goes back; unless they were there again meanwhile, and what comes out is newer still.
    while (true) {
        HeldFile theirs(path_);
        if (const int error = changePlaces(); error != 0) {
            const auto kept = std::exchange(path_, {});
            fail("was changed by someone else, whose version is " + kept.string() + " now", error);
        }
        if (placed.isAt(path_)) break;
        placed = std::move(theirs);
    }
    remove();
    return false;
}

// Gives the error.
int NewFile::changePlaces() noexcept {
    return renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_EXCHANGE) == 0
               ? 0
               : errno;
}

void NewFile::remove() noexcept {
    if (!path_.empty()) unlink(path_.c_str());
    path_.clear();
}

void NewFile::becomeTarget() {
    if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) {
        path_.clear();
        return;
    }
    // Not every file system can do that; a second name, after which the first goes, is as good.
    if (errno != EINVAL && errno != ENOSYS) fail("cannot be made", errno);
    if (link(path_.c_str(), target_.c_str()) != 0) fail("cannot be made", errno);
    remove();
}

void NewFile::close() noexcept {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

// ---- hidden names -------------------------------------------------------------------------------

namespace {

constexpr std::string_view Prefix = ".headerdtc-";
constexpr std::string_view Suffix = ".tmp";

// The numbers in this process's names. Each process begins at another one: in a container every run
// may have the process id of the one that was killed before.
struct Numbers {
    const std::uint32_t first = std::random_device()() >> 1U;
    std::atomic<std::uint32_t> next{first};

    bool wasGiven(std::uint32_t number) const { return number >= first && number < next; }
};

Numbers& numbers() {
    static Numbers own;
    return own;
}

template <class Number>
std::optional<Number> takeNumber(std::string_view& text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

// The parts of a hidden name.
struct Maker {
    pid_t process;
    std::uint32_t number;

    bool isGone() const {
        if (process == getpid()) return !numbers().wasGiven(number);
        return kill(process, 0) != 0 && errno == ESRCH;
    }
};

std::optional<Maker> makerOf(std::string_view name) {
    if (!name.starts_with(Prefix) || !name.ends_with(Suffix)) return std::nullopt;
    name.remove_prefix(Prefix.size());
    const auto process = takeNumber<pid_t>(name);
    if (!process || *process <= 0 || !name.starts_with('-')) return std::nullopt;
    name.remove_prefix(1);
    const auto number = takeNumber<std::uint32_t>(name);
    return number && name == Suffix ? std::optional(Maker{*process, *number}) : std::nullopt;
}

// A process in another container or on another machine cannot be seen from here, but its lock can.
bool isLocked(const std::filesystem::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return false;
    const bool locked = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(descriptor);
    return locked;
}

bool isFirstLook(const std::filesystem::path& folder) {
    static std::mutex mutex;
    static std::set<std::filesystem::path> seen;
    const std::lock_guard lock(mutex);
    return seen.insert(folder).second;
}

}  // namespace

std::string newFileName() {
    std::string name(Prefix);
    name.append(std::to_string(getpid())).append("-").append(std::to_string(numbers().next++));
    return name.append(Suffix);
}

void removeStrayFiles(const std::filesystem::path& folder) noexcept {
    try {
        if (!isFirstLook(folder)) return;
        std::error_code ignored;
        std::filesystem::directory_iterator entry(folder, ignored);
        for (; !ignored && entry != std::filesystem::directory_iterator();
             entry.increment(ignored)) {
            const auto maker = makerOf(entry->path().filename().native());
            if (maker && maker->isGone() && !isLocked(entry->path())) unlink(entry->path().c_str());
        }
    } catch (const std::exception&) {
        // They are removed another time.
        return;
    }
}

}  // namespace headerdtc
