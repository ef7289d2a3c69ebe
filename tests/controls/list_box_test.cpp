#include "controls_fixture.h"

namespace headerdtc::list_box_test {

class ListBoxTest : public ControlsTest {
  protected:
    ListBoxTest() {
        fill(multi, {"A", "B", "C", "D"});
        fill(single, {"a", "b", "c"});
        events.listenTo(surface);
    }
    Button button{surface, "Button", "Press"};
    ListBox multi{surface, "Multi", ListBox::Selection::Multiple};
    ListBox single{surface, "Single", ListBox::Selection::Single};
};

// ---- what a program does ------------------------------------------------------------------------

TEST_F(ListBoxTest, AssigningListIndexClicksAndSelectedDoesNot) {
    multi.Selected(2, true);
    single.Selected(1, true);
    EXPECT_EQ(events.take(), "");
    multi.ListIndex(0);
    multi.ListIndex(0);
    single.ListIndex(-1);
    EXPECT_EQ(events.take(), "Multi.Click, Multi.Click, Single.Click");
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(ListBoxTest, OnlyInASingleSelectionListAreIndexAndSelectionOne) {
    multi.Selected(1, true);
    multi.Selected(3, true);
    multi.Selected(3, true);
    multi.ListIndex(0);
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("B", "D"));
    EXPECT_EQ(multi.SelCount(), 2);
    single.ListIndex(2);
    EXPECT_THAT(selectedItemsOf(single), ElementsAre("c"));
    single.Selected(0, true);
    EXPECT_EQ(single.ListIndex(), 0);
    EXPECT_THAT(selectedItemsOf(single), ElementsAre("a"));
    single.Selected(1, false);
    EXPECT_EQ(single.ListIndex(), 0);
    single.Selected(0, false);
    EXPECT_EQ(single.ListIndex(), -1);
    EXPECT_EQ(single.SelCount(), 0);
}

TEST_F(ListBoxTest, SeveralItemsAreSelectedAtOnceForTheViews) {
    int told = 0;
    const auto view = multi.selectionChanged.subscribe([&] { ++told; });
    multi.Selected({0, 2, 2}, true);
    EXPECT_EQ(told, 1);
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("A", "C"));
    EXPECT_EQ(multi.SelCount(), 2);
    EXPECT_EQ(multi.find("C"), 2);
    EXPECT_EQ(multi.find("c"), -1);
}

// ---- what a person does -------------------------------------------------------------------------

TEST_F(ListBoxTest, ASelectionTakesTheFocusFirstAndClicksOnce) {
    button.SetFocus();
    const std::vector<int> first{0, 2};
    EXPECT_EQ(eventsOf([&] { multi.select(first, 2); }),
              "Button.LostFocus, Multi.GotFocus, Multi.Click");
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("A", "C"));
    EXPECT_EQ(multi.ListIndex(), 2);
    EXPECT_EQ(eventsOf([&] { multi.select({}, 1); }), "Multi.Click");
    EXPECT_EQ(multi.SelCount(), 0);
    EXPECT_EQ(multi.ListIndex(), 1);
}

TEST_F(ListBoxTest, ASelectionThatIsNotPossibleIsRefused) {
    single.ListIndex(1);
    EXPECT_TRUE(isRefused([&] { multi.select({0, 4}, 0); }));
    EXPECT_TRUE(isRefused([&] { multi.select({0}, -2); }));
    EXPECT_TRUE(isRefused([&] { single.select({0, 1}, 0); }));
    EXPECT_TRUE(isRefused([&] { single.select({0}, 1); }));
    EXPECT_TRUE(isRefused([&] { single.select({}, -1); }));
    EXPECT_TRUE(isRefused([&] { multi.doubleClick(4); }));
    EXPECT_EQ(multi.SelCount(), 0);
    EXPECT_THAT(selectedItemsOf(single), ElementsAre("b"));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(ListBoxTest, ADoubleClickSelectsTheItemAloneAndClicksBefore) {
    multi.select({1, 2}, 2);
    EXPECT_EQ(eventsOf([&] { multi.doubleClick(3); }), "Multi.Click, Multi.DblClick");
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("D"));
    EXPECT_EQ(eventsOf([&] { multi.doubleClickEmptyArea(); }), "Multi.DblClick");
    EXPECT_EQ(multi.ListIndex(), 3);
    Form dialog(desktop, "Dialog", Form::Kind::Dialog);
    const auto open = multi.Click.subscribe([&] { dialog.ShowModal(); });
    EXPECT_EQ(eventsOf([&] { multi.doubleClick(0); }), "Multi.Click")
        << "a dialog that the first press opens takes the second";
}

TEST_F(ListBoxTest, KeysMoveTheOneSelectedItem) {
    press(multi, Down);
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("A"));
    press(multi, Down, Up);
    EXPECT_EQ(multi.ListIndex(), 0);
    EXPECT_EQ(eventsOf([&] { press(multi, Up); }), "") << "at the first item already";
    EXPECT_EQ(eventsOf([&] { press(multi, U'c'); }), "Multi.Click");
    EXPECT_EQ(multi.Text(), "C");
    EXPECT_EQ(eventsOf([&] { press(multi, U'z', Delete); }), "");
}

TEST_F(ListBoxTest, CharactersGoFromItemToItemAndRound) {
    fill(single, {"b2", "\u00C4pfel"});
    for (const auto& [key, item] :
         {std::pair{U'B', "b"}, {U'b', "b2"}, {U'b', "b"}, {U'\u00C4', "\u00C4pfel"}}) {
        press(single, key);
        EXPECT_EQ(single.Text(), item);
    }
}

TEST_F(ListBoxTest, TheBlankSelectsAndDeselectsOneOfSeveral) {
    multi.select({0, 2}, 2);
    press(multi, U' ');
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("A"));
    EXPECT_EQ(eventsOf([&] { press(multi, U' '); }), "Multi.Click");
    EXPECT_THAT(selectedItemsOf(multi), ElementsAre("A", "C"));
}

}  // namespace headerdtc::list_box_test
