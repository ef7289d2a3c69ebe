#pragma once

#include "platform/runtime_error.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace headerdtc {

// How messages name an empty path, and say what is wrong with it: the system would only say that
// there is no such file.
inline constexpr const char* EmptyPath = "\"\"";
inline constexpr const char* EmptyPathProblem = "an empty path names no page";

// Why a file of the site, or a page, cannot be used: what() says what, where and what to do, in a
// form that stands alone ("catalogue.json:3:17: ..."). Places are counted from 1, in bytes.
class FileError : public std::runtime_error {
  public:
    FileError(std::string file, const std::string& problem)
        : std::runtime_error(file + ": " + problem), file_(std::move(file)), problem_(problem) {}
    FileError(std::string file, int line, int column, const std::string& problem);
    // At a byte of the file's text.
    static FileError at(std::string file, std::string_view text, std::size_t place,
                        const std::string& problem);

    const std::string& file() const { return file_; }
    int line() const { return line_; }      // 0 where there is none
    int column() const { return column_; }  // 0 where there is none
    const std::string& problem() const { return problem_; }

  private:
    std::string file_;
    std::string problem_;
    int line_ = 0;
    int column_ = 0;
};

// A FileError for which the system gave the reason.
class SystemFileError : public FileError {
  public:
    // `failure` says what could not be done ("cannot be read"); the reason is put behind it.
    SystemFileError(std::string file, const std::string& failure, int error);

    int error() const { return error_; }  // errno

  private:
    int error_;
};

// The site's configuration is wrong or missing a piece; ends a command with its own exit status.
class ConfigurationError : public FileError {
  public:
    using FileError::FileError;
};

// The run-time error number of a failure of the system (errno).
ErrorNumber errorNumberOf(int error);

// A file of the site that cannot be used, as a run-time error: by the system's reason where there
// is one, otherwise 57. The description has the file and the place in it; for a file that is not
// there also the remedy.
RuntimeError runtimeErrorOf(const FileError& error, const std::string& remedy);

}  // namespace headerdtc
