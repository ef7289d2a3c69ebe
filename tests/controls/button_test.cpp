#include "controls_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
    button.press(Key::of(Key::Kind::Enter));
    button.press(Key::of(U' '));
    button.press(Key::of(U'x'));
    EXPECT_THAT(events.take(),
                ElementsAre("Button.GotFocus", "Button.Click", "Button.Click", "Button.Click"));
}

TEST_F(ButtonTest, ACheckBoxClicksWhenItsValueBecomesAnother) {
    check.Value(CheckState::Greyed);
    check.Value(CheckState::Greyed);
    EXPECT_THAT(events.take(), ElementsAre("Check.Click"));
}

TEST_F(ButtonTest, APersonTurnsAGreyBoxOff) {
    check.Value(CheckState::Greyed);
    events.take();
    check.toggle();
    EXPECT_EQ(check.Value(), CheckState::Unchecked);
    EXPECT_THAT(events.take(), ElementsAre("Check.GotFocus", "Check.Click"));
    check.press(Key::of(U' '));
    EXPECT_EQ(check.Value(), CheckState::Checked);
    check.press(Key::of(Key::Kind::Enter));
    EXPECT_EQ(check.Value(), CheckState::Checked);
}

TEST_F(ButtonTest, ChoosingAnOptionDeselectsTheOthersWithoutTheirClick) {
    EXPECT_FALSE(one.Value() || two.Value() || three.Value());
    one.Value(true);
    two.pick();
    two.pick();
    EXPECT_THAT(events.take(), ElementsAre("One.Click", "Two.GotFocus", "Two.Click"));
    EXPECT_FALSE(one.Value());
    two.Value(false);
    EXPECT_FALSE(two.Value());
    EXPECT_THAT(events.take(), IsEmpty());
}

TEST_F(ButtonTest, TheOthersAreDeselectedWhenTheClickComes) {
    one.Value(true);
    bool alone = false;
    const auto handler = three.Click.subscribe([&] { alone = three.Value() && !one.Value(); });
    three.pick();
    EXPECT_TRUE(alone);
}

TEST_F(ButtonTest, ArrowsGoRoundTheOptionsThatCanBeUsed) {
    two.Enabled(false);
    one.press(Key::of(Key::Kind::Down));
    EXPECT_TRUE(three.Value());
    EXPECT_TRUE(three.hasFocus());
    three.press(Key::of(Key::Kind::Right));
    EXPECT_TRUE(one.Value());
    one.press(Key::of(Key::Kind::Up));
    EXPECT_TRUE(three.Value());
    one.Visible(false);
    three.press(Key::of(Key::Kind::Down));
    EXPECT_TRUE(three.Value() && three.hasFocus());
}

}  // namespace
}  // namespace headerdtc
