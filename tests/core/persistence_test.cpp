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

std::vector<std::string> cellsOf(const Grid& grid) {
    std::vector<std::string> cells;
    for (int row = 1; row < grid.Rows(); ++row) {
        for (int column = 1; column < grid.Cols(); ++column)
            cells.push_back(grid.TextMatrix(row, column));
    }
    return cells;
}

// What a control reads out of a bag.
class PersistenceTest : public ControlTest {
  protected:
    void read(OrderedPropertyBag& stored) { dtc.UserControl_ReadProperties(stored); }
    // Reads `bag`, with this value under this name.
    void readWith(const char* name, PropertyValue value) {
        bag.set(name, std::move(value));
        read(bag);
    }
    const std::vector<std::string>& errors() { return outside.messages.errors; }

    OrderedPropertyBag bag;
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
        EXPECT_THAT(other.outside.messages.shown, IsEmpty());
        EXPECT_EQ(written(other.dtc).entries, written(filled.dtc).entries);
    }
}

TEST_F(PersistenceTest, ReadingFillsTheControlsOfTheEditor) {
    OrderedPropertyBag stored = filledPage();
    read(stored);
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), 0);
    EXPECT_EQ(dtc.ZEKO.DataProviderText.Text() + dtc.EAI.DataProviderText.Text(), "OrdersOrders");
    for (const Family which : BothFamilies) {
        const FamilyControls& family = dtc.family(which);
        const auto fields = itemsOf(family.SelectedFieldsList);
        EXPECT_THAT(itemsOf(family.I18NFieldnamesList), ElementsAreArray(fields));
        EXPECT_THAT(itemsOf(family.I18NFieldValuesList), ElementsAreArray(fields));
        EXPECT_THAT(itemsOf(family.FromLinkFieldsCombo), ElementsAreArray(fields));
        EXPECT_EQ(family.LinkedDataProvidersCombo.Text(), "Stock");
    }
    EXPECT_THAT(itemsOf(dtc.ZEKO.SelectedFieldsList),
                ElementsAre("1 - ORDNO", "2 - CUSTNO", "3 - DATE"));
    EXPECT_THAT(selectedItemsOf(dtc.ZEKO.I18NFieldnamesList), ElementsAre("1 - ORDNO", "3 - DATE"));
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.Rows(), 4);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(0, criteria_column::Value), "Value");
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(2, criteria_column::Marker), "");
    EXPECT_THAT(dtc.ZEKO.CriteriaType, ElementsAre(Pair("10", 0), Pair("getCust", 2)));
    EXPECT_THAT(dtc.EAI.CriteriaType, ElementsAre(Pair("fromFile", 1)));
    EXPECT_EQ(dtc.nrOfUserDefinedScripts, 2);
    EXPECT_EQ(dtc.userDefinedScripts->item("getCust"), "Function getCust()\r\nEnd Function");
    EXPECT_THAT(cellsOf(dtc.ZEKO.LinksGrid),
                ElementsAre("1 - ORDNO", "ITEM", "2 - CUSTNO", "PLACE"));
    EXPECT_EQ(dtc.linkedDataProvider, "Stock");
}

TEST_F(PersistenceTest, APageWithoutPropertiesGivesAnEmptyControl) {
    dtc.linkedDataProvider = "Stock";
    read(bag);
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(dtc.linkedDataProvider, "ZEKOLinkedDataProvidersCombo");
    EXPECT_EQ(dtc.ZEKO.LinkedDataProvidersCombo.ListIndex(), -1);
    EXPECT_EQ(dtc.ZEKO.LinksGrid.Rows(), 2);
    EXPECT_EQ(dtc.EAI.CriteriaGrid.Rows(), 2);
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "");
    EXPECT_EQ(dtc.EnableExtraFiltersCheck.Value(), CheckState::Unchecked);
}

// ---- order --------------------------------------------------------------------------------------

