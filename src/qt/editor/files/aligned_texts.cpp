#include "qt/editor/files/aligned_texts.h"

#include "qt/editor/preview/text_diff.h"

#include <algorithm>

namespace headerdtc::qt {
namespace {

constexpr std::size_t Base = 0;

// A text as changes to the lines of the base.
struct Changed {
    std::vector<std::string_view> lines;
    // For each line of the base, and for its end: the lines put in before it.
    std::vector<std::pair<std::size_t, std::size_t>> added;
    std::vector<bool> removed;

    Changed(const std::vector<std::string_view>& base, std::string_view text)
        : lines(linesOf(text)), added(base.size() + 1), removed(base.size()) {
        for (const DiffRun& run : diffLines(base, lines)) {
            if (run.same) continue;
            added[run.oldBegin] = {run.newBegin, run.newEnd};
            for (std::size_t i = run.oldBegin; i < run.oldEnd; ++i)
                removed[i] = true;
        }
    }
    std::size_t addedBefore(std::size_t line) const {
        return added[line].second - added[line].first;
    }
};

}  // namespace

bool AlignedRow::differs() const {
    return std::any_of(cells.begin(), cells.end(), [](const Cell& cell) { return cell.changed; });
}

std::vector<AlignedRow> alignTexts(std::string_view base, std::string_view mine,
                                   std::string_view theirs) {
    const auto baseLines = linesOf(base);
    const std::array<Changed, 2> others{Changed(baseLines, mine), Changed(baseLines, theirs)};
    std::vector<AlignedRow> rows;
    for (std::size_t line = 0; line <= baseLines.size(); ++line) {
        const std::size_t height =
            std::max(others[0].addedBefore(line), others[1].addedBefore(line));
        for (std::size_t i = 0; i < height; ++i) {
            AlignedRow row;
            for (std::size_t side = 0; side < others.size(); ++side) {
                if (i >= others[side].addedBefore(line)) continue;
                row.cells[side + 1] = {others[side].lines[others[side].added[line].first + i], true,
                                       true};
            }
            rows.push_back(row);
        }
        if (line == baseLines.size()) break;
        AlignedRow row;
        row.cells[Base] = {baseLines[line], true, false};
        for (std::size_t side = 0; side < others.size(); ++side) {
            if (others[side].removed[line]) {
                row.cells[Base].changed = true;
            } else {
                row.cells[side + 1] = {baseLines[line], true, false};
            }
        }
        rows.push_back(row);
    }
    return rows;
}

}  // namespace headerdtc::qt
