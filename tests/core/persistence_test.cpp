#include "core/filled_control.h"

namespace headerdtc::persistence_test {

OrderedPropertyBag written(HeaderDTC& dtc) {
    OrderedPropertyBag bag;
    dtc.UserControl_WriteProperties(bag);
    return bag;
}

// A page that stores these properties, in texts as pages do.
OrderedPropertyBag page(std::initializer_list<std::pair<const char*, const char*>> properties) {
    OrderedPropertyBag bag;
    for (const auto& [name, value] : properties)
        bag.set(name, std::string(value));
    return bag;
}

std::string failedReading(const std::string& reason) {
    return "Error in 'UserControl_ReadProperties': " + reason;
}

// What a control reads out of a bag.
class PersistenceTest : public ControlTest {
  protected:
    void read(OrderedPropertyBag stored) { dtc.UserControl_ReadProperties(stored); }
};

// ---- there and back -----------------------------------------------------------------------------

TEST_F(PersistenceTest, AFullControlComesBackAsItWas) {
    FilledControl filled;
    for (const bool asText : {false, true}) {
        SCOPED_TRACE(asText);
        TestControl other;
        OrderedPropertyBag stored = written(filled.dtc);
        stored.asText = asText;
        other.dtc.UserControl_ReadProperties(stored);
        EXPECT_THAT(other.messages(), IsEmpty());
        EXPECT_EQ(written(other.dtc).entries, written(filled.dtc).entries);
    }
}

TEST_F(PersistenceTest, APageWithoutPropertiesGivesAnEmptyControl) {
    dtc.linkedDataProvider = "Stock";
    read({});
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(dtc.linkedDataProvider, "ZEKOLinkedDataProvidersCombo");
    EXPECT_EQ(dtc.ZEKO.LinkedDataProvidersCombo.ListIndex(), -1);
    EXPECT_EQ(dtc.ZEKO.LinksGrid.Rows(), 2);
    EXPECT_EQ(dtc.EAI.CriteriaGrid.Rows(), 2);
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "");
}

// ---- order --------------------------------------------------------------------------------------

TEST_F(PersistenceTest, ReadsInAnOrderOfItsOwn) {
    OrderedPropertyBag bag;
    dtc.UserControl_ReadProperties(bag);
    EXPECT_THAT(
        bag.reads,
        ElementsAre("EnableExtraFilters", "DataProvider", "ZEKOReturnFieldCount",
                    "EAIReturnFieldCount", "ZEKOCriteriaCount", "EAICriteriaCount",
                    "ZEKOAvailableFieldsCount", "EAIAvailableFieldsCount", "ZEKOKeyFieldsCount",
                    "EAIKeyFieldsCount", "ZEKOCriteriaCount", "EAICriteriaCount",
                    "NrOfUserDefinedScripts", "NrOfExtraIncludes", "XSLFilename",
                    "NrOfZEKOI18NFieldnames", "NrOfEAII18NFieldnames", "NrOfZEKOI18NFieldValues",
                    "NrOfEAII18NFieldValues", "LinkedDataProvider", "NrOfZEKOAvailableFieldsLinked",
                    "NrOfEAIAvailableFieldsLinked", "NrOfSelectedZEKOLinkedFields",
                    "NrOfSelectedEAILinkedFields", "NrOfZEKOToLinkKeyFields",
                    "NrOfEAIToLinkKeyFields", "NrOfLinkedZEKOFields", "ZEKOLinkFromFields1",
                    "ZEKOLinkToFields1", "NrOfLinkedEAIFields", "EAILinkFromFields1",
                    "EAILinkToFields1"));
}

TEST_F(PersistenceTest, HandlersOfTheProvidersCombosFindTheNameAndWhatTheyClearIsFilledAfterwards) {
    std::vector<std::string> known;
    Subscriptions listening;
    listening +=
        dtc.DataProvidersCombo.Click.subscribe([this] { dtc.ZEKO.FromLinkFieldsCombo.Clear(); });
    for (const Family which : BothFamilies)
        listening += dtc.family(which).LinkedDataProvidersCombo.Click.subscribe(
            [&] { known.push_back(dtc.linkedDataProvider); });
    read(filledPage());
    EXPECT_THAT(known, ElementsAre("Stock", "Stock"));
    EXPECT_EQ(dtc.ZEKO.FromLinkFieldsCombo.ListCount(), 3);
}

