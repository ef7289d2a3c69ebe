#include "controls_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
    EXPECT_THAT(events.take(), IsEmpty());
    multi.ListIndex(0);
    multi.ListIndex(0);
    single.ListIndex(-1);
    EXPECT_THAT(events.take(), ElementsAre("Multi.Click", "Multi.Click", "Single.Click"));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(ListBoxTest, InAMultiSelectionListTheIndexLeavesTheSelectionAlone) {
    multi.Selected(1, true);
    multi.Selected(3, true);
    multi.Selected(3, true);
    multi.ListIndex(0);
    EXPECT_THAT(selectionOf(multi), ElementsAre(1, 3));
    EXPECT_EQ(multi.SelCount(), 2);
    EXPECT_EQ(multi.Text(), "A");
}

TEST_F(ListBoxTest, InASingleSelectionListIndexAndSelectionAreOne) {
    single.ListIndex(2);
    EXPECT_THAT(selectionOf(single), ElementsAre(2));
    single.Selected(0, true);
    EXPECT_EQ(single.ListIndex(), 0);
    EXPECT_THAT(selectionOf(single), ElementsAre(0));
    single.Selected(1, false);
    EXPECT_EQ(single.ListIndex(), 0);
    single.Selected(0, false);
    EXPECT_EQ(single.ListIndex(), -1);
    EXPECT_EQ(single.SelCount(), 0);
}

TEST_F(ListBoxTest, IndexAndSelectionFollowTheirItems) {
    multi.ListIndex(2);
    multi.Selected(1, true);
    multi.AddItem("new", 1);
    EXPECT_EQ(multi.Text(), "C");
    EXPECT_THAT(selectionOf(multi), ElementsAre(2));
    multi.RemoveItem(0);
    EXPECT_EQ(multi.Text(), "C");
    multi.RemoveItem(1);
    EXPECT_EQ(multi.SelCount(), 0);
    multi.RemoveItem(1);
    EXPECT_EQ(multi.ListIndex(), -1);
    EXPECT_THAT(itemsOf(multi), ElementsAre("new", "D"));
    multi.Clear();
    EXPECT_EQ(multi.ListCount(), 0);
    EXPECT_EQ(multi.Text(), "");
}

TEST_F(ListBoxTest, AnIndexThatIsNotThereChangesNothing) {
    multi.Selected(1, true);
    multi.ListIndex(3);
    events.take();
    for (const int index : {-1, 4, 40000}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(errorOf([&] { static_cast<void>(multi.List(index)); }), 381);
        EXPECT_EQ(errorOf([&] { multi.List(index, "x"); }), 381);
        EXPECT_EQ(errorOf([&] { multi.RemoveItem(index); }), 381);
        EXPECT_EQ(errorOf([&] { static_cast<void>(multi.Selected(index)); }), 381);
        EXPECT_EQ(errorOf([&] { multi.Selected(index, true); }), 381);
        EXPECT_EQ(errorOf([&] { multi.Selected({0, index}, true); }), 381);
        EXPECT_EQ(multi.ListOrEmpty(index), "");
    }
    EXPECT_EQ(errorOf([&] { multi.AddItem("x", 5); }), 381);
    EXPECT_EQ(errorOf([&] { multi.AddItem("x", -1); }), 381);
    EXPECT_EQ(errorOf([&] { multi.ListIndex(4); }), 380);
    EXPECT_EQ(errorOf([&] { multi.ListIndex(-2); }), 380);
    EXPECT_EQ(errorOf([&] { single.Selected({0, 1}, true); }), 5);
    EXPECT_THAT(itemsOf(multi), ElementsAre("A", "B", "C", "D"));
    EXPECT_THAT(selectionOf(multi), ElementsAre(1));
    EXPECT_EQ(multi.ListIndex(), 3);
    EXPECT_THAT(events.take(), IsEmpty());
}

TEST_F(ListBoxTest, HoldsAsManyItemsAsSixteenBitPositionsReach) {
    while (multi.ListCount() < 32767)
        multi.AddItem("x");
    multi.ListIndex(32766);
    EXPECT_EQ(errorOf([&] { multi.AddItem("one too many"); }), 6);
    EXPECT_EQ(errorOf([&] { multi.AddItem("one too many", 0); }), 6);
    EXPECT_EQ(multi.ListCount(), 32767);
    EXPECT_EQ(multi.ListIndex(), 32766);
}

