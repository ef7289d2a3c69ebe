#include "link_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

class LinkedProviderTest : public LinksTest {
  protected:
    void expectOrders() {
        EXPECT_THAT(itemsOf(dtc.ZEKO.LinkedFieldsList), ElementsAre("1 - ORDNO", "2 - CUSTNO"));
        EXPECT_THAT(itemsOf(dtc.EAI.LinkedFieldsList),
                    ElementsAre("ORDERS.ORDNO", "LINES.ORDNO", "LINES.ITEM"));
        for (const Family which : BothFamilies)
            EXPECT_THAT(itemsOf(dtc.family(which).ToLinkFieldsCombo), ElementsAre("ORDNO"));
    }
    // A link to "Orders" with a selected field and a pair of fields on both tabs.
    void linkToOrders() {
        open(Family::ZEKO);
        dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders");
        for (const Family which : BothFamilies) {
            open(which);
            dtc.family(which).LinkedFieldsList.doubleClick(0);
            dtc.family(which).LinksGrid.TextMatrix(1, links_column::From, "CUSTNO");
        }
        open(Family::ZEKO);
        takeNotices();
    }
    std::vector<std::string> takeRequests() {
        return std::exchange(outside.dataSources.requests, {});
    }
};

TEST_F(LinkedProviderTest, AChoiceOnEitherTabFillsBothBeginningWithItsOwn) {
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders");
    expectOrders();
    EXPECT_THAT(takeRequests(), ElementsAre("zekoFields Orders", "zekoKeyFields Orders",
                                            "eaiGroups Orders", "eaiGroupFields Orders",
                                            "eaiGroupFields Orders", "eaiKeyFields Orders"));
    EXPECT_EQ(outside.dataSources.created, 2);
    EXPECT_THAT(takeNotices(), ElementsAre("LinkedDataProvider", "ZEKOAvailableFieldsLinked",
                                           "ZEKOToLinkKeyFields", "EAIAvailableFieldsLinked",
                                           "EAIToLinkKeyFields"));

    open(Family::EAI);
    takeRequests();
    dtc.EAI.LinkedDataProvidersCombo.choose("Stock");
    EXPECT_THAT(itemsOf(dtc.ZEKO.ToLinkFieldsCombo), ElementsAre("ITEM", "PLACE"));
    EXPECT_EQ(takeRequests().front(), "eaiGroups Stock");
    EXPECT_TRUE(dtc.EAI.AddLinkedField.Enabled());
    EXPECT_FALSE(dtc.EAI.RemoveLinkedField.Enabled());
}

TEST_F(LinkedProviderTest, OnlyAnotherChoiceDiscardsTheFieldsOfBothTabs) {
    linkToOrders();
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders");
    EXPECT_EQ(dtc.ZEKO.SelectedLinkedFieldsList.ListCount(), 1);
    EXPECT_THAT(takeNotices(), IsEmpty());
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Stock");
    EXPECT_EQ(dtc.EAI.SelectedLinkedFieldsList.ListCount(), 0);
    EXPECT_EQ(dtc.ZEKO.LinksGrid.TextMatrix(1, links_column::From), "CUSTNO");
    EXPECT_THAT(takeNotices(),
                IsSupersetOf({"ZEKOSelectedLinkedFields", "EAISelectedLinkedFields"}));
}

TEST_F(LinkedProviderTest, AProgramsWriteGivesItsOwnNoticeOnly) {
    dtc.SSTab1.clickTab(0);
    dtc.LinkedDataProvider("Orders");
    expectOrders();
    EXPECT_THAT(takeNotices(), ElementsAre("LinkedDataProvider"));
}

TEST_F(LinkedProviderTest, ALoadedLinkIsNotFilledAgain) {
    testing::OrderedPropertyBag bag;
    linkToOrders();
    dtc.UserControl_WriteProperties(bag);
    testing::FakeSurroundings elsewhere;
    HeaderDTC loaded(elsewhere.all(), elsewhere.modalLoop);
    const Links behaviours(loaded);
    fill(loaded.ZEKO.LinkedDataProvidersCombo, {"Orders", "Stock"});
    fill(loaded.EAI.LinkedDataProvidersCombo, {"Orders", "Stock"});
    loaded.UserControl_Initialize();
    loaded.UserControl_ReadProperties(bag);
    loaded.procedures.PrepareLinkTab(Family::ZEKO);
    EXPECT_THAT(itemsOf(loaded.ZEKO.SelectedLinkedFieldsList), ElementsAre("1 - ORDNO"));
    EXPECT_EQ(elsewhere.dataSources.created, 0);
    EXPECT_THAT(elsewhere.changes.changed, IsEmpty());
    EXPECT_THAT(elsewhere.messages.shown, IsEmpty());
}

