#include "core/filled_control.h"

#include <ctime>

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using testing::OrderedPropertyBag;
using ::testing::Pair;
using ::testing::SizeIs;

OrderedPropertyBag written(HeaderDTC& dtc) {
    OrderedPropertyBag bag;
    dtc.UserControl_WriteProperties(bag);
    return bag;
}

OrderedPropertyBag filledPage() {
    FilledControl filled;
    return written(filled.dtc);
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

TEST_F(PersistenceTest, ReadingFillsWhatTheEditorShowsBesideWhatIsStored) {
    read(filledPage());
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), 0);
    for (const Family which : BothFamilies) {
        const FamilyControls& family = dtc.family(which);
        const auto fields = itemsOf(family.SelectedFieldsList);
        EXPECT_EQ(family.DataProviderText.Text(), "Orders");
        EXPECT_THAT(itemsOf(family.I18NFieldnamesList), ElementsAreArray(fields));
        EXPECT_THAT(itemsOf(family.I18NFieldValuesList), ElementsAreArray(fields));
        EXPECT_THAT(itemsOf(family.FromLinkFieldsCombo), ElementsAreArray(fields));
        EXPECT_EQ(family.LinkedDataProvidersCombo.Text(), "Stock");
    }
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(0, criteria_column::Value), "Value");
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(2, criteria_column::Marker), "");
    EXPECT_EQ(dtc.nrOfUserDefinedScripts, 2);
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

// ---- rules of single properties -----------------------------------------------------------------

TEST_F(PersistenceTest, TheFirstProviderOfTheNameIsSelectedAndOneThatIsNotOfferedStaysVisible) {
    dtc.DataProvidersCombo.AddItem("Stock");
    read(page({{"DataProvider", "Gone"}}));
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), -1);
    EXPECT_EQ(dtc.EAI.DataProviderText.Text(), "Gone");
    read(page({{"DataProvider", "Stock"}}));
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), 1);
}

TEST_F(PersistenceTest, BooleansComeAsWordsOrNumbersAndAGreyCheckBoxIsStoredAsOn) {
    for (const auto& [text, on] :
         {std::pair("True", true), {"FALSE", false}, {" -1 ", true}, {"0", false}, {"2", true}}) {
        read(page({{"EnableExtraFilters", text}}));
        EXPECT_EQ(dtc.EnableExtraFiltersCheck.Value() == CheckState::Checked, on) << text;
    }
    dtc.EnableExtraFiltersCheck.Value(CheckState::Greyed);
    EXPECT_EQ(written(dtc).text("EnableExtraFilters"), "-1");
}

TEST_F(PersistenceTest, ATranslationOfAFieldThatIsGoneIsDropped) {
    read(page({{"EAIReturnFieldCount", "3"},
               {"EAIReturnFields0", "O.A"},
               {"EAIReturnFields1", "O.B"},
               {"EAIReturnFields2", "O.A"},
               {"NrOfEAII18NFieldnames", "3"},
               {"EAII18NFieldnames0", "O.GONE"},
               {"EAII18NFieldnames1", "O.A"},
               {"EAII18NFieldnames2", "O.A"}}));
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_THAT(selectedItemsOf(dtc.EAI.I18NFieldnamesList), ElementsAre("O.A", "O.A"));
    EXPECT_EQ(dtc.EAI.I18NFieldnamesList.ListIndex(), -1);
    EXPECT_EQ(dtc.EAI.I18NFieldValuesList.SelCount(), 0);
}

TEST_F(PersistenceTest, CriterionTypesAreBoundedByTheRowsAndSkipEmptyNames) {
    read(page({{"ZEKOCriteriaCount", "4"},
               {"ZEKOCriteriaType1", "a"},
               {"aZEKOCriteriaType", "2"},
               {"ZEKOCriteriaType3", "b"},
               {"ZEKOCriteriaType4", "beyond the rows"},
               {"EAICriteriaType1", "no rows at all"}}));
    EXPECT_THAT(dtc.ZEKO.CriteriaType, ElementsAre(Pair("a", 2), Pair("b", 0)));
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 0);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.Rows(), 4);
}

