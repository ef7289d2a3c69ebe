#include "controls_fixture.h"

namespace headerdtc::button_test {

class ButtonTest : public ControlsTest {
  protected:
    ButtonTest() { events.listenTo(surface); }
    Button button{surface, "Button", "Press"};
    CheckBox check{surface, "Check", "Tick"};
    OptionGroup group;
    OptionButton one{surface, "One", "1", group};
    OptionButton two{surface, "Two", "2", group};
    OptionButton three{surface, "Three", "3", group};
};

TEST_F(ButtonTest, AButtonIsPressedByMouseEnterAndBlank) {
    button.press();
    press(button, Enter, U' ', U'x');
    EXPECT_EQ(events.take(), "Button.GotFocus, Button.Click, Button.Click, Button.Click");
}

TEST_F(ButtonTest, ACheckBoxClicksWhenItsValueChangesAndAPersonTurnsAGreyOneOff) {
    check.Value(CheckState::Greyed);
    check.Value(CheckState::Greyed);
    EXPECT_EQ(events.take(), "Check.Click");
    check.toggle();
    EXPECT_EQ(check.Value(), CheckState::Unchecked);
    EXPECT_EQ(events.take(), "Check.GotFocus, Check.Click");
    press(check, U' ', Enter);
    EXPECT_EQ(check.Value(), CheckState::Checked);
}

TEST_F(ButtonTest, ChoosingAnOptionDeselectsTheOthersBeforeItsClickAndWithoutTheirs) {
    bool alone = false;
    const auto handler = two.Click.subscribe([&] { alone = two.Value() && !one.Value(); });
    EXPECT_FALSE(one.Value() || two.Value() || three.Value());
    one.Value(true);
    two.pick();
    two.pick();
    EXPECT_EQ(events.take(), "One.Click, Two.GotFocus, Two.Click");
    EXPECT_TRUE(alone);
    two.Value(false);
    EXPECT_FALSE(two.Value());
    EXPECT_EQ(events.take(), "");
}

TEST_F(ButtonTest, ArrowsGoRoundTheOptionsThatCanBeUsed) {
    two.Enabled(false);
    press(one, Down);
    EXPECT_TRUE(three.Value() && three.hasFocus());
    press(three, Right);
    EXPECT_TRUE(one.Value());
    press(one, Up);
    EXPECT_TRUE(three.Value());
    one.Visible(false);
    press(three, Down);
    EXPECT_TRUE(three.Value() && three.hasFocus());
}

}  // namespace headerdtc::button_test
