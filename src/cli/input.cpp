#include "cli/input.h"

#include "host/files/whole_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace headerdtc::cli {

std::string readInput(const std::string& file) {
    if (file == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::error_code ignored;
    const auto kind = std::filesystem::status(file, ignored);
    if (!is_fifo(kind) && !is_character_file(kind)) return readWholeFile(file).bytes;
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace headerdtc::cli
