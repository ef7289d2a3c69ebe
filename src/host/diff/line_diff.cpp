#include "host/diff/line_diff.h"

#include <algorithm>
#include <dtl/dtl.hpp>

namespace headerdtc {
namespace {

using Kind = DiffLine::Kind;
using Lines = std::vector<std::string_view>;

Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

std::size_t commonStart(const Lines& before, const Lines& after) {
    const auto end = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    return static_cast<std::size_t>(end - before.begin());
}

std::size_t commonEnd(const Lines& before, const Lines& after, std::size_t start) {
    const std::size_t most = std::min(before.size(), after.size()) - start;
    std::size_t count = 0;
    while (count < most && before[before.size() - 1 - count] == after[after.size() - 1 - count])
        ++count;
    return count;
}

// Where lines follow each other that are only in one of the texts, those removed come first.
void removedFirst(std::vector<DiffLine>& script) {
    const auto isContext = [](const DiffLine& line) { return line.kind == Kind::Context; };
    for (auto begin = script.begin(); begin != script.end();) {
        begin = std::find_if_not(begin, script.end(), isContext);
        const auto end = std::find_if(begin, script.end(), isContext);
        std::stable_partition(begin, end,
                              [](const DiffLine& line) { return line.kind == Kind::Removed; });
        begin = end;
    }
}

// Both texts as one sequence of lines. What they share at both ends, which is nearly all of a page,
// is not searched for differences.
std::vector<DiffLine> editScript(const Lines& before, const Lines& after) {
    const std::size_t start = commonStart(before, after);
    const std::size_t end = commonEnd(before, after, start);
    const auto context = [](std::string_view text) { return DiffLine{Kind::Context, text}; };

    std::vector<DiffLine> script;
    std::transform(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(start),
                   std::back_inserter(script), context);
    const auto middle = [&](const Lines& lines) {
        return Lines(lines.begin() + static_cast<std::ptrdiff_t>(start),
                     lines.end() - static_cast<std::ptrdiff_t>(end));
    };
    dtl::Diff<std::string_view, Lines> difference(middle(before), middle(after));
    difference.compose();
    for (const auto& [text, place] : difference.getSes().getSequence()) {
        const Kind kind = place.type == dtl::SES_DELETE ? Kind::Removed
                          : place.type == dtl::SES_ADD  ? Kind::Added
                                                        : Kind::Context;
        script.push_back({kind, text});
    }
    std::transform(before.end() - static_cast<std::ptrdiff_t>(end), before.end(),
                   std::back_inserter(script), context);
    removedFirst(script);
    return script;
}

// Cuts a script into hunks.
class HunkMaker {
  public:
    HunkMaker(const std::vector<DiffLine>& script, std::size_t context)
        : script_(script), context_(context) {}

    std::vector<DiffHunk> make() {
        for (std::size_t i = 0; i < script_.size(); ++i) {
            if (script_[i].kind == Kind::Context) {
                count(script_[i]);
                continue;
            }
            i = takeHunk(i);
        }
        return std::move(hunks_);
    }

  private:
    // From the change at `first` on; returns the last line taken.
    std::size_t takeHunk(std::size_t first) {
        std::size_t last = first;
        for (std::size_t i = first; i < script_.size() && i <= last + 2 * context_ + 1; ++i) {
            if (script_[i].kind != Kind::Context) last = i;
        }
        const std::size_t before = std::min(first, context_);
        DiffHunk hunk;
        hunk.beforeLine = beforeLine_ - before;
        hunk.afterLine = afterLine_ - before;
        const std::size_t end = std::min(script_.size(), last + 1 + context_);
        for (std::size_t i = first - before; i < end; ++i) {
            hunk.lines.push_back(script_[i]);
            hunk.beforeCount += script_[i].kind != Kind::Added;
            hunk.afterCount += script_[i].kind != Kind::Removed;
            if (i >= first) count(script_[i]);
        }
        if (hunk.beforeCount == 0) --hunk.beforeLine;
        if (hunk.afterCount == 0) --hunk.afterLine;
        hunks_.push_back(std::move(hunk));
        return end - 1;
    }

    void count(const DiffLine& line) {
        beforeLine_ += line.kind != Kind::Added;
        afterLine_ += line.kind != Kind::Removed;
    }

    const std::vector<DiffLine>& script_;
    std::size_t context_;
    std::size_t beforeLine_ = 1, afterLine_ = 1;  // the next line of each text
    std::vector<DiffHunk> hunks_;
};

}  // namespace

std::vector<DiffHunk> diffLines(std::string_view before, std::string_view after,
                                std::size_t context) {
    if (before == after) return {};
    const std::vector<DiffLine> script = editScript(linesOf(before), linesOf(after));
    return HunkMaker(script, context).make();
}

int firstDifferentLine(std::string_view before, std::string_view after) {
    if (before == after) return 0;
    const auto end = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    return static_cast<int>(std::count(before.begin(), end, '\n')) + 1;
}

}  // namespace headerdtc