TEST_F(PersistenceTest, ReadsInAnOrderOfItsOwn) {
    read(bag);
    const char* const expected[] = {
        "EnableExtraFilters",
        "DataProvider",
        "ZEKOReturnFieldCount",
        "EAIReturnFieldCount",
        "ZEKOCriteriaCount",
        "EAICriteriaCount",
        "ZEKOAvailableFieldsCount",
        "EAIAvailableFieldsCount",
        "ZEKOKeyFieldsCount",
        "EAIKeyFieldsCount",
        "ZEKOCriteriaCount",
        "EAICriteriaCount",
        "NrOfUserDefinedScripts",
        "NrOfExtraIncludes",
        "XSLFilename",
        "NrOfZEKOI18NFieldnames",
        "NrOfEAII18NFieldnames",
        "NrOfZEKOI18NFieldValues",
        "NrOfEAII18NFieldValues",
        "LinkedDataProvider",
        "NrOfZEKOAvailableFieldsLinked",
        "NrOfEAIAvailableFieldsLinked",
        "NrOfSelectedZEKOLinkedFields",
        "NrOfSelectedEAILinkedFields",
        "NrOfZEKOToLinkKeyFields",
        "NrOfEAIToLinkKeyFields",
        "NrOfLinkedZEKOFields",
        "ZEKOLinkFromFields1",
        "ZEKOLinkToFields1",
        "NrOfLinkedEAIFields",
        "EAILinkFromFields1",
        "EAILinkToFields1",
    };
    EXPECT_THAT(bag.reads, ElementsAreArray(expected));
}

TEST_F(PersistenceTest, WhatSelectingAProviderClearsIsFilledAfterwards) {
    const auto clearing =
        dtc.DataProvidersCombo.Click.subscribe([this] { dtc.ZEKO.FromLinkFieldsCombo.Clear(); });
    OrderedPropertyBag stored = filledPage();
    read(stored);
    EXPECT_EQ(dtc.ZEKO.FromLinkFieldsCombo.ListCount(), 3);
}

TEST_F(PersistenceTest, TheLinkedProviderIsKnownWhenItsCombosClick) {
    std::vector<std::string> known;
    Subscriptions listening;
    for (const Family which : BothFamilies)
        listening += dtc.family(which).LinkedDataProvidersCombo.Click.subscribe(
            [&] { known.push_back(dtc.linkedDataProvider); });
    readWith("LinkedDataProvider", "Orders");
    EXPECT_THAT(known, ElementsAre("Orders", "Orders"));
}

// ---- rules of single properties -----------------------------------------------------------------

TEST_F(PersistenceTest, AProviderThatIsNotOfferedStaysVisibleInTheFamiliesTabs) {
    readWith("DataProvider", "Gone");
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), -1);
    EXPECT_EQ(dtc.EAI.DataProviderText.Text(), "Gone");
}

TEST_F(PersistenceTest, TheFirstOfTwoEqualProvidersIsSelected) {
    dtc.DataProvidersCombo.AddItem("Stock");
    readWith("DataProvider", "Stock");
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), 1);
}

TEST_F(PersistenceTest, AGreyCheckBoxIsStoredAsOn) {
    dtc.EnableExtraFiltersCheck.Value(CheckState::Greyed);
    OrderedPropertyBag stored = written(dtc);
    EXPECT_EQ(stored.text("EnableExtraFilters"), "-1");
    read(stored);
    EXPECT_EQ(dtc.EnableExtraFiltersCheck.Value(), CheckState::Checked);
}

TEST_F(PersistenceTest, BooleansComeAsWordsOrNumbers) {
    for (const auto& [text, on] :
         {std::pair("True", true), {"FALSE", false}, {" -1 ", true}, {"0", false}, {"2", true}}) {
        readWith("EnableExtraFilters", text);
        EXPECT_EQ(dtc.EnableExtraFiltersCheck.Value() == CheckState::Checked, on) << text;
    }
    EXPECT_THAT(errors(), IsEmpty());
    readWith("EnableExtraFilters", "yes");
    EXPECT_THAT(errors(), ElementsAre("Error in 'UserControl_ReadProperties': Type mismatch (13)"));
}

TEST_F(PersistenceTest, ATranslationOfAFieldThatIsGoneIsDropped) {
    bag.set("EAIReturnFieldCount", "3");
    bag.set("EAIReturnFields0", "O.A");
    bag.set("EAIReturnFields1", "O.B");
    bag.set("EAIReturnFields2", "O.A");
    bag.set("NrOfEAII18NFieldnames", "3");
    bag.set("EAII18NFieldnames0", "O.GONE");
    bag.set("EAII18NFieldnames1", "O.A");
    bag.set("EAII18NFieldnames2", "O.A");
    read(bag);
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_THAT(selectedItemsOf(dtc.EAI.I18NFieldnamesList), ElementsAre("O.A", "O.A"));
    EXPECT_EQ(dtc.EAI.I18NFieldnamesList.ListIndex(), -1);
    EXPECT_EQ(dtc.EAI.I18NFieldValuesList.SelCount(), 0);
}

