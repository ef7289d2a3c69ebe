#include "qt/editor/source/source_lines.h"

#include "support/temp_site.h"

#include <gtest/gtest.h>
#include <random>

namespace headerdtc::qt {
namespace {

PageContentPtr page(std::string bytes, const char* codePage = "windows-1252") {
    return std::make_shared<const PageContent>("page.asp", std::move(bytes), CodePage(codePage));
}

// The page's bytes after a piece of the text shown was replaced by another.
std::optional<std::string> edited(const SourceLines& lines, int position, int removed,
                                  const QString& inserted) {
    const auto edit = lines.editOf(position, removed, inserted);
    if (!edit) return std::nullopt;
    return lines.page().withText(edit->range, edit->bytes);
}

TEST(SourceLines, ShowsEveryKindOfLineEndAsOne) {
    const SourceLines lines(page("a\r\nb\nc\rd\r\n"));
    EXPECT_EQ("a\nb\nc\nd\n", lines.text());
    EXPECT_EQ(5, lines.count());
    EXPECT_EQ(1, lines.lineOfByte(3));
    EXPECT_EQ(4, lines.positionOfLine(2));
}

TEST(SourceLines, AnEditLeavesAllOtherBytesAlone) {
    const SourceLines lines(
        page("one\x81\r\ntwo\nthr\xE9"
             "e\rfour"));
    EXPECT_EQ(
        "one\x81\r\ntwo\nthr\xE9"
        "E\rfour",
        edited(lines, 13, 1, "E"));
    // A line end of its own kind is taken out and put in.
    EXPECT_EQ(
        "one\x81two\nthr\xE9"
        "e\rfour",
        edited(lines, 4, 1, ""));
    EXPECT_EQ(
        "one\x81\r\nt\nwo\nthr\xE9"
        "e\rfour",
        edited(lines, 6, 0, "\n"));
    EXPECT_EQ(
        "one\x81\r\ntwo\nthr\xE9"
        "e\rfo\rur",
        edited(lines, 17, 0, "\n"));
    // What Qt reports is often more than what has changed.
    EXPECT_EQ(
        "one\x81\r\ntwo!\nthr\xE9"
        "e\rfour",
        edited(lines, 0, static_cast<int>(lines.text().size()),
               QString(lines.text()).insert(8, QLatin1Char('!'))));
    EXPECT_EQ(std::nullopt, edited(lines, 0, 5, lines.text().left(5)));
}

TEST(SourceLines, WritesWhatTheCodePageLacksAsAReference) {
    const SourceLines lines(page("ab"));
    EXPECT_EQ("a\x80&#937;b", edited(lines, 1, 0, QStringLiteral("\u20AC\u03A9")));
}

TEST(SourceLines, ReplacesWholeCharactersOfUtf8) {
    // Two characters that differ in their second half only.
    const SourceLines lines(page("x\xF0\x9F\x98\x80y\xFFz", "utf-8"));
    const QString other = QString::fromUtf8("\xF0\x9F\x98\x81");
    EXPECT_EQ("x\xF0\x9F\x98\x81y\xFFz", edited(lines, 1, 2, other));
    EXPECT_EQ("x\xF0\x9F\x98\x80y\xFF!z", edited(lines, 5, 0, "!"));
    EXPECT_EQ(std::nullopt, lines.byteAt(2));
}

TEST(SourceLines, KeepsAByteOrderMarkOutOfReach) {
    const SourceLines lines(
        page("\xEF\xBB\xBF"
             "ab\n"));
    EXPECT_EQ("ab\n", lines.text());
    EXPECT_EQ(
        "\xEF\xBB\xBF"
        "!ab\n",
        edited(lines, 0, 0, "!"));
    EXPECT_EQ("\xEF\xBB\xBF", edited(lines, 0, 3, ""));
}

TEST(SourceLines, TellsAControlsSpanFromItsSurroundings) {
    const auto content = page(testing::TempSite::page(testing::TempSite::ordersParams()));
    const SourceLines lines(content);
    const ByteRange span = content->controls()[0].whole;
    EXPECT_FALSE(lines.touchesControl({span.begin, span.begin}));
    EXPECT_FALSE(lines.touchesControl({span.end, span.end}));
    EXPECT_FALSE(lines.touchesControl({0, span.begin}));
    EXPECT_TRUE(lines.touchesControl({span.begin + 1, span.begin + 1}));
    EXPECT_TRUE(lines.touchesControl({span.begin - 1, span.begin + 1}));
    EXPECT_TRUE(lines.touchesControl({span.end - 1, span.end + 1}));
    EXPECT_TRUE(lines.touchesControl({0, content->bytes().size()}));
}

// Random pages and random edits: bytes before and behind the edit stay, and the page shows what was
// written.
class RandomSource : public ::testing::TestWithParam<const char*> {};

TEST_P(RandomSource, EditsChangeExactlyTheirOwnBytes) {
    std::mt19937 random(20);
    const auto below = [&](std::size_t limit) { return static_cast<int>(random() % limit); };
    for (int round = 0; round < 400; ++round) {
        std::string bytes;
        for (int i = below(60); i > 0; --i) {
            constexpr const char* Pieces[] = {"a",    "<b>",  "\r\n", "\n",
                                              "\r",   " ",    "\x81", "\xC3\xA9",
                                              "\xE2", "\xFF", "\t",   "\xEE\xBE\x80"};
            bytes += Pieces[below(std::size(Pieces))];
        }
        const SourceLines lines(page(bytes, GetParam()));
        const auto size = static_cast<std::size_t>(lines.text().size());
        const int position = below(size + 1);
        const int removed = below(size - static_cast<std::size_t>(position) + 1);
        constexpr const char* Texts[] = {"", "x", "new text", "\n", "a\nb"};
        const QString inserted = QLatin1String(Texts[below(std::size(Texts))]);
        const auto edit = lines.editOf(position, removed, inserted);
        QString expected = lines.text();
        expected.replace(position, removed, inserted);
        if (!edit) {
            EXPECT_EQ(lines.text(), expected);
            continue;
        }
        const std::string changed = lines.page().withText(edit->range, edit->bytes);
        EXPECT_EQ(bytes.substr(0, edit->range.begin), changed.substr(0, edit->range.begin));
        EXPECT_TRUE(changed.ends_with(bytes.substr(edit->range.end)));
        // Two line ends of which an edit makes one, CR and LF, are read as one afterwards; and
        // bytes that are no characters alone may be one together.
        const auto joins = [&](std::size_t at) {
            return at > 0 && at < changed.size() &&
                   (changed[at - 1] == '\r' || changed[at - 1] < 0);
        };
        if (joins(edit->range.begin) || joins(edit->range.begin + edit->bytes.size())) continue;
        EXPECT_EQ(expected, SourceLines(page(changed, GetParam())).text());
    }
}

INSTANTIATE_TEST_SUITE_P(CodePages, RandomSource,
                         ::testing::Values("windows-1252", "utf-8", "iso-8859-7"));

}  // namespace
}  // namespace headerdtc::qt
