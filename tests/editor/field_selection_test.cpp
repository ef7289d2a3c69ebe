#include "editor_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FieldSelectionTest : public FamilyTest {
  protected:
    FieldSelectionTest() { offer({"A", "B", "C", "D"}); }

    void offer(std::initializer_list<const char*> fields) {
        available.Clear();
        fill(available, fields);
    }
    // Chooses fields as the author does.
    void choose(const std::vector<int>& items) {
        available.select(items, items.back());
        family.AddField.press();
        notices();
    }

    ListBox& available = family.FieldsList;
    ListBox& selected = family.SelectedFieldsList;
};

INSTANTIATE_TEST_SUITE_P(Families, FieldSelectionTest, ::testing::ValuesIn(BothFamilies),
                         nameOfFamily);

TEST_P(FieldSelectionTest, AddedFieldsGoToTheEndAndAreOfferedForTranslationAndLinks) {
    choose({0});
    offer({"A", "B", "C", "D"});
    available.select({1, 3}, 3);
    family.AddField.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("A", "B", "D"));
    EXPECT_THAT(itemsOf(family.I18NFieldnamesList), ElementsAre("A", "B", "D"));
    EXPECT_THAT(itemsOf(family.I18NFieldValuesList), ElementsAre("A", "B", "D"));
    EXPECT_THAT(itemsOf(family.FromLinkFieldsCombo), ElementsAre("A", "B", "D"));
    EXPECT_THAT(itemsOf(available), ElementsAre("A", "C"));
    EXPECT_THAT(selectedItemsOf(available), ElementsAre("C"));
    EXPECT_EQ(available.ListIndex(), 1);
    EXPECT_TRUE(available.hasFocus());
    EXPECT_THAT(notices(), ElementsAre(named("ReturnFields"), named("AvailableFields")));
}

TEST_P(FieldSelectionTest, AddWithNothingSelectedMovesTheSelectionOrFailsWithoutAFocus) {
    available.select({}, 2);
    family.AddField.press();
    EXPECT_THAT(selectedItemsOf(available), ElementsAre("C"));
    available.select({}, -1);
    family.AddField.press();
    EXPECT_THAT(errors(),
                ElementsAre(report("AddField_Click", "Invalid property array index (381)")));
    EXPECT_EQ(available.ListCount(), 4);
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_P(FieldSelectionTest, ADoubleClickAddsTheFieldUnderIt) {
    available.doubleClick(1);
    EXPECT_THAT(itemsOf(selected), ElementsAre("B"));
    EXPECT_THAT(itemsOf(family.I18NFieldValuesList), ElementsAre("B"));
    EXPECT_THAT(itemsOf(available), ElementsAre("A", "C", "D"));
    EXPECT_THAT(selectedItemsOf(available), ElementsAre("C"));
    EXPECT_THAT(notices(), ElementsAre(named("ReturnFields"), named("AvailableFields")));
    offer({});
    available.doubleClickEmptyArea();
    EXPECT_THAT(itemsOf(selected), ElementsAre("B"));
    EXPECT_FALSE(family.AddField.Enabled());
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_P(FieldSelectionTest, RemovedFieldsGoBackToTheEndAndLoseTheirTranslations) {
    choose({0, 1, 2, 3});
    EXPECT_FALSE(family.AddField.Enabled());
    fill(available, {"X"});
    selected.select({1, 3}, 0);
    family.RemoveField.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("A", "C"));
    EXPECT_THAT(itemsOf(available), ElementsAre("X", "D", "B"));
    EXPECT_THAT(itemsOf(family.I18NFieldnamesList), ElementsAre("A", "C"));
    EXPECT_THAT(itemsOf(family.I18NFieldValuesList), ElementsAre("A", "C"));
    EXPECT_THAT(itemsOf(family.FromLinkFieldsCombo), ElementsAre("A", "B", "C", "D"));
    EXPECT_EQ(selected.ListIndex(), 1);
    EXPECT_THAT(selectedItemsOf(selected), ElementsAre("C"));
    EXPECT_TRUE(selected.hasFocus());
    EXPECT_TRUE(family.AddField.Enabled());
    EXPECT_THAT(notices(), ElementsAre(named("ReturnFields"), named("AvailableFields")));
    // Nothing selected: only the buttons are refreshed.
    selected.select({}, 0);
    available.Clear();
    family.RemoveField.press();
    EXPECT_EQ(selected.ListCount(), 2);
    EXPECT_FALSE(family.AddField.Enabled());
    EXPECT_THAT(notices(), IsEmpty());
    selected.select({0, 1}, 0);
    family.RemoveField.press();
    EXPECT_FALSE(family.RemoveField.Enabled());
}

TEST_P(FieldSelectionTest, OnlyTheFieldUnderTheFocusMoves) {
    choose({0, 1, 2});
    selected.select({2}, 0);
    family.MoveDownCommand.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("B", "A", "C"));
    EXPECT_THAT(itemsOf(family.I18NFieldnamesList), ElementsAre("A", "B", "C"));
    EXPECT_EQ(selected.ListIndex(), 1);
    EXPECT_THAT(notices(), ElementsAre(named("ReturnFields")));
    // The EAI list takes selection and focus along, the ZEKO list leaves them.
    const bool marks = GetParam() == Family::EAI;
    EXPECT_EQ(selected.Selected(1), marks);
    EXPECT_EQ(selected.hasFocus(), marks);

    family.MoveUpCommand.press();
    notices();
    family.MoveUpCommand.press();
    selected.select({2}, 2);
    family.MoveDownCommand.press();
    EXPECT_THAT(itemsOf(selected), ElementsAre("A", "B", "C"));
    EXPECT_THAT(notices(), IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_P(FieldSelectionTest, AFullListStopsTheRunAndWhatWasMovedStays) {
    for (int i = 0; i < MaxListCount - 1; ++i)
        selected.AddItem("field");
    available.select({0, 1}, 0);
    family.AddField.press();
    EXPECT_THAT(errors(), ElementsAre(report("AddField_Click", "Overflow (6)")));
    EXPECT_EQ(selected.List(MaxListCount - 1), "A");
    EXPECT_EQ(available.ListCount(), 4);
    EXPECT_FALSE(family.RemoveField.Enabled());
    EXPECT_THAT(notices(), ElementsAre(named("ReturnFields"), named("AvailableFields")));
}

// Reading every list anew for every field would show here.
TEST_P(FieldSelectionTest, TheLargestListsAreAddedAndRemovedAtOnce) {
    available.Clear();
    std::vector<int> all, everySecond;
    for (int i = 0; i < MaxListCount; ++i) {
        const std::string field = "GROUP.FIELD" + std::to_string(i);
        available.AddItem(field);
        family.LinkedFieldsList.AddItem(field);
        all.push_back(i);
        if (i % 2 == 1) everySecond.push_back(i);
    }
    choose(all);
    EXPECT_EQ(selected.ListCount(), MaxListCount);
    selected.select(everySecond, 0);
    family.RemoveField.press();
    EXPECT_EQ(available.List(0), "GROUP.FIELD32765");
    for (const ListBox* list : {&selected, &family.I18NFieldnamesList, &family.I18NFieldValuesList,
                                &family.LinkedFieldsList}) {
        EXPECT_EQ(list->ListCount(), (MaxListCount + 1) / 2);
        EXPECT_EQ(list->List(1), "GROUP.FIELD2");
    }
}

}  // namespace
}  // namespace headerdtc
