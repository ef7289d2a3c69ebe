#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A line of a difference; the text is a view of one of the two texts, with the line end that it
// has there ("" behind the last line of a text that does not end in one).
struct DiffLine {
    enum class Kind : char { Context = ' ', Removed = '-', Added = '+' };
    Kind kind;
    std::string_view text;
};

// Changes that stand close together, with the lines around them. Lines count from 1; an empty side
// has the line before it, as the unified format wants.
struct DiffHunk {
    std::size_t beforeLine = 0, beforeCount = 0;
    std::size_t afterLine = 0, afterCount = 0;
    std::vector<DiffLine> lines;
};

inline constexpr std::size_t DiffContext = 3;

// What has to change in `before` for it to become `after`, line by line: as little as possible.
// Lines end at LF; every other byte belongs to its line. Both texts outlive the hunks. No hunks:
// the texts are the same.
std::vector<DiffHunk> diffLines(std::string_view before, std::string_view after,
                                std::size_t context = DiffContext);

// The first line of `before` that is another one in `after`, from 1; 0 when the texts are the same.
int firstDifferentLine(std::string_view before, std::string_view after);

}  // namespace headerdtc
