#include "platform/dictionary.h"
#include "platform/error_trap.h"
#include "platform/nearest_name.h"
#include "platform/utf8.h"
#include "support/fake_surroundings.h"
#include "support/prologue.h"

namespace headerdtc::platform_test {

Dictionary<std::string> abc() {
    Dictionary<std::string> dictionary;
    dictionary.Add("b", "1");
    dictionary.Add("a", "2");
    dictionary.Add("c", "3");
    return dictionary;
}

TEST(DictionaryTest, EnumeratesInTheOrderOfAddingWhateverIsRemovedBetween) {
    auto dictionary = abc();
    EXPECT_TRUE(dictionary.Remove("a"));
    EXPECT_FALSE(dictionary.Remove("a"));
    dictionary.Add("a", "4");
    dictionary.assign("b", "5");
    dictionary.assign("d", "6");
    EXPECT_THAT(dictionary,
                ElementsAre(Pair("b", "5"), Pair("c", "3"), Pair("a", "4"), Pair("d", "6")));
}

TEST(DictionaryTest, AddingAKeyTwiceFailsAndReadingAMissingOneAddsItEmpty) {
    auto dictionary = abc();
    EXPECT_EQ(numberOf([&] { dictionary.Add("b", "again"); }), 457);
    EXPECT_EQ(dictionary.item("B"), "");
    EXPECT_TRUE(dictionary.Exists("B"));
    EXPECT_EQ(dictionary.item("b"), "1");
    EXPECT_EQ(dictionary.Count(), 4);
}

TEST(DictionaryTest, CopiesAndMovesStandOnTheirOwn) {
    auto original = abc();
    auto copy = original;
    original.Remove("b");
    original.assign("a", "changed");
    EXPECT_EQ(copy.item("a"), "2");
    EXPECT_EQ(copy.item("b"), "1");

    const auto moved = std::move(copy);
    copy = abc();
    copy.RemoveAll();
    EXPECT_EQ(copy.Count(), 0);
    EXPECT_TRUE(moved.Exists("c"));
    EXPECT_THAT(moved, ElementsAre(Pair("b", "1"), Pair("a", "2"), Pair("c", "3")));
}

TEST(ErrorTrapTest, ReportsAFailureUnderTheGivenNameAndLetsThroughWhatIsNone) {
    testing::RecordingMessageBox messages;
    int done = 0;
    EXPECT_FALSE(trapErrors(messages, "AddField_Click", [&] {
        done = 1;
        throw RuntimeError(ErrorNumber::PathNotFound);
    }));
    EXPECT_EQ(done, 1);
    EXPECT_THAT(messages.errors, ElementsAre("Error in 'AddField_Click': Path not found (76)"));
    EXPECT_EQ(messages.shown, messages.errors);
    EXPECT_THROW(trapErrors(messages, "F", [] { throw std::logic_error("a defect"); }),
                 std::logic_error);
    EXPECT_TRUE(trapErrors(messages, "F", [] {}));
    EXPECT_EQ(messages.shown, messages.errors);
}

TEST(ErrorTrapTest, ADatabaseFailureKeepsItsOwnNumberAndText) {
    EXPECT_EQ(errorReport("F", RuntimeError(-2147217900, "no such table: I18NTEXT")),
              "Error in 'F': no such table: I18NTEXT (-2147217900)");
    EXPECT_EQ(errorReport("F", RuntimeError(ErrorNumber::Overflow),
                          ErrorReportStyle::NoBlankBeforeNumber),
              "Error in 'F': Overflow(6)");
}

TEST(NearestName, IsTheOneThatMayHaveBeenMeant) {
    const char* const pairs =
        "chek=check GENERATE=generate hwere=where hsow=show hello= exit=edit FLAGG=FLAG remove= x= "
        "=";
    for (const std::string_view pair : splitText(pairs, " ")) {
        const auto written = splitText(pair, "=").front(), meant = splitText(pair, "=").back();
        NearestName nearest(written);
        for (const char* name : {"generate", "check", "where", "doctor", "new", "show", "edit",
                                 "FLAT", "FLAG", "FLAGS"})
            nearest.offer(name);
        EXPECT_EQ(nearest.found(), meant) << "for " << written;
    }
    EXPECT_EQ(NearestName("check").question(), "");
}

TEST(TextTest, TrimsBlanksAndSplitsAtEveryOccurrence) {
    EXPECT_EQ(trimBlanks("  a b \t "), "a b \t");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
    EXPECT_THAT(splitText("1 - A - B", " - "), ElementsAre("1", "A", "B"));
    EXPECT_THAT(splitText(".A.", "."), ElementsAre("", "A", ""));
    EXPECT_THAT(splitText("", "."), ElementsAre(""));
    EXPECT_THAT(splitText("A.B", ""), ElementsAre("A.B"));
    EXPECT_EQ(secondPiece("1 - A - B", " - "), "A");
    EXPECT_EQ(secondPiece("GROUP.", "."), "");
    EXPECT_EQ(numberOf([] { secondPiece("GROUP", "."); }), 9);
}

TEST(TextTest, UpperCaseReachesLettersOfTwoBytesAndComparingTheWholeLength) {
    EXPECT_EQ(upperCase("c:\\größe\\éàþ÷ÿšœžµłωжı"), "C:\\GRÖßE\\ÉÀÞ÷ŸŠŒŽµŁΩЖı");
    EXPECT_EQ(upperCase("\xC3"), "\xC3");
    EXPECT_EQ(upperCase("\xC3z"), "\xC3Z");
    EXPECT_TRUE(equalIgnoringCase("DataProvider", "DATAPROVIDER"));
    EXPECT_FALSE(equalIgnoringCase("Data", "DataProvider"));
    EXPECT_FALSE(equalIgnoringCase("[", "{"));
}

TEST(TextTest, ReplacementsAreNotScannedAgain) {
    EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceAll("<X><x>", "<x>", "1"), "<X>1");
    EXPECT_EQ(replaceAllIgnoringCase("<X><x>end", "<x>", "<X>"), "<X><X>end");
    EXPECT_EQ(replaceAllIgnoringCase("text", "", "never"), "text");
}

TEST(TextTest, CountsCharactersNotBytesAndBringsThemBack) {
    EXPECT_EQ(utf8::length("größe€😀"), 7);
    EXPECT_EQ(utf8::length("\xF0\x9F"), 1) << "cut short";
    EXPECT_EQ(utf8::offset("größe", 3), 4U);
    EXPECT_EQ(utf8::offset("größe", 0), 0U);
    EXPECT_EQ(utf8::offset("größe", 99), 7U);
    for (const char32_t c : {U'A', U'\u007F', U'\u0080', U'\u07FF', U'\u0800', U'\uFFFD',
                             U'\U00010000', U'\U0010FFFF'})
        EXPECT_EQ(utf8::first(utf8::encode(c) + "x"), c);
    EXPECT_EQ(utf8::first(""), 0U);
    for (const char32_t none : {char32_t{0xD800}, char32_t{0x110000}})
        EXPECT_EQ(utf8::encode(none), "\uFFFD");
    EXPECT_EQ(utf8::fromUtf16Replacing(std::u16string(2, 0xDC00)), "\uFFFD\uFFFD");
}

TEST(TextTest, NarrowsToSixteenBitsOrOverflows) {
    EXPECT_EQ(toInt16(-32768), -32768);
    EXPECT_EQ(toInt16(32767), 32767);
    EXPECT_EQ(numberOf([] { toInt16(32768); }), 6);
    EXPECT_EQ(numberOf([] { toInt16(-32769); }), 6);
}

}  // namespace headerdtc::platform_test
