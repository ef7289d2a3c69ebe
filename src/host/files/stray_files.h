#pragma once

#include <filesystem>
#include <string>

namespace headerdtc {

// A hidden name for a new file, with this process's id in it; each call gives another one.
std::string newFileName();

// Removes from a folder the files with such names whose process is gone. Looks into a folder only
// once in this process's life; failures are of no consequence.
void removeStrayFiles(const std::filesystem::path& folder) noexcept;

}  // namespace headerdtc
