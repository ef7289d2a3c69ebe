#include "host/site/file_failures.h"

#include <cerrno>

namespace headerdtc {

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
