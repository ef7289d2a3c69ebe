#include "editor_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int GeneralTab = 0, EAITab = 1, ZEKOTab = 2, I18NTab = 3;

class TabsTest : public EditorTest {};

TEST_F(TabsTest, TheFieldsOfTheChosenProviderAreOfferedWhenATabIsEntered) {
    // Numbers of one digit are padded. Once begun it is kept up, also before longer ones.
    auto& fields = outside.dataSources.providers[0].zekoFields;
    std::swap(fields[0], fields[10]);
    start();
    choose("Orders");
    EXPECT_THAT(itemsOf(dtc.ZEKO.FieldsList), IsEmpty());
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_THAT(itemsOf(dtc.ZEKO.FieldsList),
                ElementsAre("11 - F11", " 2 - F2", " 3 - F3", " 4 - F4", " 5 - F5", " 6 - F6",
                            " 7 - F7", " 8 - F8", " 9 - F9", " 10 - F10", " 1 - F1", " 12 - F12"));
    EXPECT_THAT(itemsOf(dtc.ZEKO.KeyFieldsCombo), ElementsAre("ORDNO", "CUSTNO"));
    EXPECT_TRUE(dtc.ZEKO.AddField.Enabled());
    EXPECT_FALSE(dtc.ZEKO.RemoveField.Enabled());
    EXPECT_THAT(itemsOf(dtc.EAI.FieldsList), IsEmpty());

    dtc.SSTab1.clickTab(EAITab);
    EXPECT_THAT(itemsOf(dtc.EAI.FieldsList), ElementsAre("HEAD.ORDNO", "HEAD.CUSTNO", "LINE.ITEM"));
    EXPECT_THAT(itemsOf(dtc.EAI.KeyFieldsCombo), ElementsAre("ORDNO", "CUSTNO"));
    EXPECT_THAT(notices(), ElementsAre("DataProvider", "ZEKOAvailableFields", "ZEKOKeyFieldnames",
                                       "EAIAvailableFields", "EAIKeyFieldnames"));
}

TEST_F(TabsTest, TheListOfProvidersIsAskedForOnceEvenWhenItFails) {
    outside.dataSources.failingRequest = "providerNames";
    start();
    EXPECT_THAT(errors(), ElementsAre("Error in 'PrepareGeneralTab': Device I/O error (57)"));
    outside.dataSources.failingRequest.clear();
    dtc.SSTab1.clickTab(EAITab);
    dtc.SSTab1.clickTab(GeneralTab);
    EXPECT_THAT(outside.dataSources.requests, ElementsAre("providerNames"));
    EXPECT_EQ(dtc.DataProvidersCombo.ListCount(), 0);
}

TEST_F(TabsTest, AMissingComponentIsLookedForAgainAtEveryEntryOfTheGeneralTab) {
    outside.dataSources.missing = true;
    start();
    dtc.SSTab1.clickTab(I18NTab);
    dtc.SSTab1.clickTab(GeneralTab);
    EXPECT_EQ(errors().size(), 2U);
    outside.dataSources.missing = false;
    dtc.SSTab1.clickTab(I18NTab);
    dtc.SSTab1.clickTab(GeneralTab);
    EXPECT_THAT(itemsOf(dtc.DataProvidersCombo), ElementsAre("Orders", "Stock"));
    EXPECT_THAT(itemsOf(dtc.EAI.LinkedDataProvidersCombo), ElementsAre("Orders", "Stock"));
}

// Another provider has been chosen with work on both tabs.
class AnotherProviderTest : public EditorTest {
  protected:
    AnotherProviderTest() {
        start();
        choose("Orders");
        for (const int tab : {EAITab, ZEKOTab}) {
            dtc.SSTab1.clickTab(tab);
            FamilyControls& family = tab == EAITab ? dtc.EAI : dtc.ZEKO;
            family.FieldsList.select({0}, 0);
            family.AddField.press();
            (tab == EAITab ? family.I18NFieldValuesList : family.I18NFieldnamesList)
                .Selected(0, true);
            family.CriteriaGrid.Rows(3);
            family.CriteriaGrid.TextMatrix(2, 3, "4711");
        }
        choose("Stock");
        outside.dataSources.requests.clear();
        notices();
    }
};

TEST_F(AnotherProviderTest, EnteringAFamilysTabDiscardsTheWorkForTheOneBefore) {
    EXPECT_EQ(dtc.ZEKO.FromLinkFieldsCombo.ListCount(), 0);
    EXPECT_EQ(dtc.EAI.FromLinkFieldsCombo.ListCount(), 0);
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_THAT(itemsOf(dtc.ZEKO.FieldsList), ElementsAre("1 - ITEM"));
    EXPECT_THAT(itemsOf(dtc.ZEKO.KeyFieldsCombo), ElementsAre("ITEM"));
    for (const ListBox* list : {&dtc.ZEKO.SelectedFieldsList, &dtc.ZEKO.I18NFieldnamesList,
                                &dtc.ZEKO.I18NFieldValuesList})
        EXPECT_THAT(itemsOf(*list), IsEmpty());
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.Rows(), 3);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(0, 3), "Value");
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(2, 3), "");
    EXPECT_FALSE(dtc.ZEKO.RemoveField.Enabled());
    EXPECT_THAT(notices(), ElementsAre("ZEKOReturnFields", "ZEKOAvailableFields", "ZEKOCriteria",
                                       "ZEKOKeyFieldnames"));
    EXPECT_EQ(dtc.EAI.SelectedFieldsList.ListCount(), 1);
}

