#include "qt/editor/preview/text_diff.h"

#include <algorithm>
#include <cstdint>

namespace headerdtc::qt {
namespace {

using Lines = std::vector<std::string_view>;

// Beyond this many changes the search would take long, and nobody would read its result line by
// line.
constexpr int MostChanges = 1000;

// The shortest way from one text to the other through the grid of their lines, by the number of
// changes: in each round the farthest points that so many changes reach, one for each diagonal.
class ShortestEdit {
  public:
    ShortestEdit(const Lines& before, const Lines& after, std::size_t skipped, std::size_t oldEnd,
                 std::size_t newEnd)
        : before_(before),
          after_(after),
          skipped_(skipped),
          oldSize_(static_cast<int>(oldEnd - skipped)),
          newSize_(static_cast<int>(newEnd - skipped)) {}

    // The pairs of equal lines, in order; tells whether they were found within the limit.
    bool findSameLines(std::vector<DiffRun>& same) {
        const int limit = std::min(oldSize_ + newSize_, MostChanges);
        std::vector<int> farthest(2 * static_cast<std::size_t>(limit) + 3, 0);
        const auto at = [&](int diagonal) -> int& {
            return farthest[static_cast<std::size_t>(diagonal) +
                            static_cast<std::size_t>(limit + 1)];
        };
        for (int changes = 0; changes <= limit; ++changes) {
            for (int diagonal = -changes; diagonal <= changes; diagonal += 2) {
                const bool added = diagonal == -changes ||
                                   (diagonal != changes && at(diagonal - 1) < at(diagonal + 1));
                int x = added ? at(diagonal + 1) : at(diagonal - 1) + 1;
                while (x < oldSize_ && x - diagonal < newSize_ && isSame(x, x - diagonal))
                    ++x;
                at(diagonal) = x;
                if (x >= oldSize_ && x - diagonal >= newSize_) {
                    rounds_.push_back(farthest);
                    walkBack(changes, limit, same);
                    return true;
                }
            }
            rounds_.push_back(farthest);
        }
        return false;
    }

  private:
    bool isSame(int x, int y) const {
        return before_[skipped_ + static_cast<std::size_t>(x)] ==
               after_[skipped_ + static_cast<std::size_t>(y)];
    }

    void walkBack(int changes, int limit, std::vector<DiffRun>& same) const {
        int x = oldSize_;
        int y = newSize_;
        for (int round = changes; round >= 0; --round) {
            int fromX = 0;
            int fromY = 0;
            if (round > 0) {
                const auto at = [&](int diagonal) {
                    return rounds_[static_cast<std::size_t>(round - 1)]
                                  [static_cast<std::size_t>(diagonal) +
                                   static_cast<std::size_t>(limit + 1)];
                };
                const int diagonal = x - y;
                const bool added = diagonal == -round ||
                                   (diagonal != round && at(diagonal - 1) < at(diagonal + 1));
                const int previous = added ? diagonal + 1 : diagonal - 1;
                fromX = at(previous);
                fromY = fromX - previous;
            }
            // Equal lines end the round's way; before them stands its one change.
            const int length = std::min(x - fromX, y - fromY);
            if (length > 0) {
                const auto oldEnd = skipped_ + static_cast<std::size_t>(x);
                const auto newEnd = skipped_ + static_cast<std::size_t>(y);
                const auto count = static_cast<std::size_t>(length);
                same.push_back({true, oldEnd - count, oldEnd, newEnd - count, newEnd});
            }
            x = fromX;
            y = fromY;
        }
        std::reverse(same.begin(), same.end());
    }

    const Lines& before_;
    const Lines& after_;
    std::size_t skipped_;
    int oldSize_;
    int newSize_;
    std::vector<std::vector<int>> rounds_;
};

void append(std::vector<DiffRun>& runs, const DiffRun& run) {
    if (run.oldBegin == run.oldEnd && run.newBegin == run.newEnd) return;
    if (!runs.empty() && runs.back().same == run.same) {
        runs.back().oldEnd = run.oldEnd;
        runs.back().newEnd = run.newEnd;
    } else {
        runs.push_back(run);
    }
}

}  // namespace

std::vector<std::string_view> linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const auto end = text.find_first_of("\r\n");
        lines.push_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(text.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1);
    }
    return lines;
}

std::vector<DiffRun> diffLines(const Lines& oldLines, const Lines& newLines) {
    std::size_t begin = 0;
    const std::size_t shorter = std::min(oldLines.size(), newLines.size());
    while (begin < shorter && oldLines[begin] == newLines[begin])
        ++begin;
    std::size_t oldEnd = oldLines.size();
    std::size_t newEnd = newLines.size();
    while (oldEnd > begin && newEnd > begin && oldLines[oldEnd - 1] == newLines[newEnd - 1]) {
        --oldEnd;
        --newEnd;
    }

    std::vector<DiffRun> same;
    if (oldEnd > begin && newEnd > begin)
        ShortestEdit(oldLines, newLines, begin, oldEnd, newEnd).findSameLines(same);
    same.push_back({true, oldEnd, oldLines.size(), newEnd, newLines.size()});

    std::vector<DiffRun> runs;
    append(runs, {true, 0, begin, 0, begin});
    std::size_t oldLine = begin;
    std::size_t newLine = begin;
    for (const DiffRun& run : same) {
        append(runs, {false, oldLine, run.oldBegin, newLine, run.newBegin});
        append(runs, run);
        oldLine = run.oldEnd;
        newLine = run.newEnd;
    }
    return runs;
}

}  // namespace headerdtc::qt
