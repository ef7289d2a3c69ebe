#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace headerdtc::qt {

// A text's lines without their ends (LF, CR LF or CR); a last line that is empty does not count.
std::vector<std::string_view> linesOf(std::string_view text);

// A run of lines in which two texts are alike or differ. Lines are counted from 0; a run that is
// not Same has lines of the old text, of the new one or of both.
struct DiffRun {
    bool same = false;
    std::size_t oldBegin = 0, oldEnd = 0;
    std::size_t newBegin = 0, newEnd = 0;
};

// How an old text became a new one, line by line, in few changes. The runs cover both texts; of two
// that follow each other exactly one is the same. Texts that have hardly anything in common are one
// difference between the lines that they begin and end with alike.
std::vector<DiffRun> diffLines(const std::vector<std::string_view>& oldLines,
                               const std::vector<std::string_view>& newLines);

}  // namespace headerdtc::qt
