#include "link_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LinkedFieldsTest : public FamilyLinksTest {
  protected:
    LinkedFieldsTest() { fill(available, {"A", "B", "C", "D"}); }

    ListBox& available = family.LinkedFieldsList;
    ListBox& selected = family.SelectedLinkedFieldsList;
    Button& add = family.AddLinkedField;
    Button& remove = family.RemoveLinkedField;
};

INSTANTIATE_TEST_SUITE_P(Families, LinkedFieldsTest, ::testing::ValuesIn(BothFamilies),
                         nameOfFamily);

TEST_P(LinkedFieldsTest, AddMovesTheSelectedFieldsToTheEnd) {
    selected.AddItem("Z");
    available.select({1, 3}, 0);
    add.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("Z", "B", "D"));
    EXPECT_THAT(itemsOf(available), ElementsAre("A", "C"));
    // EAI goes by the focus, ZEKO by the last field that went.
    EXPECT_THAT(selectedItemsOf(available), ElementsAre(eai ? "A" : "C"));
    EXPECT_EQ(available.Text(), eai ? "A" : "C");
    EXPECT_TRUE(available.hasFocus());
    EXPECT_THAT(notices(),
                ElementsAre(named("SelectedLinkedFields"), named("AvailableFieldsLinked")));
}

TEST_P(LinkedFieldsTest, AddWithoutASelectionMovesTheSelectionOfEaiOrFailsWithoutAFocus) {
    available.select({}, 2);
    remove.Enabled(true);
    add.press();
    EXPECT_EQ(available.ListCount(), 4);
    EXPECT_THAT(itemsOf(selected), IsEmpty());
    EXPECT_EQ(available.SelCount(), eai ? 1 : 0);
    EXPECT_EQ(remove.Enabled(), !eai);
    EXPECT_THAT(notices(), IsEmpty());
    available.select({}, -1);
    add.press();
    EXPECT_EQ(errors(), eai ? std::vector<std::string>{"Error in 'EAIAddLinkedField_Click': "
                                                       "Invalid property array index (381)"}
                            : std::vector<std::string>{});
}

TEST_P(LinkedFieldsTest, ADoubleClickAddsTheFieldUnderTheFocus) {
    available.doubleClickEmptyArea();
    EXPECT_THAT(itemsOf(selected), IsEmpty());
    available.doubleClick(3);
    EXPECT_THAT(itemsOf(selected), ElementsAre("D"));
    EXPECT_THAT(selectedItemsOf(available), ElementsAre("C"));
    available.doubleClickEmptyArea();
    EXPECT_THAT(itemsOf(selected), ElementsAre("D", "C"));
    EXPECT_EQ(notices().size(), 4U);
}

TEST_P(LinkedFieldsTest, RemoveSelectsWhatFollowsTheLowestRemovedField) {
    fill(selected, {"P", "Q", "R", "S"});
    selected.select({1, 2}, 2);
    remove.press();
    EXPECT_THAT(itemsOf(available), ElementsAre("A", "B", "C", "D", "R", "Q"));
    EXPECT_THAT(itemsOf(selected), ElementsAre("P", "S"));
    EXPECT_THAT(selectedItemsOf(selected), ElementsAre("S"));
    EXPECT_TRUE(selected.hasFocus());
}

TEST_P(LinkedFieldsTest, OnlyTheFieldUnderTheFocusIsMoved) {
    fill(selected, {"P", "Q", "R"});
    selected.select({0, 2}, 2);
    family.MoveUpLinkedField.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("P", "R", "Q"));
    family.MoveUpLinkedField.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("R", "P", "Q"));
    EXPECT_THAT(notices(),
                ElementsAre(named("SelectedLinkedFields"), named("SelectedLinkedFields")));
    family.MoveUpLinkedField.press();
    EXPECT_THAT(notices(), IsEmpty());
    family.MoveDownLinkedField.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("P", "R", "Q"));
    EXPECT_EQ(selected.ListIndex(), 1);
    EXPECT_TRUE(family.MoveDownLinkedField.hasFocus());
    while (selected.ListCount() < MaxListCount)
        selected.AddItem("F");
    family.MoveUpLinkedField.press();
    EXPECT_THAT(errors(), ElementsAre("Error in '" + named("MoveUpLinkdFieldCommand_Click") +
                                      "': Overflow (6)"))
        << "under the name of the ZEKO button";
}

TEST_P(LinkedFieldsTest, TheLongestListsGoThereAndBack) {
    available.Clear();
    std::vector<int> all;
    for (int i = 0; i < MaxListCount; ++i) {
        available.AddItem("F" + std::to_string(i));
        all.push_back(i);
    }
    available.select(all, 0);
    add.press();
    EXPECT_EQ(selected.ListCount(), MaxListCount);
    EXPECT_EQ(selected.List(MaxListCount - 1), "F32766");
    EXPECT_FALSE(add.Enabled());
    EXPECT_TRUE(remove.Enabled());
    selected.select(all, 0);
    remove.press();
    EXPECT_EQ(available.ListCount(), MaxListCount);
    EXPECT_EQ(available.List(0), "F32766");
    EXPECT_TRUE(add.Enabled());
    EXPECT_FALSE(remove.Enabled());
    EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace
}  // namespace headerdtc