TEST_F(PersistenceTest, TheNumberOfScriptsIsReadAsStoredAndWrittenAsCounted) {
    read(page({{"NrOfUserDefinedScripts", "2"},
               {"UserDefinedScript1", "f"},
               {"fUserDefinedScript", "text"},
               {"UserDefinedScript2", "g"}}));
    EXPECT_THAT(*dtc.userDefinedScripts, ElementsAre(Pair("f", "text"), Pair("g", "")));
    dtc.userDefinedScripts->Remove("g");
    EXPECT_EQ(dtc.nrOfUserDefinedScripts, 2);
    EXPECT_EQ(written(dtc).text("NrOfUserDefinedScripts"), "1");
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
    struct Case {
        const char* count;
        int items;
        const char* error;
    };
    const Case cases[] = {
        {"2", 2, ""},
        {" 2 ", 2, ""},
        {"1.5", 2, ""},
        {"2.5", 2, ""},
        {"-1", 0, ""},
        {"1e1", 10, ""},
        {"abc", 0, "Type mismatch (13)"},
        {"", 0, "Type mismatch (13)"},
        {"2x", 0, "Type mismatch (13)"},
        {"--2", 0, "Type mismatch (13)"},
        {"inf", 0, "Type mismatch (13)"},
        {"40000", 0, "Overflow (6)"},
        {"1e400", 0, "Overflow (6)"},
        {"-32769", 0, "Overflow (6)"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.count);
        TestControl control;
        OrderedPropertyBag stored =
            page({{"EAIReturnFieldCount", each.count}, {"XSLFilename", "read.xsl"}});
        control.dtc.UserControl_ReadProperties(stored);
        EXPECT_EQ(control.dtc.EAI.SelectedFieldsList.ListCount(), each.items);
        std::vector<std::string> errors;
        if (*each.error) errors.push_back(failedReading(each.error));
        EXPECT_EQ(control.errors(), errors);
        EXPECT_EQ(control.dtc.XSLFilenameText.Text(),
                  errors.empty() ? "read.xsl" : "xsl/Generic.xsl");
    }
}

TEST_F(PersistenceTest, ValuesThatAControlCannotHoldEndTheReading) {
    read(page({{"EnableExtraFilters", "yes"}}));
    EXPECT_THAT(errors(), ElementsAre(failedReading("Type mismatch (13)")));
    read(page({{"NrOfLinkedZEKOFields", "0"}}));
    EXPECT_THAT(errors(), ElementsAre(failedReading("Invalid property value (380)")));
    EXPECT_EQ(dtc.ZEKO.LinksGrid.Rows(), 2);
    read(page({{"EAICriteriaCount", "3"}, {"EAICriteriaType1", "a"}, {"EAICriteriaType2", "a"}}));
    EXPECT_THAT(errors(), ElementsAre(::testing::EndsWith("(457)")));
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 1);
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

// A page may claim what it likes: nothing of it is slower than in proportion to the counts.
TEST_F(PersistenceTest, CountsThatLieGiveEmptyItemsInReasonableTime) {
    OrderedPropertyBag bag;
    for (const char* count :
         {"ZEKOReturnFieldCount", "EAIReturnFieldCount", "ZEKOCriteriaCount", "EAICriteriaCount",
          "ZEKOAvailableFieldsCount", "EAIKeyFieldsCount", "NrOfExtraIncludes",
          "NrOfZEKOI18NFieldnames", "NrOfEAII18NFieldValues", "NrOfLinkedZEKOFields"})
        bag.set(count, std::int16_t{32767});
    const std::clock_t start = std::clock();
    read(bag);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 15) << "seconds";
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 32767);
    EXPECT_EQ(dtc.ZEKO.I18NFieldnamesList.SelCount(), 32767);
    EXPECT_EQ(dtc.EAI.CriteriaGrid.Rows(), 32767);
    EXPECT_EQ(dtc.ZEKO.LinksGrid.Rows(), 32767);
}

}  // namespace
}  // namespace headerdtc
