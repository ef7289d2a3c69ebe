#include "qt/editor/page/aligned_texts.h"

#include "host/diff/line_diff.h"

#include <algorithm>
#include <functional>

namespace headerdtc::qt {
namespace {

constexpr std::size_t BaseText = 0;

// A text as changes to the lines of the base.
struct Changed {
    std::vector<std::string_view> lines;
    // For each line of the base, and for its end: the lines put in before it.
    std::vector<std::pair<std::size_t, std::size_t>> added;
    std::vector<bool> removed;

    Changed(const std::vector<std::string_view>& base, const std::vector<std::string_view>& text)
        : lines(text), added(base.size() + 1), removed(base.size()) {
        for (const DiffRun& run : diffRuns(base, lines)) {
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
    return alignLines(linesOf(base, LineForm::Shown), linesOf(mine, LineForm::Shown),
                      linesOf(theirs, LineForm::Shown));
}

std::vector<AlignedRow> alignLines(const std::vector<std::string_view>& base,
                                   const std::vector<std::string_view>& mine,
                                   const std::vector<std::string_view>& theirs) {
    const std::array<Changed, 2> others{Changed(base, mine), Changed(base, theirs)};
    std::vector<AlignedRow> rows;
    for (std::size_t line = 0; line <= base.size(); ++line) {
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
        if (line == base.size()) break;
        AlignedRow row;
        row.cells[BaseText] = {base[line], true, false};
        for (std::size_t side = 0; side < others.size(); ++side) {
            if (others[side].removed[line]) {
                row.cells[BaseText].changed = true;
            } else {
                row.cells[side + 1] = {base[line], true, false};
            }
        }
        rows.push_back(row);
    }
    return rows;
}

MergedLines mergeLines(const std::vector<AlignedRow>& rows) {
    MergedLines merged;
    for (auto row = rows.begin(); row != rows.end();) {
        const auto end = row->differs()
                             ? std::find_if_not(row, rows.end(), std::mem_fn(&AlignedRow::differs))
                             : row + 1;
        std::array<std::vector<std::string_view>, 3> sides;
        for (; row != end; ++row) {
            for (std::size_t side = 0; side < sides.size(); ++side) {
                if (row->cells[side].present) sides[side].push_back(row->cells[side].text);
            }
        }
        const auto& [base, mine, theirs] = sides;
        if (mine != base && theirs != base && mine != theirs) {
            merged.conflict = !base.empty() ? base.front() : theirs.front();
            return merged;
        }
        const auto& chosen = mine == base ? theirs : mine;
        merged.lines.insert(merged.lines.end(), chosen.begin(), chosen.end());
    }
    return merged;
}

}  // namespace headerdtc::qt
