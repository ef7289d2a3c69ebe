#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// What counts as a line.
enum class LineForm {
    Whole,  // ends at LF, its end and every other byte belong to it: lines as patch has them
    Shown,  // ends at LF, CR LF or CR and goes without its end: lines as an editor counts them
};
// A text's lines; behind its last line end there is none. The text outlives them.
std::vector<std::string_view> linesOf(std::string_view text, LineForm form);

// A run of lines in which two texts are alike or differ. Lines count from 0; a run that is not the
// same has lines of the old text, of the new one or of both.
struct DiffRun {
    bool same = false;
    std::size_t oldBegin = 0, oldEnd = 0;
    std::size_t newBegin = 0, newEnd = 0;
};

// How an old text became a new one, in as few changes as possible. The runs cover both texts; of
// two that follow each other exactly one is the same.
std::vector<DiffRun> diffRuns(const std::vector<std::string_view>& oldLines,
                              const std::vector<std::string_view>& newLines);

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

// What has to change in `before` for it to become `after`, by whole lines. Both texts outlive the
// hunks. No hunks: the texts are the same.
std::vector<DiffHunk> diffLines(std::string_view before, std::string_view after,
                                std::size_t context = DiffContext);

// The first line of `before` that is another one in `after`, from 1; 0 when the texts are the same.
int firstDifferentLine(std::string_view before, std::string_view after);

// A file's name in the head of a diff: in quotes with escapes where a bare one would be misread.
std::string diffFileName(const std::string& name);

// "@@ -12,3 +12,4 @@"
std::string hunkHead(const DiffHunk& hunk);

// The line that says that the line before it has no line end, as patch knows it.
inline constexpr std::string_view NoLineEnd = "\\ No newline at end of file";

// What `patch -p0` makes of the file when it is given this text: `after` in the place of `before`.
// Empty when the two are the same.
std::string unifiedDiff(const std::string& file, std::string_view before, std::string_view after);

}  // namespace headerdtc
