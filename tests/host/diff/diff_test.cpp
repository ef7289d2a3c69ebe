#include "host/diff/unified_diff.h"
#include "support/temp_site.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <random>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::TempFolder;

// The text that the hunks make of `before`, taken at the lines that they name.
std::string applied(std::string_view before, const std::vector<DiffHunk>& hunks) {
    const auto lines = linesOf(before, LineForm::Whole);
    std::string after;
    std::size_t next = 1, written = 0;
    for (const DiffHunk& hunk : hunks) {
        const std::size_t start = hunk.beforeLine + (hunk.beforeCount == 0 ? 1 : 0);
        while (next < start) {
            after += lines.at(next++ - 1);
            ++written;
        }
        EXPECT_EQ(written + (hunk.afterCount == 0 ? 0 : 1), hunk.afterLine);
        for (const DiffLine& line : hunk.lines) {
            if (line.kind != DiffLine::Kind::Added) {
                EXPECT_EQ(lines.at(next++ - 1), line.text);
            }
            if (line.kind == DiffLine::Kind::Removed) continue;
            after += line.text;
            ++written;
        }
    }
    while (next <= lines.size())
        after += lines[next++ - 1];
    return after;
}

TEST(LineDiff, HunksTurnAnyTextIntoAnyOther) {
    std::mt19937 random(20000426);
    const auto text = [&](int lines, int kinds) {
        std::string made;
        for (int i = 0; i < lines; ++i)
            made += std::string(random() % 3, 'x') + std::to_string(random() % kinds) +
                    (random() % 2 ? "\r\n" : "\n");
        if (random() % 2) made += "tail";
        return made;
    };
    for (int round = 0; round < 400; ++round) {
        const std::string before = text(static_cast<int>(random() % 40), 4);
        const std::string after = text(static_cast<int>(random() % 40), 4);
        for (const std::size_t context : {0U, 1U, 3U})
            ASSERT_EQ(applied(before, diffLines(before, after, context)), after) << before;
    }
    // Two long texts that have nearly nothing in common.
    const std::string before = text(3000, 100000), after = text(3000, 100000);
    EXPECT_EQ(applied(before, diffLines(before, after)), after);
}

TEST(LineDiff, RunsTakeTurnsAndSayWhichLinesAreTheSame) {
    const auto shown = [](std::string_view before, std::string_view after) {
        const auto old = linesOf(before, LineForm::Shown), now = linesOf(after, LineForm::Shown);
        std::string text;
        for (const DiffRun& run : diffRuns(old, now)) {
            for (std::size_t i = run.oldBegin; i < run.oldEnd; ++i)
                text.append(run.same ? "=" : "-").append(old[i]);
            for (std::size_t i = run.newBegin; i < run.newEnd && !run.same; ++i)
                text.append("+").append(now[i]);
        }
        return text;
    };
    EXPECT_EQ(shown("a\rb\n\n", "a\r\nb\r\n\nc"), "=a=b=+c");
    EXPECT_EQ(shown("a\nb\nc\nd", "a\nx\nb\nd"), "=a+x=b-c=d");
    EXPECT_EQ(shown("1\n2\n3\n4", "2\n4\n5"), "-1=2-3=4+5");
    EXPECT_EQ(shown("", "a\nb"), "+a+b");
}

TEST(LineDiff, ChangesAreJoinedOnlyWhereTheirSurroundingsMeet) {
    std::string before;
    for (int i = 1; i <= 30; ++i)
        before += std::to_string(i) + "\n";
    const auto changed = [&](std::initializer_list<const char*> lines) {
        std::string after = before;
        for (const char* line : lines) {
            const std::string whole = "\n" + std::string(line) + "\n";
            after.replace(after.find(whole), whole.size(), "\nnew\n");
        }
        return after;
    };
    const std::string near = changed({"10", "17"}), far = changed({"10", "18"});
    EXPECT_THAT(diffLines(before, near), SizeIs(1));
    EXPECT_THAT(diffLines(before, far), SizeIs(2));
    EXPECT_EQ(firstDifferentLine(before, far), 10);
    EXPECT_EQ(firstDifferentLine(before, before), 0);
    EXPECT_EQ(hunkHead(diffLines(before, changed({"10"})).front()), "@@ -7,7 +7,7 @@");
}

TEST(UnifiedDiff, IsWhatPatchTakesByteForByte) {
    const std::vector<std::pair<std::string, std::string>> texts = {
        {"a\r\nb\r\n\x80\xff\r\nd\r\n", "a\r\nb\n\x81\r\nd\r\nnew"},
        {"", "one\n"},
        {"no end", "no end\n"},
        {"same\nold", "same\nnew"},
    };
    for (const char* name : {"page.asp", "with blank.asp", "qu\"ote\\.asp"}) {
        for (const auto& [before, after] : texts) {
            const TempFolder folder;
            folder.write(name, before);
            folder.write("diff", unifiedDiff(name, before, after));
            const std::string command = "cd '" + folder.path().string() + "' && patch -s -p0 <diff";
            EXPECT_EQ(std::system(command.c_str()), 0) << folder.read("diff");
            EXPECT_EQ(folder.read(name), after) << folder.read("diff");
        }
    }
    EXPECT_EQ(unifiedDiff("page.asp", "same", "same"), "");
}

}  // namespace
}  // namespace headerdtc
