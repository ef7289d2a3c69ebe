#pragma once

#include <string>

namespace headerdtc::cli {

// All of a file, of standard input ("-") or of a pipe, which is what a shell makes of <(command).
// Throws FileError.
std::string readInput(const std::string& file);

}  // namespace headerdtc::cli
