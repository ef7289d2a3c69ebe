#include "host/site/site_text_files.h"

#include "host/files/file_cache.h"
#include "host/files/file_error.h"
#include "host/files/new_file.h"
#include "platform/utf8.h"

#include <cerrno>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

std::string decode(std::string_view bytes, const CodePage& codePage) {
    const bool isMarked = bytes.starts_with(utf8::ByteOrderMark);
    return (isMarked ? CodePage::utf8() : codePage).decode(utf8::withoutMark(bytes));
}

// The descriptions are part of texts that an author knows, so they say no more than they ever did.
RuntimeError failure(const fs::path& file, int error) {
    std::error_code ignored;
    if (error == ENOENT && !fs::is_directory(file.parent_path(), ignored))
        return RuntimeError(ErrorNumber::PathNotFound);
    return RuntimeError(errorNumberOf(error));
}

// Replaces a file whole, without waiting for the disk.
void replace(const fs::path& file, std::string_view bytes) {
    struct stat status {};
    const bool exists = stat(file.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode))
        throw SystemFileError(file, "cannot be written: it is no file", EISDIR);
    if (exists && access(file.c_str(), W_OK) != 0)
        throw SystemFileError(file, "cannot be written", errno);
    std::error_code error;
    const auto target = exists ? fs::canonical(file, error) : file;
    if (error) throw SystemFileError(file, "cannot be written", error.value());

    NewFile newFile(target, exists ? NewFile::Access::OwnerOnly : NewFile::Access::AsNewFiles,
                    file);
    newFile.write(bytes);
    if (exists) newFile.takeAttributes(status);
    newFile.replaceTarget();
}

}  // namespace

struct SiteTextFiles::Cache {
    std::mutex mutex;
    std::map<fs::path, FileCache<std::string>> files;
};

SiteTextFiles::SiteTextFiles(WindowsPaths paths, CodePage codePage)
    : paths_(std::move(paths)), codePage_(std::move(codePage)), cache_(std::make_unique<Cache>()) {}

SiteTextFiles::~SiteTextFiles() = default;

std::string SiteTextFiles::readText(const std::string& windowsPath) {
    const auto file = paths_.toLocal(windowsPath);
    std::unique_lock lock(cache_->mutex);
    auto& known = cache_->files
                      .try_emplace(file, file,
                                   [this](const std::string&, std::string_view bytes) {
                                       return decode(bytes, codePage_);
                                   })
                      .first->second;
    lock.unlock();
    try {
        return *known.current();
    } catch (const SystemFileError& error) {
        throw failure(file, error.error());
    } catch (const FileError&) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

void SiteTextFiles::writeText(const std::string& windowsPath, const std::string& text) {
    const auto file = paths_.toLocal(windowsPath);
    try {
        replace(file, codePage_.encode(text));
    } catch (const SystemFileError& error) {
        if (error.error() == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound);
        throw failure(file, error.error());
    }
}

}  // namespace headerdtc
