#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace headerdtc::cli {

// The type name of options whose value is a file.
inline constexpr const char* FileType = "FILE";

// The shells that completions can be written for.
const std::vector<std::string>& completionShells();

// A script that completes the command in a shell, made from the command line's own description:
// commands, options, and files where one is expected.
std::string completionScript(const CLI::App& app, const std::string& shell);

}  // namespace headerdtc::cli
