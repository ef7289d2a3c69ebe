#include "host/files/new_file.h"

#include "host/files/file_error.h"
#include "host/files/stray_files.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
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

}  // namespace

NewFile::NewFile(std::filesystem::path target, Access access, std::string called)
    : target_(std::move(target)), called_(std::move(called)) {
    const auto folder = target_.parent_path();
    removeStrayFiles(folder);
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
    if (!path_.empty()) unlink(path_.c_str());
    close();
}

void NewFile::fail(const std::string& failure, int error) const {
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

void NewFile::becomeTarget() {
    if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) {
        path_.clear();
        return;
    }
    // Not every file system can do that; a second name, after which the first goes, is as good.
    if (errno != EINVAL && errno != ENOSYS) fail("cannot be made", errno);
    if (link(path_.c_str(), target_.c_str()) != 0) fail("cannot be made", errno);
    unlink(path_.c_str());
    path_.clear();
}

void NewFile::close() noexcept {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

}  // namespace headerdtc
