#include "host/diff/unified_diff.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace headerdtc {
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
