#include "core/filled_control.h"

namespace headerdtc::persistence_test {

OrderedPropertyBag written(HeaderDTC& dtc) {
    OrderedPropertyBag bag;
    dtc.UserControl_WriteProperties(bag);
    return bag;
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

// ---- what goes wrong ----------------------------------------------------------------------------

TEST_F(PersistenceTest, WhatWasReadBeforeAFailureStays) {
    OrderedPropertyBag stored = filledPage();
    stored.failingName = "ZEKOI18NFieldnames1";
    read(stored);
    EXPECT_THAT(errors(),
                ElementsAre("Error in 'UserControl_ReadProperties': Device I/O error (57)"));
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

}  // namespace headerdtc::persistence_test