TEST_F(LinkedProviderTest, EnteringATabTakesTheProviderOfTheOtherOver) {
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Stock");
    dtc.EAI.LinkedDataProvidersCombo.AddItem("Stock");
    takeNotices();
    open(Family::EAI);
    EXPECT_EQ(dtc.EAI.LinkedDataProvidersCombo.ListIndex(), 2);
    EXPECT_EQ(dtc.EAI.LinkedFieldsList.ListCount(), 1);
    takeRequests();
    open(Family::EAI);
    EXPECT_THAT(takeRequests(), IsEmpty());
    EXPECT_THAT(takeNotices(), ElementsAre("EAIAvailableFieldsLinked", "EAIToLinkKeyFields"));
}

TEST_F(LinkedProviderTest, ThePaddingOfAShortNumberIsKeptForTheLongOnesAfterIt) {
    auto& fields = outside.dataSources.providers[0].zekoFields;
    fields.clear();
    for (const int number : {10, 9, 8, 7, 6, 5, 4, 3, 2, 11})
        fields.emplace_back(std::to_string(number), "F");
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders");
    const auto items = itemsOf(dtc.ZEKO.LinkedFieldsList);
    EXPECT_EQ(items.front(), "10 - F");
    EXPECT_EQ(items[1], " 9 - F");
    EXPECT_EQ(items.back(), " 11 - F");
}

TEST_F(LinkedProviderTest, ASourceThatFailsIsReportedForEachTabAndLeavesItsListsEmpty) {
    linkToOrders();
    outside.dataSources.missing = true;
    dtc.EAI.LinkedDataProvidersCombo.ListIndex(1);
    EXPECT_THAT(outside.messages.errors,
                ElementsAre("Error in 'UpdateEAILinkTab': ActiveX component can't create object "
                            "(429)",
                            "Error in 'UpdateZEKOLinkTab': ActiveX component can't create object "
                            "(429)"));
    EXPECT_EQ(dtc.ZEKO.SelectedLinkedFieldsList.ListCount(), 0);
}

TEST_F(LinkedProviderTest, OnlyTheZekoComboLetsAFailedNoticeOut) {
    outside.changes.onChange = [](const std::string&) {
        throw RuntimeError(ErrorNumber::DeviceIoError);
    };
    EXPECT_EQ(errorOf([&] { dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders"); }), 57);
    open(Family::EAI);
    outside.messages.errors.clear();
    dtc.EAI.LinkedDataProvidersCombo.choose("Stock");
    EXPECT_THAT(outside.messages.errors,
                ElementsAre("Error in 'EAILinkedDataProvidersCombo_Click': Device I/O error (57)"));
}

TEST_F(LinkedProviderTest, DeletingOnEitherTabDeletesTheLinkOnBoth) {
    for (const Family which : BothFamilies) {
        linkToOrders();
        open(which);
        dtc.family(which).DeleteLinkCommand.press();
        for (const Family each : BothFamilies) {
            const FamilyControls& controls = dtc.family(each);
            EXPECT_EQ(controls.LinkedFieldsList.ListCount(), 0);
            EXPECT_EQ(controls.SelectedLinkedFieldsList.ListCount(), 0);
            EXPECT_EQ(controls.ToLinkFieldsCombo.ListCount(), 0);
            EXPECT_EQ(controls.LinkedDataProvidersCombo.ListIndex(), -1);
            EXPECT_EQ(controls.LinksGrid.TextMatrix(1, links_column::From), "");
            EXPECT_EQ(controls.LinksGrid.TextMatrix(0, links_column::From), "");
        }
        EXPECT_EQ(dtc.linkedDataProvider, "");
        EXPECT_FALSE(dtc.deletingLink);
        EXPECT_THAT(
            takeNotices(),
            ::testing::UnorderedElementsAre(
                "LinkedDataProvider", "EAILinkFromFields", "EAIAvailableFieldsLinked",
                "EAISelectedLinkedFields", "EAIToLinkKeyFields", "ZEKOLinkFromFields",
                "ZEKOAvailableFieldsLinked", "ZEKOSelectedLinkedFields", "ZEKOToLinkKeyFields"));
    }
}

}  // namespace
}  // namespace headerdtc
