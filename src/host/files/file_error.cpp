#include "host/files/file_error.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace headerdtc {
namespace {

std::string placed(const std::string& file, int line, int column, const std::string& problem) {
    std::string text = file + ':' + std::to_string(line);
    if (column > 0) text += ':' + std::to_string(column);
    return text + ": " + problem;
}

}  // namespace

FileError::FileError(std::string file, int line, int column, const std::string& problem)
    : std::runtime_error(placed(file, line, column, problem)),
      file_(std::move(file)),
      problem_(problem),
      line_(line),
      column_(column) {}

FileError FileError::at(std::string file, std::string_view text, std::size_t place,
                        const std::string& problem) {
    const auto before = text.substr(0, place);
    const auto line = 1 + std::ranges::count(before, '\n');
    const auto column = place - (before.rfind('\n') + 1);  // npos + 1 is 0
    return {std::move(file), static_cast<int>(line), static_cast<int>(column) + 1, problem};
}

SystemFileError::SystemFileError(std::string file, const std::string& failure, int error)
    : FileError(std::move(file), failure + ": " + std::generic_category().message(error)),
      error_(error) {}

ErrorNumber errorNumberOf(int error) {
    switch (error) {
        case ENOENT:
            return ErrorNumber::FileNotFound;
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
            return ErrorNumber::PermissionDenied;
        case EISDIR:
        case ELOOP:
        case ENAMETOOLONG:
            return ErrorNumber::PathFileAccessError;
        case EDQUOT:
        case EFBIG:
        case ENOSPC:
            return ErrorNumber::DiskFull;
        default:
            return ErrorNumber::DeviceIoError;
    }
}

RuntimeError runtimeErrorOf(const FileError& error, const std::string& remedy) {
    const auto* system = dynamic_cast<const SystemFileError*>(&error);
    if (!system) return {ErrorNumber::DeviceIoError, error.what()};
    if (system->error() != ENOENT && system->error() != ENOTDIR)
        return {errorNumberOf(system->error()), error.what()};
    return {ErrorNumber::FileNotFound, error.what() + ("; " + remedy)};
}

}  // namespace headerdtc
