#include "core/stored_comparison.h"

#include "core/filled_control.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Stored = std::vector<std::pair<std::string, std::string>>;
using Written = std::vector<std::pair<std::string, PropertyValue>>;

// "name: stored -> rewritten", "nothing" for what would be gone.
std::vector<std::string> losses(const Stored& stored, const Written& written) {
    std::vector<std::string> lines;
    for (const LostProperty& loss : findLosses(stored, written))
        lines.push_back(loss.name + ": " + loss.stored + " -> " +
                        loss.rewritten.value_or("nothing"));
    return lines;
}

TEST(StoredComparisonTest, WhatComesBackTheSameInMeaningIsNoLoss) {
    EXPECT_THAT(losses({{"EnableExtraFilters", "TRUE"},
                        {"EAIReturnFieldCount", " 2.0 "},
                        {"DataProvider", "Orders"},
                        {"10EAICriteriaType", "1"}},
                       {{"EnableExtraFilters", true},
                        {"EAIReturnFieldCount", std::int16_t{2}},
                        {"DataProvider", std::string("Orders")},
                        {"10EAICriteriaType", std::int16_t{1}},
                        {"XSLFilename", std::string("new")}}),
                IsEmpty());
}

TEST(StoredComparisonTest, AnEntryOfADictionaryMayStandAtAnotherPlaceButNotGo) {
    const Written written = {{"EAICriteriaType1", std::string("first")},
                             {"firstEAICriteriaType", std::int16_t{2}}};
    EXPECT_THAT(losses({{"EAICriteriaType2", "first"}, {"firstEAICriteriaType", "2"}}, written),
                IsEmpty());
    EXPECT_THAT(
        losses({{"EAICriteriaType2", "other"}, {"ZEKOCriteriaType2", "first"}}, written),
        ElementsAre("EAICriteriaType2: other -> nothing", "ZEKOCriteriaType2: first -> nothing"));
}

// A return field that was moved takes its translation along.
TEST(StoredComparisonTest, ASelectionMayBeInAnotherOrderButNotLoseAnItem) {
    const Written written = {{"NrOfEAII18NFieldnames", std::int16_t{2}},
                             {"EAII18NFieldnames0", std::string("b")},
                             {"EAII18NFieldnames1", std::string("a")}};
    EXPECT_THAT(losses({{"NrOfEAII18NFieldnames", "2"},
                        {"EAII18NFieldnames0", "a"},
                        {"EAII18NFieldnames1", "b"}},
                       written),
                IsEmpty());
    EXPECT_THAT(losses({{"EAII18NFieldnames0", "c"}, {"EAIReturnFields0", "a"}}, written),
                ElementsAre("EAII18NFieldnames0: c -> b", "EAIReturnFields0: a -> nothing"));
}

TEST(StoredComparisonTest, ADefaultMayBeLeftOut) {
    EXPECT_THAT(losses({{"EnableExtraFilters", "0"},
                        {"NrOfLinkedZEKOFields", "2"},
                        {"NrOfEAII18NFieldnames", "0"},
                        {"ZEKOCriteria1_2", ""}},
                       {}),
                IsEmpty());
    EXPECT_THAT(
        losses({{"NrOfLinkedZEKOFields", "0"}, {"LinkedDataProvider", ""}}, {}),
        ElementsAre("NrOfLinkedZEKOFields: 0 -> nothing", "LinkedDataProvider:  -> nothing"))
        << "left out it would be read as its default";
}

TEST(StoredComparisonTest, AnotherValueNoValueOrAnUnknownNameIsALoss) {
    EXPECT_THAT(losses({{"DataProvider", "orders"},
                        {"EAIReturnFields7", "O.A"},
                        {"EAIReturnFieldCount", "abc"},
                        {"EnableExtraFilters", "-1"},
                        {"SomebodyElses", "1"},
                        {"EAIReturnFields07", ""}},
                       {{"DataProvider", std::string("Orders")},
                        {"EAIReturnFieldCount", std::int16_t{2}},
                        {"EnableExtraFilters", false}}),
                ElementsAre("DataProvider: orders -> Orders", "EAIReturnFields7: O.A -> nothing",
                            "EAIReturnFieldCount: abc -> 2", "EnableExtraFilters: -1 -> 0",
                            "SomebodyElses: 1 -> nothing", "EAIReturnFields07:  -> nothing"));
}

TEST(StoredComparisonTest, AControlThatOffersEverythingLosesNothing) {
    FilledControl filled;
    testing::OrderedPropertyBag bag;
    filled.dtc.UserControl_WriteProperties(bag);
    Stored page;
    for (const auto& [name, value] : bag.entries)
        page.emplace_back(name, testing::OrderedPropertyBag::textOf(value));
    EXPECT_THAT(losses(page, bag.entries), IsEmpty());

    TestControl other;
    other.dtc.DataProvidersCombo.RemoveItem(0);
    bag.asText = true;
    other.dtc.UserControl_ReadProperties(bag);
    testing::OrderedPropertyBag again;
    other.dtc.UserControl_WriteProperties(again);
    EXPECT_THAT(losses(page, again.entries), ElementsAre("DataProvider: Orders -> nothing"));
}

}  // namespace
}  // namespace headerdtc
