#include "controls_fixture.h"

namespace headerdtc::combo_box_test {

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
    EXPECT_EQ(events.take(), "Choice.Click, Choice.Click, Choice.Click");
    editable.ListIndex(0);
    EXPECT_EQ(editable.SelLength(), 3);
    EXPECT_EQ(events.take(), "Editable.Click");
}

TEST_F(ComboBoxTest, TheTextOfADropDownListIsOneOfItsItems) {
    choice.Text("orders");
    EXPECT_EQ(choice.ListIndex(), 2);
    EXPECT_EQ(numberOf([&] { choice.Text("ORDERS"); }), 380);
    EXPECT_EQ(choice.Text(), "orders");
    choice.Text("");
    EXPECT_EQ(choice.ListIndex(), -1);
    EXPECT_EQ(events.take(), "Choice.Click, Choice.Click");
}

TEST_F(ComboBoxTest, AnotherTextOfAnEditableComboLeavesTheList) {
    editable.ListIndex(1);
    EXPECT_EQ(eventsOf([&] { editable.Text("TWO"); }), "");
    EXPECT_EQ(editable.ListIndex(), 1);
    EXPECT_EQ(eventsOf([&] { editable.Text("THREE"); }), "Editable.Change");
    EXPECT_EQ(editable.Text(), "THREE");
    EXPECT_EQ(editable.ListIndex(), -1);
    editable.choose(0);
    EXPECT_EQ(eventsOf([&] { editable.type("SLBDA2001"); }), "Editable.Change");
    EXPECT_EQ(editable.Text(), "SLBDA2001");
    EXPECT_EQ(editable.ListIndex(), -1);
    EXPECT_EQ(editable.SelStart(), 9);
    editable.Clear();
    EXPECT_EQ(editable.Text(), "");
}

TEST_F(ComboBoxTest, APersonChoosesWhatIsThere) {
    choice.choose("Stock");
    EXPECT_EQ(choice.ListIndex(), 1);
    EXPECT_EQ(events.take(), "Choice.GotFocus, Choice.Click");
    EXPECT_TRUE(isRefused([&] { editable.choose(2); }));
    EXPECT_TRUE(isRefused([&] { editable.choose("THREE"); }));
    EXPECT_TRUE(isRefused([&] { editable.type("two\nlines"); }));
    EXPECT_TRUE(choice.hasFocus());
    EXPECT_TRUE(isRefused([&] { choice.type("Stock"); }));
}

TEST_F(ComboBoxTest, KeysPickBesideOrByFirstCharacter) {
    press(choice, Up);
    EXPECT_EQ(choice.ListIndex(), 0);
    press(choice, Down);
    EXPECT_EQ(choice.ListIndex(), 1);
    EXPECT_EQ(eventsOf([&] { press(choice, U'O'); }), "Choice.KeyPress 79, Choice.Click");
    EXPECT_EQ(choice.ListIndex(), 2);
    EXPECT_EQ(eventsOf([&] { press(choice, Down); }), "") << "at the last item already";
}

TEST_F(ComboBoxTest, KeysEditTheTextOfAnEditableComboUnlessAHandlerIsInTheirWay) {
    editable.choose(1);
    press(editable, U'\u00E9');
    EXPECT_EQ(editable.Text(), "\u00E9") << "the picked item was selected as a whole";
    press(editable, U'a', Left, Backspace);
    EXPECT_EQ(editable.Text(), "a");
    auto handler = editable.KeyPress.subscribe([](int& code) { code = 0; });
    press(editable, U'x');
    EXPECT_EQ(editable.Text(), "a") << "swallowed";
    handler = editable.KeyPress.subscribe([&](int&) { editable.Visible(false); });
    press(editable, U'x');
    EXPECT_EQ(editable.Text(), "a") << "the focus has gone";
    EXPECT_FALSE(editable.hasFocus());
}

}  // namespace headerdtc::combo_box_test
