#include "cli/diff_output.h"

#include "cli/streams.h"
#include "host/diff/line_diff.h"
#include "platform/utf8.h"

namespace headerdtc::cli {
namespace {

constexpr const char* Bold = "\033[1m";
constexpr const char* Red = "\033[31m";
constexpr const char* Green = "\033[32m";
constexpr const char* Cyan = "\033[36m";
constexpr const char* Plain = "\033[0m";

const char* colourOf(DiffLine::Kind kind) {
    switch (kind) {
        case DiffLine::Kind::Removed:
            return Red;
        case DiffLine::Kind::Added:
            return Green;
        case DiffLine::Kind::Context:
            break;
    }
    return "";
}

// The carriage return at a line's end is shown only where it may be what has changed.
std::string_view withoutEnd(const DiffLine& line) {
    std::string_view text = line.text;
    if (text.ends_with('\n')) text.remove_suffix(1);
    if (line.kind == DiffLine::Kind::Context && text.ends_with('\r')) text.remove_suffix(1);
    return text;
}

void printColoured(std::string_view colour, const std::string& text) {
    static const bool coloured = wantsColour(stdout);
    printLine(stdout, coloured ? std::string(colour) + text + Plain : text);
}

void printForTerminal(const std::string& page, std::string_view before, std::string_view after,
                      const CodePage& codePage) {
    printColoured(Bold, "--- " + visible(page));
    printColoured(Bold, "+++ " + visible(page));
    for (const DiffHunk& hunk : diffLines(before, after)) {
        printColoured(Cyan, hunkHead(hunk));
        for (const DiffLine& line : hunk.lines) {
            printColoured(colourOf(line.kind), static_cast<char>(line.kind) +
                                                   visible(codePage.decode(withoutEnd(line))));
            if (!line.text.ends_with('\n')) printLine(stdout, NoLineEnd);
        }
    }
}

}  // namespace

const CodePage& codePageOf(std::string_view page, const CodePage& siteCodePage) {
    return page.starts_with(utf8::ByteOrderMark) ? CodePage::utf8() : siteCodePage;
}

void printDiff(const std::string& page, std::string_view before, std::string_view after,
               const CodePage& siteCodePage) {
    if (isTerminal(stdout))
        return printForTerminal(page, before, after, codePageOf(before, siteCodePage));
    const std::string text = unifiedDiff(page, before, after);
    std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace headerdtc::cli