TEST_F(PersistenceTest, ReadingOnceMoreReplacesItemsAndAddsFieldsToLinkFrom) {
    OrderedPropertyBag stored = filledPage();
    for (const char* dictionary :
         {"ZEKOCriteriaCount", "EAICriteriaCount", "NrOfUserDefinedScripts"})
        stored.set(dictionary, std::int16_t{0});
    read(stored);
    fill(dtc.IncludeASPList, {"beyond those stored.asp"});
    read(stored);
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 3);
    EXPECT_EQ(dtc.ZEKO.FromLinkFieldsCombo.ListCount(), 6);
    EXPECT_EQ(dtc.IncludeASPList.ListCount(), 2);
}

// ---- what goes wrong ----------------------------------------------------------------------------

TEST_F(PersistenceTest, CountsAreConvertedOrEndTheReading) {
    const std::tuple<std::vector<const char*>, int, const char*> cases[] = {
        {{"2", " 2 ", "1.5", "2.5"}, 2, ""},
        {{"-1"}, 0, ""},
        {{"1e1"}, 10, ""},
        {{"abc", "", "2x", "--2", "inf"}, 0, "Type mismatch (13)"},
        {{"40000", "1e400", "-32769"}, 0, "Overflow (6)"},
    };
    for (const auto& [counts, items, error] : cases) {
        for (const char* count : counts) {
            SCOPED_TRACE(count);
            TestControl control;
            auto stored = page({{"EAIReturnFieldCount", count}, {"XSLFilename", "read.xsl"}});
            control.dtc.UserControl_ReadProperties(stored);
            EXPECT_EQ(control.dtc.EAI.SelectedFieldsList.ListCount(), items);
            std::vector<std::string> errors;
            if (*error) errors.push_back(failedReading(error));
            EXPECT_EQ(control.errors(), errors);
            EXPECT_EQ(control.dtc.XSLFilenameText.Text(),
                      errors.empty() ? "read.xsl" : "xsl/Generic.xsl");
        }
    }
}

TEST_F(PersistenceTest, WhatWasReadBeforeAFailureStays) {
    OrderedPropertyBag stored = filledPage();
    stored.failingName = "ZEKOI18NFieldnames1";
    read(stored);
    EXPECT_THAT(errors(), ElementsAre(failedReading("Device I/O error (57)")));
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "xsl/Orders.xsl");
    EXPECT_THAT(selectedItemsOf(dtc.ZEKO.I18NFieldnamesList), ElementsAre("1 - ORDNO"));
    EXPECT_EQ(dtc.EAI.I18NFieldnamesList.SelCount(), 0);
    EXPECT_EQ(dtc.linkedDataProvider, "");
}

TEST_F(PersistenceTest, WhatWasWrittenBeforeAFailureStays) {
    FilledControl filled;
    OrderedPropertyBag bag;
    bag.failingName = "EAIReturnFields1";
    filled.dtc.UserControl_WriteProperties(bag);
    EXPECT_THAT(filled.errors(),
                ElementsAre("Error in 'UserControl_WriteProperties': Device I/O error (57)"));
    EXPECT_THAT(bag.entries, SizeIs(5));
    EXPECT_EQ(bag.writes.back().name, "EAIReturnFields1");

    dtc.EAI.CriteriaType.Add("a", 70'000);
    EXPECT_FALSE(written(dtc).has("XSLFilename"));
    EXPECT_THAT(errors(), ElementsAre("Error in 'UserControl_WriteProperties': Overflow (6)"))
        << "a type that no page can hold";
}

// A page may claim what it likes. What is slower than in proportion to the counts would show here.
TEST_F(PersistenceTest, CountsThatLieGiveEmptyItems) {
    OrderedPropertyBag bag;
    for (const char* count :
         {"ZEKOReturnFieldCount", "EAIReturnFieldCount", "ZEKOCriteriaCount", "EAICriteriaCount",
          "ZEKOAvailableFieldsCount", "EAIKeyFieldsCount", "NrOfExtraIncludes",
          "NrOfZEKOI18NFieldnames", "NrOfEAII18NFieldValues", "NrOfLinkedZEKOFields"})
        bag.set(count, std::int16_t{32767});
    read(bag);
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 32767);
    EXPECT_EQ(dtc.ZEKO.I18NFieldnamesList.SelCount(), 32767);
    EXPECT_EQ(dtc.EAI.CriteriaGrid.Rows(), 32767);
    EXPECT_EQ(dtc.ZEKO.LinksGrid.Rows(), 32767);
}

}  // namespace headerdtc::persistence_test
