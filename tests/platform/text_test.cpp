#include "platform/text.h"

#include "platform/utf8.h"
#include "support/error_number.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using ::testing::ElementsAre;

TEST(TextTest, TrimsBlanksAndNothingElse) {
    EXPECT_EQ(trimBlanks("  a b \t "), "a b \t");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(TextTest, SplitsAtEveryOccurrenceAndKeepsEmptyPieces) {
    EXPECT_THAT(splitText("1 - A - B", " - "), ElementsAre("1", "A", "B"));
    EXPECT_THAT(splitText(".A.", "."), ElementsAre("", "A", ""));
    EXPECT_THAT(splitText("", "."), ElementsAre(""));
    EXPECT_THAT(splitText("A.B", ""), ElementsAre("A.B"));
    EXPECT_EQ(secondPiece("1 - A - B", " - "), "A");
    EXPECT_EQ(secondPiece("GROUP.", "."), "");
    EXPECT_EQ(numberOf([] { secondPiece("GROUP", "."); }), 9);
}

TEST(TextTest, UpperCaseReachesLettersOfTwoBytes) {
    EXPECT_EQ(upperCase("c:\\größe\\éàþ÷ÿšœžµłωжı"), "C:\\GRÖßE\\ÉÀÞ÷ŸŠŒŽµŁΩЖı");
    EXPECT_EQ(upperCase("\xC3"), "\xC3");
    EXPECT_EQ(upperCase("\xC3z"), "\xC3Z");
}

TEST(TextTest, ReplacementsAreNotScannedAgain) {
    EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceAll("<X><x>", "<x>", "1"), "<X>1");
    EXPECT_EQ(replaceAllIgnoringCase("<X><x>end", "<x>", "<X>"), "<X><X>end");
    EXPECT_EQ(replaceAllIgnoringCase("text", "", "never"), "text");
}

TEST(TextTest, ComparesIgnoringCaseOverTheWholeLength) {
    EXPECT_TRUE(equalIgnoringCase("DataProvider", "DATAPROVIDER"));
    EXPECT_FALSE(equalIgnoringCase("Data", "DataProvider"));
    EXPECT_FALSE(equalIgnoringCase("[", "{"));
}

TEST(TextTest, CountsCharactersNotBytes) {
    EXPECT_EQ(utf8::length("größe€😀"), 7);
    EXPECT_EQ(utf8::offset("größe", 3), 4U);
    EXPECT_EQ(utf8::offset("größe", 0), 0U);
    EXPECT_EQ(utf8::offset("größe", 99), 7U);
}

TEST(TextTest, NarrowsToSixteenBitsOrOverflows) {
    EXPECT_EQ(toInt16(-32768), -32768);
    EXPECT_EQ(toInt16(32767), 32767);
    EXPECT_EQ(numberOf([] { toInt16(32768); }), 6);
    EXPECT_EQ(numberOf([] { toInt16(-32769); }), 6);
}

}  // namespace
}  // namespace headerdtc
