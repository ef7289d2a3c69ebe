#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace headerdtc::qt {

// A text and two that were made from it, side by side: base, mine, theirs. Lines that come from the
// same line of the base stand in the same row.
struct AlignedRow {
    struct Cell {
        std::string_view text;
        bool present = false;  // the text has a line here
        bool changed = false;  // which the base has not; of the base: which another has not
    };
    std::array<Cell, 3> cells;

    bool differs() const;
};

std::vector<AlignedRow> alignTexts(std::string_view base, std::string_view mine,
                                   std::string_view theirs);
// The same of texts that are lines already, whatever each of them holds.
std::vector<AlignedRow> alignLines(const std::vector<std::string_view>& base,
                                   const std::vector<std::string_view>& mine,
                                   const std::vector<std::string_view>& theirs);

// The base with the changes of both. Where both have changed the same or neighbouring lines, and
// not to the same, there is a conflict: its first line.
struct MergedLines {
    std::vector<std::string_view> lines;
    std::optional<std::string_view> conflict;
};
MergedLines mergeLines(const std::vector<AlignedRow>& rows);

}  // namespace headerdtc::qt
