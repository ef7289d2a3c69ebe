#pragma once

#include "host/files/file_error.h"
#include "platform/runtime_error.h"

#include <string>

namespace headerdtc {

// The run-time error number of a failure of the system (errno).
ErrorNumber errorNumberOf(int error);

// A file of the site that cannot be used, as a run-time error: by the system's reason where there
// is one, otherwise 57. The description has the file and the place in it; for a file that is not
// there also the remedy.
RuntimeError runtimeErrorOf(const FileError& error, const std::string& remedy);

}  // namespace headerdtc
