#pragma once

#include <array>
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

}  // namespace headerdtc::qt
