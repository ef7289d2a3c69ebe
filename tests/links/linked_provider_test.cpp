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
        notices();
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
    EXPECT_THAT(notices(), ElementsAre("LinkedDataProvider", "ZEKOAvailableFieldsLinked",
                                       "ZEKOToLinkKeyFields", "EAIAvailableFieldsLinked",
                                       "EAIToLinkKeyFields"));

    open(Family::EAI);
    takeRequests();
    dtc.EAI.LinkedDataProvidersCombo.choose("Stock");
    EXPECT_THAT(itemsOf(dtc.ZEKO.ToLinkFieldsCombo), ElementsAre("ITEM", "PLACE"));
    EXPECT_EQ(takeRequests().front(), "eaiGroups Stock");
    EXPECT_TRUE(dtc.EAI.AddLinkedField.Enabled());
    EXPECT_FALSE(dtc.EAI.RemoveLinkedField.Enabled());

    // By a program, which hears only of its own write.
    notices();
    dtc.SSTab1.clickTab(0);
    dtc.LinkedDataProvider("Orders");
    expectOrders();
    EXPECT_THAT(notices(), ElementsAre("LinkedDataProvider"));
}

TEST_F(LinkedProviderTest, OnlyAnotherChoiceDiscardsTheFieldsOfBothTabs) {
    linkToOrders();
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders");
    EXPECT_EQ(dtc.ZEKO.SelectedLinkedFieldsList.ListCount(), 1);
    EXPECT_THAT(notices(), IsEmpty());
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Stock");
    EXPECT_EQ(dtc.EAI.SelectedLinkedFieldsList.ListCount(), 0);
    EXPECT_EQ(dtc.ZEKO.LinksGrid.TextMatrix(1, links_column::From), "CUSTNO");
    EXPECT_THAT(notices(), IsSupersetOf({"ZEKOSelectedLinkedFields", "EAISelectedLinkedFields"}));
}

TEST_F(LinkedProviderTest, ALoadedLinkIsNotFilledAgain) {
    testing::OrderedPropertyBag bag;
    linkToOrders();
    dtc.UserControl_WriteProperties(bag);
    TestControl loaded;
    const Links behaviours(loaded.dtc);
    loaded.dtc.UserControl_ReadProperties(bag);
    loaded.dtc.procedures.PrepareLinkTab(Family::ZEKO);
    EXPECT_THAT(itemsOf(loaded.dtc.ZEKO.SelectedLinkedFieldsList), ElementsAre("1 - ORDNO"));
    EXPECT_EQ(loaded.outside.dataSources.created, 0);
    EXPECT_THAT(loaded.notices(), IsEmpty());
    EXPECT_THAT(loaded.messages(), IsEmpty());
}

TEST_F(LinkedProviderTest, EnteringATabTakesTheProviderOfTheOtherOver) {
    dtc.ZEKO.LinkedDataProvidersCombo.choose("Stock");
    dtc.EAI.LinkedDataProvidersCombo.AddItem("Stock");
    notices();
    open(Family::EAI);
    EXPECT_EQ(dtc.EAI.LinkedDataProvidersCombo.ListIndex(), 2);
    EXPECT_EQ(dtc.EAI.LinkedFieldsList.ListCount(), 1);
    takeRequests();
    open(Family::EAI);
    EXPECT_THAT(takeRequests(), IsEmpty());
    EXPECT_THAT(notices(), ElementsAre("EAIAvailableFieldsLinked", "EAIToLinkKeyFields"));
}

TEST_F(LinkedProviderTest, ASourceThatFailsIsReportedForEachTabAndLeavesItsListsEmpty) {
    linkToOrders();
    outside.dataSources.missing = true;
    dtc.EAI.LinkedDataProvidersCombo.ListIndex(1);
    EXPECT_THAT(errors(),
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
    EXPECT_EQ(numberOf([&] { dtc.ZEKO.LinkedDataProvidersCombo.choose("Orders"); }), 57);
    open(Family::EAI);
    outside.messages.errors.clear();
    dtc.EAI.LinkedDataProvidersCombo.choose("Stock");
    EXPECT_THAT(errors(),
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
            notices(),
            ::testing::UnorderedElementsAre(
                "LinkedDataProvider", "EAILinkFromFields", "EAIAvailableFieldsLinked",
                "EAISelectedLinkedFields", "EAIToLinkKeyFields", "ZEKOLinkFromFields",
                "ZEKOAvailableFieldsLinked", "ZEKOSelectedLinkedFields", "ZEKOToLinkKeyFields"));
    }
}

}  // namespace
}  // namespace headerdtc
