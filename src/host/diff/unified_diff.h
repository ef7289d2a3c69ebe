#pragma once

#include "host/diff/line_diff.h"

#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

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
