#include "host/diff/line_diff.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <dtl/dtl.hpp>

namespace headerdtc {
namespace {

using Kind = DiffLine::Kind;
using Lines = std::vector<std::string_view>;

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

// Adds lines of both texts behind what the runs have.
void append(std::vector<DiffRun>& runs, bool same, std::size_t oldLines, std::size_t newLines) {
    if (oldLines + newLines == 0) return;
    if (runs.empty() || runs.back().same != same) {
        const DiffRun last = runs.empty() ? DiffRun{} : runs.back();
        runs.push_back({same, last.oldEnd, last.oldEnd, last.newEnd, last.newEnd});
    }
    runs.back().oldEnd += oldLines;
    runs.back().newEnd += newLines;
}

// Both texts as one sequence of lines; of those that differ the removed ones come first.
std::vector<DiffLine> editScript(const Lines& before, const Lines& after) {
    std::vector<DiffLine> script;
    for (const DiffRun& run : diffRuns(before, after)) {
        const Kind kind = run.same ? Kind::Context : Kind::Removed;
        for (std::size_t i = run.oldBegin; i < run.oldEnd; ++i)
            script.push_back({kind, before[i]});
        for (std::size_t i = run.newBegin; i < run.newEnd && !run.same; ++i)
            script.push_back({Kind::Added, after[i]});
    }
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

Lines linesOf(std::string_view text, LineForm form) {
    const bool isWhole = form == LineForm::Whole;
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(isWhole ? "\n" : "\r\n"), text.size());
        const std::size_t next =
            std::min(text.size(), end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1));
        lines.push_back(text.substr(0, isWhole ? next : end));
        text.remove_prefix(next);
    }
    return lines;
}

// What the texts share at both ends, which is nearly all of a page, is not searched for
// differences.
std::vector<DiffRun> diffRuns(const Lines& oldLines, const Lines& newLines) {
    const std::size_t start = commonStart(oldLines, newLines);
    const std::size_t end = commonEnd(oldLines, newLines, start);
    const auto middle = [&](const Lines& lines) {
        return Lines(lines.begin() + static_cast<std::ptrdiff_t>(start),
                     lines.end() - static_cast<std::ptrdiff_t>(end));
    };
    std::vector<DiffRun> runs;
    append(runs, true, start, start);
    dtl::Diff<std::string_view, Lines> difference(middle(oldLines), middle(newLines));
    difference.compose();
    for (const auto& [text, place] : difference.getSes().getSequence()) {
        const bool same = place.type == dtl::SES_COMMON;
        append(runs, same, place.type != dtl::SES_ADD, place.type != dtl::SES_DELETE);
    }
    append(runs, true, end, end);
    return runs;
}

std::vector<DiffHunk> diffLines(std::string_view before, std::string_view after,
                                std::size_t context) {
    if (before == after) return {};
    const std::vector<DiffLine> script =
        editScript(linesOf(before, LineForm::Whole), linesOf(after, LineForm::Whole));
    return HunkMaker(script, context).make();
}

int firstDifferentLine(std::string_view before, std::string_view after) {
    if (before == after) return 0;
    const auto end = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    return static_cast<int>(std::count(before.begin(), end, '\n')) + 1;
}

// ---- the text for patch -------------------------------------------------------------------------

namespace {

// The start of a side of a hunk, and its length unless that is 1.
std::string side(std::size_t line, std::size_t count) {
    return std::to_string(line) + (count == 1 ? "" : "," + std::to_string(count));
}

bool needsQuotes(std::string_view name) {
    return name.find_first_of("\"\\") != std::string_view::npos ||
           std::any_of(name.begin(), name.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; });
}

}  // namespace

std::string diffFileName(const std::string& name) {
    // Behind a bare name a tab says where it ends, for names with blanks.
    if (!needsQuotes(name)) return name.find(' ') == std::string::npos ? name : name + '\t';
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) {
            std::array<char, 5> octal{};
            std::snprintf(octal.data(), octal.size(), "\\%03o", static_cast<unsigned>(c) & 0xFFU);
            quoted += octal.data();
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

std::string hunkHead(const DiffHunk& hunk) {
    return "@@ -" + side(hunk.beforeLine, hunk.beforeCount) + " +" +
           side(hunk.afterLine, hunk.afterCount) + " @@";
}

std::string unifiedDiff(const std::string& file, std::string_view before, std::string_view after) {
    const auto hunks = diffLines(before, after);
    if (hunks.empty()) return {};
    const std::string name = diffFileName(file);
    std::string text = "--- " + name + "\n+++ " + name + "\n";
    for (const DiffHunk& hunk : hunks) {
        text += hunkHead(hunk) + "\n";
        for (const DiffLine& line : hunk.lines) {
            text += static_cast<char>(line.kind);
            text += line.text;
            if (line.text.ends_with('\n')) continue;
            text += '\n';
            text += NoLineEnd;
            text += '\n';
        }
    }
    return text;
}

}  // namespace headerdtc