TEST_F(ListBoxTest, SeveralItemsAreSelectedAtOnceForTheViews) {
    int told = 0;
    const auto view = multi.selectionChanged.subscribe([&] { ++told; });
    multi.Selected({0, 2, 2}, true);
    EXPECT_EQ(told, 1);
    EXPECT_THAT(selectionOf(multi), ElementsAre(0, 2));
    EXPECT_EQ(multi.SelCount(), 2);
    EXPECT_EQ(multi.find("C"), 2);
    EXPECT_EQ(multi.find("c"), -1);
}

// ---- what a person does -------------------------------------------------------------------------

TEST_F(ListBoxTest, ASelectionTakesTheFocusFirstAndClicksOnce) {
    button.SetFocus();
    events.take();
    multi.select({0, 2}, 2);
    EXPECT_THAT(events.take(), ElementsAre("Button.LostFocus", "Multi.GotFocus", "Multi.Click"));
    EXPECT_THAT(selectionOf(multi), ElementsAre(0, 2));
    EXPECT_EQ(multi.ListIndex(), 2);
    multi.select({}, 1);
    EXPECT_THAT(events.take(), ElementsAre("Multi.Click"));
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
    EXPECT_THAT(selectionOf(single), ElementsAre(1));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(ListBoxTest, ADoubleClickSelectsTheItemAloneAndClicksBefore) {
    multi.select({1, 2}, 2);
    events.take();
    multi.doubleClick(3);
    EXPECT_THAT(events.take(), ElementsAre("Multi.Click", "Multi.DblClick"));
    EXPECT_THAT(selectionOf(multi), ElementsAre(3));
    multi.doubleClickEmptyArea();
    EXPECT_THAT(events.take(), ElementsAre("Multi.DblClick"));
    EXPECT_EQ(multi.ListIndex(), 3);
}

TEST_F(ListBoxTest, ADialogOpenedByTheFirstPressTakesTheSecond) {
    Form dialog(desktop, "Dialog", Form::Kind::Dialog);
    const auto open = multi.Click.subscribe([&] { dialog.ShowModal(); });
    multi.doubleClick(0);
    EXPECT_THAT(events.take(), ElementsAre("Multi.GotFocus", "Multi.Click"));
    EXPECT_THAT(loop.formsShown, ElementsAre("Dialog"));
}

TEST_F(ListBoxTest, KeysMoveTheOneSelectedItem) {
    multi.press(Key::of(Key::Kind::Down));
    EXPECT_THAT(selectionOf(multi), ElementsAre(0));
    multi.press(Key::of(Key::Kind::Down));
    multi.press(Key::of(Key::Kind::Up));
    EXPECT_EQ(multi.ListIndex(), 0);
    events.take();
    multi.press(Key::of(Key::Kind::Up));
    EXPECT_THAT(events.take(), IsEmpty()) << "at the first item already";
    multi.press(Key::of(U'c'));
    EXPECT_EQ(multi.Text(), "C");
    EXPECT_THAT(events.take(), ElementsAre("Multi.Click"));
    multi.press(Key::of(U'z'));
    multi.press(Key::of(Key::Kind::Delete));
    EXPECT_THAT(events.take(), IsEmpty());
}

TEST_F(ListBoxTest, CharactersGoFromItemToItemAndRound) {
    single.AddItem("b2");
    single.AddItem("\xC3\x84pfel");
    single.press(Key::of(U'B'));
    EXPECT_EQ(single.Text(), "b");
    single.press(Key::of(U'b'));
    EXPECT_EQ(single.Text(), "b2");
    single.press(Key::of(U'b'));
    EXPECT_EQ(single.Text(), "b");
    single.press(Key::of(U'\u00C4'));
    EXPECT_EQ(single.ListIndex(), 4);
}

TEST_F(ListBoxTest, TheBlankSelectsAndDeselectsOneOfSeveral) {
    multi.select({0, 2}, 2);
    multi.press(Key::of(U' '));
    EXPECT_THAT(selectionOf(multi), ElementsAre(0));
    events.take();
    multi.press(Key::of(U' '));
    EXPECT_THAT(selectionOf(multi), ElementsAre(0, 2));
    EXPECT_THAT(events.take(), ElementsAre("Multi.Click"));
}

}  // namespace
}  // namespace headerdtc
