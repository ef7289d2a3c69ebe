#include "host/files/file_replacer.h"

#include "host/files/descriptor.h"
#include "host/files/file_error.h"
#include "host/files/new_file.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <optional>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

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

// Flushes a folder, so that the new names in it last; returns the error. A folder that cannot be
// opened, or a file system that cannot flush folders, is no error.
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
    if (path.empty()) throw FileError(EmptyPath, EmptyPathProblem);
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
        // No more threads: the ones that there are do all of it.
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

namespace {

void commitOne(FileReplacer& replacer, const fs::path& path) {
    const auto outcomes = replacer.commit();
    if (!outcomes.front().problem.empty()) throw FileError(path, outcomes.front().problem);
}

}  // namespace

void replaceWholeFile(const fs::path& path, std::string_view bytes, const FileStamp& expected) {
    FileReplacer replacer;
    replacer.replace(path, bytes, expected);
    commitOne(replacer, path);
}

void createWholeFile(const fs::path& path, std::string_view bytes) {
    FileReplacer replacer;
    replacer.create(path, bytes);
    commitOne(replacer, path);
}

void writeWholeFile(const fs::path& path, std::string_view bytes, const FileStamp& seen) {
    if (seen == FileStamp()) return createWholeFile(path, bytes);
    replaceWholeFile(path, bytes, seen);
}

}  // namespace headerdtc
