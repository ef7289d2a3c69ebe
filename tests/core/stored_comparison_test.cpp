#include "core/stored_comparison.h"

#include "core/filled_control.h"

namespace headerdtc::stored_comparison_test {

// "name: stored -> rewritten", "nothing" for what would be gone.
std::vector<std::string> losses(const StoredTexts& stored, const StoredTexts& written) {
    std::vector<std::string> lines;
    for (const StoredLoss& loss : findLosses(stored, written))
        lines.push_back(loss.name + ": " + loss.stored + " -> " +
                        loss.rewritten.value_or("nothing"));
    return lines;
}

StoredTexts writtenBy(HeaderDTC& dtc) {
    testing::OrderedPropertyBag bag;
    dtc.UserControl_WriteProperties(bag);
    StoredTexts texts;
    for (const auto& [name, value] : bag.entries)
        texts.emplace_back(name, testing::OrderedPropertyBag::textOf(value));
    return texts;
}

TEST(StoredComparisonTest, WhatSaysTheSameIsNoLoss) {
    EXPECT_THAT(losses({{"EnableExtraFilters", "TRUE"},
                        {"EAIReturnFieldCount", " 2.0 "},
                        {"DataProvider", "Orders"},
                        {"EAICriteria1_3", "used"},
                        {"usedEAICriteriaType", "1.0"},
                        {"constantEAICriteriaType", "0"},
                        {"idleEAICriteriaType", "2"},
                        {"EAICriteriaType2", "used"},
                        {"EAICriteriaType3", "idle"},
                        {"NrOfEAII18NFieldnames", "2"},
                        {"EAII18NFieldnames0", "a"},
                        {"EAII18NFieldnames1", "b"},
                        {"ZEKOCriteriaCount", "1"},
                        {"NrOfLinkedZEKOFields", "2"},
                        {"ZEKOCriteria1_2", ""},
                        {"SomebodyElses", "1"},
                        {"EAIReturnFields07", "x"}},
                       {{"EnableExtraFilters", "-1"},
                        {"EAIReturnFieldCount", "2"},
                        {"DataProvider", "Orders"},
                        {"EAICriteria1_3", "used"},
                        {"EAICriteriaType1", "used"},
                        {"usedEAICriteriaType", "1"},
                        {"NrOfEAII18NFieldnames", "2"},
                        {"EAII18NFieldnames0", "b"},
                        {"EAII18NFieldnames1", "a"},
                        {"ZEKOCriteriaCount", "2"},
                        {"XSLFilename", "new"}}),
                IsEmpty());
}

TEST(StoredComparisonTest, ATextAnItemAMarkARowAScriptOrAKindThatMattersIsALoss) {
    const StoredTexts page = {{"DataProvider", "orders"},        {"EAIReturnFieldCount", "8"},
                              {"EAIReturnFields7", "O.A"},       {"EnableExtraFilters", "-1"},
                              {"ZEKOCriteria1_3", "used"},       {"usedZEKOCriteriaType", "2"},
                              {"usedUserDefinedScript", "text"}, {"EAII18NFieldnames0", "c"},
                              {"NrOfLinkedZEKOFields", "3"},     {"LinkedDataProvider", ""}};
    const StoredTexts written = {{"DataProvider", "Orders"},
                                 {"EnableExtraFilters", "0"},
                                 {"ZEKOCriteria1_3", "used"},
                                 {"NrOfEAII18NFieldnames", "1"},
                                 {"EAII18NFieldnames0", "b"}};
    EXPECT_THAT(
        losses(page, written),
        ElementsAre("DataProvider: orders -> Orders", "EAIReturnFieldCount: 8 -> nothing",
                    "EAIReturnFields7: O.A -> nothing", "EnableExtraFilters: -1 -> 0",
                    "usedZEKOCriteriaType: 2 -> nothing", "usedUserDefinedScript: text -> nothing",
                    "EAII18NFieldnames0: c -> b", "NrOfLinkedZEKOFields: 3 -> nothing",
                    "LinkedDataProvider:  -> nothing"));

    // What is put back is there again, beside what the author has done since.
    StoredTexts now = written;
    now.front().second = "Stock";
    const auto remaining = remainingLosses(findLosses(page, written), now);
    EXPECT_EQ(remaining.size(), 8U) << "another provider was chosen";
    StoredLoss unheard = remaining.front();
    unheard.name = "Unheard";
    EXPECT_EQ(withLosses(now, {unheard}), now);
    const StoredTexts carried = withLosses(now, remaining);
    EXPECT_THAT(losses(carried, written), SizeIs(9));
    EXPECT_THAT(losses(page, carried), ElementsAre("DataProvider: orders -> Stock"));
    EXPECT_THAT(
        carried,
        IsSupersetOf({Pair("EAII18NFieldnames0", "b"), Pair("EAII18NFieldnames1", "c"),
                      Pair("NrOfEAII18NFieldnames", "2"), Pair("ZEKOCriteriaType1", "used")}));
}

TEST(StoredComparisonTest, AControlThatOffersEverythingLosesNothing) {
    FilledControl filled;
    const StoredTexts page = writtenBy(filled.dtc);
    TestControl other;
    other.dtc.DataProvidersCombo.RemoveItem(0);
    auto bag = filledPage();
    other.dtc.UserControl_ReadProperties(bag);
    const StoredTexts rewritten = writtenBy(other.dtc);
    EXPECT_THAT(losses(page, rewritten), ElementsAre("DataProvider: Orders -> nothing"));
}

}  // namespace headerdtc::stored_comparison_test