TEST_F(PersistenceTest, CriterionTypesAreBoundedByTheRowsAndSkipEmptyNames) {
    bag.set("ZEKOCriteriaCount", "4");
    bag.set("ZEKOCriteriaType1", "a");
    bag.set("aZEKOCriteriaType", "2");
    bag.set("ZEKOCriteriaType3", "b");
    bag.set("ZEKOCriteriaType4", "beyond the rows");
    bag.set("EAICriteriaType1", "no rows at all");
    read(bag);
    EXPECT_THAT(dtc.ZEKO.CriteriaType, ElementsAre(Pair("a", 2), Pair("b", 0)));
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 0);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.Rows(), 4);
}

TEST_F(PersistenceTest, TheNumberOfScriptsIsReadAsStoredAndWrittenAsCounted) {
    bag.set("NrOfUserDefinedScripts", "2");
    bag.set("UserDefinedScript1", "f");
    bag.set("fUserDefinedScript", "text");
    bag.set("UserDefinedScript2", "g");
    read(bag);
    EXPECT_THAT(*dtc.userDefinedScripts, ElementsAre(Pair("f", "text"), Pair("g", "")));
    dtc.userDefinedScripts->Remove("g");
    EXPECT_EQ(dtc.nrOfUserDefinedScripts, 2);
    EXPECT_EQ(written(dtc).text("NrOfUserDefinedScripts"), "1");
}

TEST_F(PersistenceTest, IncludesReplaceThoseThatWereThere) {
    fill(dtc.IncludeASPList, {"old.asp"});
    bag.set("NrOfExtraIncludes", std::int16_t{1});
    readWith("ExtraIncludes0", "new.asp");
    EXPECT_THAT(itemsOf(dtc.IncludeASPList), ElementsAre("new.asp"));
}

TEST_F(PersistenceTest, ReadingOnceMoreReplacesItemsAndAddsFieldsToLinkFrom) {
    OrderedPropertyBag stored = filledPage();
    for (const Family which : BothFamilies)
        stored.set(familyName(which, "CriteriaCount"), std::int16_t{0});
    stored.set("NrOfUserDefinedScripts", std::int16_t{0});
    read(stored);
    read(stored);
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 3);
    EXPECT_EQ(dtc.ZEKO.FromLinkFieldsCombo.ListCount(), 6);
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
        OrderedPropertyBag stored;
        stored.set("EnableExtraFilters", "True");
        stored.set("EAIReturnFieldCount", each.count);
        stored.set("XSLFilename", "read.xsl");
        control.dtc.UserControl_ReadProperties(stored);
        EXPECT_EQ(control.dtc.EAI.SelectedFieldsList.ListCount(), each.items);
        EXPECT_EQ(control.dtc.EnableExtraFiltersCheck.Value(), CheckState::Checked);
        const bool failed = *each.error != '\0';
        EXPECT_EQ(control.dtc.XSLFilenameText.Text(), failed ? "xsl/Generic.xsl" : "read.xsl");
        if (failed) {
            EXPECT_THAT(
                control.outside.messages.errors,
                ElementsAre(std::string("Error in 'UserControl_ReadProperties': ") + each.error));
        }
    }
}

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
    bag.failingName = "EAIReturnFields1";
    filled.dtc.UserControl_WriteProperties(bag);
    EXPECT_THAT(filled.outside.messages.errors,
                ElementsAre("Error in 'UserControl_WriteProperties': Device I/O error (57)"));
    EXPECT_THAT(bag.entries, SizeIs(5));
    EXPECT_EQ(bag.writes.back().name, "EAIReturnFields1");
}

TEST_F(PersistenceTest, EntriesOfOneNameEndTheReading) {
    bag.set("EAICriteriaCount", "3");
    bag.set("EAICriteriaType1", "a");
    readWith("EAICriteriaType2", "a");
    EXPECT_EQ(errors().size(), 1U);
    EXPECT_THAT(errors().front(), ::testing::EndsWith("(457)"));
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 1);
}

TEST_F(PersistenceTest, ARowCountThatNoGridHasEndsTheReading) {
    readWith("NrOfLinkedZEKOFields", "0");
    EXPECT_THAT(errors(),
                ElementsAre("Error in 'UserControl_ReadProperties': Invalid property value (380)"));
    EXPECT_EQ(dtc.ZEKO.LinksGrid.Rows(), 2);
}

TEST_F(PersistenceTest, ATypeThatNoPageCanHoldEndsTheWriting) {
    dtc.EAI.CriteriaType.Add("a", 70'000);
    EXPECT_FALSE(written(dtc).has("XSLFilename"));
    EXPECT_THAT(errors(), ElementsAre("Error in 'UserControl_WriteProperties': Overflow (6)"));
}

// A page may claim what it likes: nothing of it is slower than in proportion to the counts.
TEST_F(PersistenceTest, CountsThatLieGiveEmptyItemsInReasonableTime) {
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
