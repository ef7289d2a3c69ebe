#include "platform/dictionary.h"

#include "support/error_number.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;

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

TEST(DictionaryTest, ReadingAMissingKeyAddsItEmpty) {
    auto dictionary = abc();
    EXPECT_EQ(dictionary.item("B"), "");
    EXPECT_TRUE(dictionary.Exists("B"));
    EXPECT_EQ(dictionary.item("b"), "1");
    EXPECT_EQ(dictionary.Count(), 4);
}

TEST(DictionaryTest, AddingAKeyTwiceFailsAndKeepsTheFirst) {
    auto dictionary = abc();
    EXPECT_EQ(numberOf([&] { dictionary.Add("b", "again"); }), 457);
    EXPECT_THAT(dictionary, ElementsAre(Pair("b", "1"), Pair("a", "2"), Pair("c", "3")));
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

}  // namespace
}  // namespace headerdtc
