#include "host/diff/line_diff.h"
#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::diff_test {

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
    const TempFolder folder;
    const auto expectPatched = [&](const std::string& name, const std::string& before,
                                   const std::string& after) {
        folder.write(name, before);
        folder.write("diff", unifiedDiff(name, before, after));
        const std::string command = "cd '" + folder.path().string() + "' && patch -s -p0 <diff";
        ASSERT_EQ(std::system(command.c_str()), 0) << folder.read("diff");
        ASSERT_EQ(folder.read(name), after) << folder.read("diff");
    };
    for (const char* name : {"page.asp", "with blank.asp", "qu\"ote\\.asp"}) {
        expectPatched(name, "a\r\nb\r\n\x80\xff\r\nd\r\n", "a\r\nb\n\x81\r\nd\r\nnew");
        expectPatched(name, "", "one\n");
        expectPatched(name, "no end", "no end\n");
    }
    std::mt19937 random(20000426);
    const auto text = [&](unsigned lines, unsigned kinds) {
        std::string made;
        for (unsigned i = 0; i < lines; ++i)
            made += std::string(random() % 3, 'x') + std::to_string(random() % kinds) +
                    (random() % 2 ? "\r\n" : "\n");
        return made + (random() % 2 ? "tail" : "");
    };
    for (int round = 0; round < 100; ++round) {
        const std::string before = text(1 + random() % 40, 4), after = text(1 + random() % 40, 4);
        if (before != after) expectPatched("page.asp", before, after);
    }
    // Two long texts that have nearly nothing in common.
    expectPatched("page.asp", text(3000, 100000), text(3000, 100000));
    EXPECT_EQ(unifiedDiff("page.asp", "same", "same"), "");
}

}  // namespace headerdtc::diff_test
