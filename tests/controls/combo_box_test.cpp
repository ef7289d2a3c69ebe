#include "controls_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ComboBoxTest : public ControlsTest {
  protected:
    ComboBoxTest() {
        fill(choice, {"Orders", "Stock", "orders"});
        fill(editable, {"ONE", "TWO"});
        events.listenTo(surface);
    }
    ComboBox choice{surface, "Choice", ComboBox::Style::DropDownList};
    ComboBox editable{surface, "Editable", ComboBox::Style::Editable};
};

TEST_F(ComboBoxTest, AssigningListIndexMakesTheItemTheTextAndClicks) {
    choice.ListIndex(1);
    EXPECT_EQ(choice.Text(), "Stock");
    choice.ListIndex(1);
    choice.ListIndex(-1);
    EXPECT_EQ(choice.Text(), "");
    EXPECT_THAT(events.take(), ElementsAre("Choice.Click", "Choice.Click", "Choice.Click"));
    editable.ListIndex(0);
    EXPECT_EQ(editable.SelLength(), 3);
    EXPECT_THAT(events.take(), ElementsAre("Editable.Click"));
}

TEST_F(ComboBoxTest, TheTextOfADropDownListIsOneOfItsItems) {
    choice.Text("orders");
    EXPECT_EQ(choice.ListIndex(), 2);
    EXPECT_EQ(errorOf([&] { choice.Text("ORDERS"); }), 380);
    EXPECT_EQ(choice.Text(), "orders");
    choice.Text("");
    EXPECT_EQ(choice.ListIndex(), -1);
    EXPECT_THAT(events.take(), ElementsAre("Choice.Click", "Choice.Click"));
}

TEST_F(ComboBoxTest, TheTextOfAnEditableComboIsItsOwn) {
    editable.ListIndex(1);
    events.take();
    editable.Text("TWO");
    EXPECT_THAT(events.take(), IsEmpty());
    EXPECT_EQ(editable.ListIndex(), 1);
    editable.Text("THREE");
    EXPECT_THAT(events.take(), ElementsAre("Editable.Change"));
    EXPECT_EQ(editable.ListIndex(), -1);
}

TEST_F(ComboBoxTest, IndexAndTextFollowTheirItem) {
    choice.ListIndex(1);
    choice.AddItem("first", 0);
    EXPECT_EQ(choice.ListIndex(), 2);
    choice.List(2, "Goods");
    EXPECT_EQ(choice.Text(), "Goods");
    choice.RemoveItem(0);
    EXPECT_EQ(choice.ListIndex(), 1);
    choice.RemoveItem(1);
    EXPECT_EQ(choice.ListIndex(), -1);
    EXPECT_EQ(choice.Text(), "");
    editable.Text("typed");
    editable.Clear();
    EXPECT_EQ(editable.Text(), "");
    EXPECT_EQ(editable.ListCount(), 0);
}

TEST_F(ComboBoxTest, AnIndexThatIsNotThereChangesNothing) {
    choice.ListIndex(2);
    events.take();
    for (const int index : {-1, 3}) {
        EXPECT_EQ(errorOf([&] { static_cast<void>(choice.List(index)); }), 381);
        EXPECT_EQ(errorOf([&] { choice.List(index, "x"); }), 381);
        EXPECT_EQ(errorOf([&] { choice.RemoveItem(index); }), 381);
    }
    EXPECT_EQ(errorOf([&] { choice.AddItem("x", 4); }), 381);
    EXPECT_EQ(errorOf([&] { choice.ListIndex(3); }), 380);
    EXPECT_EQ(errorOf([&] { editable.SelStart(-1); }), 380);
    EXPECT_EQ(errorOf([&] { editable.SelLength(-1); }), 380);
    EXPECT_THAT(itemsOf(choice), ElementsAre("Orders", "Stock", "orders"));
    EXPECT_EQ(choice.Text(), "orders");
    EXPECT_THAT(events.take(), IsEmpty());
    while (choice.ListCount() < 32767)
        choice.AddItem("x");
    EXPECT_EQ(errorOf([&] { choice.AddItem("one too many"); }), 6);
}

TEST_F(ComboBoxTest, APersonChoosesWhatIsThere) {
    choice.choose("Stock");
    EXPECT_EQ(choice.ListIndex(), 1);
    EXPECT_THAT(events.take(), ElementsAre("Choice.GotFocus", "Choice.Click"));
    EXPECT_TRUE(isRefused([&] { editable.choose(2); }));
    EXPECT_TRUE(isRefused([&] { editable.choose("THREE"); }));
    EXPECT_TRUE(isRefused([&] { editable.type("two\nlines"); }));
    EXPECT_TRUE(choice.hasFocus());
    EXPECT_TRUE(isRefused([&] { choice.type("Stock"); }));
}

TEST_F(ComboBoxTest, TypingIntoAnEditableComboLeavesTheList) {
    editable.choose(0);
    events.take();
    editable.type("SLBDA2001");
    EXPECT_EQ(editable.Text(), "SLBDA2001");
    EXPECT_EQ(editable.ListIndex(), -1);
    EXPECT_EQ(editable.SelStart(), 9);
    EXPECT_THAT(events.take(), ElementsAre("Editable.Change"));
}

TEST_F(ComboBoxTest, KeysPickBesideOrByFirstCharacter) {
    choice.press(Key::of(Key::Kind::Up));
    EXPECT_EQ(choice.ListIndex(), 0);
    choice.press(Key::of(Key::Kind::Down));
    EXPECT_EQ(choice.ListIndex(), 1);
    events.take();
    choice.press(Key::of(U'O'));
    EXPECT_EQ(choice.ListIndex(), 2);
    EXPECT_THAT(events.take(), ElementsAre("Choice.KeyPress 79", "Choice.Click"));
    choice.press(Key::of(Key::Kind::Down));
    EXPECT_THAT(events.take(), IsEmpty()) << "at the last item already";
}

TEST_F(ComboBoxTest, AKeyThatAHandlerSwallowsOrTakesTheFocusFromDoesNothing) {
    auto handler = editable.KeyPress.subscribe([](int& code) { code = 0; });
    editable.press(Key::of(U'x'));
    EXPECT_EQ(editable.Text(), "");
    handler = editable.KeyPress.subscribe([&](int&) { editable.Visible(false); });
    editable.press(Key::of(U'x'));
    EXPECT_EQ(editable.Text(), "");
    EXPECT_FALSE(editable.hasFocus());
}

TEST_F(ComboBoxTest, KeysEditTheTextOfAnEditableCombo) {
    editable.choose(1);
    editable.press(Key::of(U'\u00E9'));
    EXPECT_EQ(editable.Text(), "\u00E9") << "the picked item was selected as a whole";
    editable.press(Key::of(U'a'));
    editable.press(Key::of(Key::Kind::Left));
    editable.press(Key::of(Key::Kind::Backspace));
    EXPECT_EQ(editable.Text(), "a");
    editable.press(Key::of(Key::Kind::Delete));
    EXPECT_EQ(editable.Text(), "");
    EXPECT_EQ(editable.SelStart(), 0);
}

}  // namespace
}  // namespace headerdtc
