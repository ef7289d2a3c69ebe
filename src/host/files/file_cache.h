#pragma once

#include "host/files/whole_file.h"

#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace headerdtc {

// A file in its parsed form, parsed again only when the file changed. Thread-safe.
template <class T>
class FileCache {
  public:
    // What `parse` throws, current() throws; it is asked again only when the file changed.
    using Parse = std::function<T(const std::string& file, std::string_view bytes)>;
    FileCache(std::filesystem::path file, Parse parse)
        : file_(std::move(file)), parse_(std::move(parse)) {}

    // Throws what readWholeFile and the parse function throw. The object stays the same one until
    // the file changes.
    std::shared_ptr<const T> current() {
        const std::lock_guard lock(mutex_);
        if (!stamp_ || FileStamp::of(file_) != *stamp_) read();
        if (failure_) std::rethrow_exception(failure_);
        return value_;
    }

  private:
    void read() {
        stamp_.reset();
        auto whole = readWholeFile(file_);
        if (!bytes_ || *bytes_ != whole.bytes) {
            bytes_.reset();
            failure_ = nullptr;
            value_.reset();
            try {
                value_ = std::make_shared<const T>(parse_(file_.string(), whole.bytes));
            } catch (...) {
                failure_ = std::current_exception();
            }
        }
        // A file that changed a moment ago may change once more without getting another stamp, so
        // until its stamp has settled its bytes are compared instead.
        if (!whole.stamp.digest) {
            stamp_ = whole.stamp;
            bytes_.reset();
        } else {
            bytes_ = std::move(whole.bytes);
        }
    }

    const std::filesystem::path file_;
    const Parse parse_;
    std::mutex mutex_;
    std::optional<FileStamp> stamp_;    // once it is settled
    std::optional<std::string> bytes_;  // until then
    std::shared_ptr<const T> value_;
    std::exception_ptr failure_;
};

}  // namespace headerdtc
