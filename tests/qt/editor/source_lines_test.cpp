#include "qt/editor/source/source_lines.h"

#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::qt::source_lines_test {

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
}

TEST(SourceLines, AnEditLeavesAllOtherBytesAlone) {
    const std::string bytes = "one\x81\r\ntwo\nthr\xE9 e\rfour";
    const SourceLines lines(page(bytes));
    // What Qt reports is often more than what has changed.
    const QString whole = QString(lines.text()).insert(8, QLatin1Char('!'));
    const std::tuple<int, int, QString, std::string> edits[] = {
        {14, 1, "E", "one\x81\r\ntwo\nthr\xE9 E\rfour"},
        // A line end of its own kind is taken out and put in.
        {4, 1, "", "one\x81two\nthr\xE9 e\rfour"},
        {6, 0, "\n", "one\x81\r\nt\nwo\nthr\xE9 e\rfour"},
        {18, 0, "\n", "one\x81\r\ntwo\nthr\xE9 e\rfo\rur"},
        {0, static_cast<int>(lines.text().size()), whole, "one\x81\r\ntwo!\nthr\xE9 e\rfour"},
    };
    for (const auto& [position, removed, inserted, expected] : edits)
        EXPECT_EQ(expected, edited(lines, position, removed, inserted)) << position;
    EXPECT_EQ(std::nullopt, edited(lines, 0, 5, lines.text().left(5)));
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
    const std::string mark = "\xEF\xBB\xBF";
    const SourceLines lines(page(mark + "ab\n"));
    EXPECT_EQ("ab\n", lines.text());
    EXPECT_EQ(mark + "!ab\n", edited(lines, 0, 0, "!"));
    EXPECT_EQ(mark, edited(lines, 0, 3, ""));
}

TEST(SourceLines, TellsAControlsSpanFromItsSurroundings) {
    const auto content = page(TempSite::page(TempSite::ordersParams()));
    const SourceLines lines(content);
    const ByteRange span = content->controls()[0].whole;
    const auto touches = [&](std::size_t begin, std::size_t end) {
        return lines.touchesControl({begin, end});
    };
    EXPECT_FALSE(touches(0, span.begin));
    EXPECT_FALSE(touches(span.end, span.end));
    EXPECT_TRUE(touches(span.begin + 1, span.begin + 1));
    EXPECT_TRUE(touches(span.begin - 1, span.begin + 1));
    EXPECT_TRUE(touches(span.end - 1, span.end + 1));
    EXPECT_TRUE(touches(0, content->bytes().size()));
}

// Random pages and random edits: bytes before and behind the edit stay, and the page shows what was
// written.
class RandomSource : public TestWithParam<const char*> {};

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

INSTANTIATE_TEST_SUITE_P(CodePages, RandomSource, Values("windows-1252", "utf-8", "iso-8859-7"));

}  // namespace headerdtc::qt::source_lines_test