TEST_F(AnotherProviderTest, ChoosingTheFirstOneAgainBeforeThatKeepsTheWork) {
    choose("Orders");
    choose("Orders");
    EXPECT_THAT(notices(), ElementsAre("DataProvider"));
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 1);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(2, 3), "4711");
    EXPECT_THAT(outside.dataSources.requests, IsEmpty());
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_F(AnotherProviderTest, TheI18NTabDropsTheTranslationsOfTheFamiliesNotYetEntered) {
    dtc.SSTab1.clickTab(EAITab);
    dtc.EAI.FieldsList.doubleClick(0);
    notices();
    dtc.SSTab1.clickTab(I18NTab);
    EXPECT_THAT(itemsOf(dtc.EAI.I18NFieldnamesList), ElementsAre("ITEMS.ITEM"));
    EXPECT_EQ(dtc.ZEKO.I18NFieldnamesList.ListCount(), 0);
    EXPECT_EQ(dtc.ZEKO.I18NFieldValuesList.ListCount(), 0);
    EXPECT_EQ(dtc.I18NDataProviderText.Text(), "Stock");
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 1);
    EXPECT_THAT(notices(), ElementsAre("ZEKOReturnFields"));
    dtc.EAI.I18NFieldValuesList.Selected(0, true);
    choose("Orders");
    notices();
    dtc.SSTab1.clickTab(I18NTab);
    EXPECT_EQ(dtc.EAI.I18NFieldValuesList.ListCount(), 0);
    EXPECT_THAT(notices(), ElementsAre("EAIReturnFields"));
}

TEST_F(AnotherProviderTest, AMissingComponentLeavesTheTabEmptyAndIsNotAskedAgain) {
    outside.dataSources.missing = true;
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_THAT(
        errors(),
        ElementsAre("Error in 'PrepareZEKOTab': ActiveX component can't create object (429)"));
    EXPECT_EQ(dtc.ZEKO.DataProviderText.Text(), "Stock");
    EXPECT_EQ(dtc.ZEKO.FieldsList.ListCount(), 0);
    EXPECT_EQ(dtc.ZEKO.SelectedFieldsList.ListCount(), 0);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(2, 3), "");
    EXPECT_THAT(notices(), ElementsAre("ZEKOReturnFields", "ZEKOAvailableFields", "ZEKOCriteria"));
    dtc.SSTab1.clickTab(GeneralTab);
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(AnotherProviderTest, WhatASourceGaveBeforeItFailedStays) {
    outside.dataSources.failingRequest = "eaiKeyFields Stock";
    dtc.SSTab1.clickTab(EAITab);
    EXPECT_THAT(errors(), ElementsAre("Error in 'PrepareEAITab': Device I/O error (57)"));
    EXPECT_THAT(itemsOf(dtc.EAI.FieldsList), ElementsAre("ITEMS.ITEM"));
    EXPECT_EQ(dtc.EAI.KeyFieldsCombo.ListCount(), 0);
}

TEST_F(TabsTest, ClickingTheTabThatIsShownDoesNothing) {
    start();
    choose("Orders");
    dtc.SSTab1.clickTab(ZEKOTab);
    dtc.DataProvider("Stock");
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_EQ(dtc.ZEKO.FieldsList.ListCount(), 12);
}

TEST_F(TabsTest, AStoredProviderKeepsItsWorkAndIsNoNews) {
    testing::OrderedPropertyBag bag;
    bag.set("DataProvider", std::string("Orders"));
    bag.set("EnableExtraFilters", true);
    bag.set("ZEKOReturnFieldCount", std::int16_t{1});
    bag.set("ZEKOReturnFields0", std::string(" 2 - F2"));
    start();
    dtc.UserControl_ReadProperties(bag);
    dtc.SSTab1.clickTab(ZEKOTab);
    EXPECT_THAT(itemsOf(dtc.ZEKO.SelectedFieldsList), ElementsAre(" 2 - F2"));
    EXPECT_THAT(outside.dataSources.requests, ElementsAre("providerNames"));
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_F(TabsTest, TheExtraFiltersSwitchRefreshesTheEAIButtonsOnly) {
    start();
    for (FamilyControls* family : {&dtc.EAI, &dtc.ZEKO}) {
        family->AddField.Enabled(true);
        family->RemoveField.Enabled(true);
    }
    dtc.EnableExtraFiltersCheck.toggle();
    EXPECT_FALSE(dtc.EAI.AddField.Enabled());
    EXPECT_FALSE(dtc.EAI.RemoveField.Enabled());
    EXPECT_TRUE(dtc.ZEKO.AddField.Enabled());
    EXPECT_TRUE(dtc.ZEKO.RemoveField.Enabled());
    EXPECT_THAT(notices(), ElementsAre("EnableExtraFilters"));
}

TEST_F(TabsTest, AKeyOutsideTheControlsPopsABox) {
    start();
    dtc.surface.press(Key::of(U'x'));
    EXPECT_THAT(outside.messages.shown, ElementsAre("keypress"));
}

TEST_F(TabsTest, SaveWritesTheRuntimeTextOrReportsWhyNot) {
    start();
    dtc.procedures.GetRuntimeText = [] { return std::string("<%\r\n%>"); };
    dtc.SaveCommand.press();
    EXPECT_EQ(outside.textFiles.files["c:\\temp\\DTC.TXT"], "<%\r\n%>\r\n");
    outside.textFiles.failures["c:\\temp\\DTC.TXT"] = ErrorNumber::PathNotFound;
    dtc.SaveCommand.press();
    EXPECT_THAT(errors(), ElementsAre("Error in 'SaveCommand_Click': Path not found (76)"));
}

}  // namespace
}  // namespace headerdtc
