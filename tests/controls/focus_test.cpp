#include "controls_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FocusTest : public ControlsTest {
  protected:
    FocusTest() {
        onPage1.onTabPage(1);
        onPage1Too.onTabPage(1);
        events.listenTo(surface);
    }
    TabStrip tabs{surface, "Tabs", {"General", "Other"}};
    TextBox box{surface, "Box"};
    Label label{surface, "Label"};
    Button button{surface, "Button", "Press"};
    ListBox onPage1{surface, "OnPage1", ListBox::Selection::Single};
    Button onPage1Too{surface, "OnPage1Too", "Press"};
};

TEST_F(FocusTest, AMoveRaisesLostFocusThenGotFocus) {
    box.focus();
    button.SetFocus();
    EXPECT_THAT(events.take(), ElementsAre("Box.GotFocus", "Box.LostFocus", "Button.GotFocus"));
    button.SetFocus();
    button.press();
    EXPECT_THAT(events.take(), ElementsAre("Button.Click"));
    EXPECT_EQ(surface.ActiveControl(), &button);
}

TEST_F(FocusTest, AControlThatBecomesUnusableLosesTheFocus) {
    box.focus();
    box.Visible(false);
    EXPECT_FALSE(box.hasFocus());
    box.Visible(true);
    box.focus();
    box.Enabled(false);
    EXPECT_THAT(events.take(),
                ElementsAre("Box.GotFocus", "Box.LostFocus", "Box.GotFocus", "Box.LostFocus"));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(FocusTest, AProgramCannotGiveItToWhatIsUnusable) {
    box.focus();
    events.take();
    button.Enabled(false);
    for (Control* control : {static_cast<Control*>(&button), static_cast<Control*>(&onPage1),
                             static_cast<Control*>(&label)})
        EXPECT_EQ(errorOf([&] { control->SetFocus(); }), 5);
    EXPECT_TRUE(box.hasFocus());
    EXPECT_THAT(events.take(), IsEmpty());
}

TEST_F(FocusTest, ALostFocusHandlerMaySendItElsewhere) {
    box.focus();
    events.take();
    const auto handler = box.LostFocus.subscribe([&] { tabs.SetFocus(); });
    button.focus();
    EXPECT_THAT(events.take(), ElementsAre("Box.LostFocus", "Tabs.GotFocus"));
    EXPECT_TRUE(tabs.hasFocus());
}

TEST_F(FocusTest, ALostFocusHandlerThatDisablesTheTargetStopsTheAction) {
    box.focus();
    events.take();
    const auto handler = box.LostFocus.subscribe([&] { button.Enabled(false); });
    EXPECT_THROW(button.press(), ActionRefused);
    EXPECT_THAT(events.take(), ElementsAre("Box.LostFocus"));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(FocusTest, WhileItMovesNobodyHasIt) {
    box.focus();
    const Control* during = &box;
    const auto handler = box.LostFocus.subscribe([&] { during = surface.ActiveControl(); });
    button.focus();
    EXPECT_EQ(during, nullptr);
}

TEST_F(FocusTest, AFailingHandlerLeavesTheFocusNowhereAndTheViewsKnow) {
    box.focus();
    int told = 0;
    const auto view = surface.focusChanged.subscribe([&] { ++told; });
    const auto handler =
        box.LostFocus.subscribe([] { throw RuntimeError(ErrorNumber::DeviceIoError); });
    EXPECT_EQ(errorOf([&] { button.focus(); }), 57);
    EXPECT_EQ(surface.ActiveControl(), nullptr);
    EXPECT_EQ(told, 1);
}

TEST_F(FocusTest, APersonReachesNothingHiddenDisabledOrOnAnotherTab) {
    box.focus();
    box.Locked(false);
    button.Visible(false);
    EXPECT_TRUE(isRefused([&] { button.press(); }));
    button.Visible(true);
    button.Enabled(false);
    EXPECT_TRUE(isRefused([&] { button.press(Key::of(Key::Kind::Enter)); }));
    EXPECT_TRUE(isRefused([&] { onPage1.focus(); }));
    EXPECT_TRUE(isRefused([&] { onPage1.press(Key::of(Key::Kind::Down)); }));
    EXPECT_TRUE(isRefused([&] { label.focus(); }));
    EXPECT_TRUE(isRefused([&] { label.press(Key::of(U'x')); }));
    EXPECT_TRUE(box.hasFocus());
    try {
        onPage1.focus();
    } catch (const ActionRefused& refusal) {
        EXPECT_STREQ(refusal.what(), "'OnPage1' cannot be used: it is on another tab");
    }
}

// ---- Tab key and tab strip ----------------------------------------------------------------------

TEST_F(FocusTest, TabGoesRoundTheUsableControlsInTheirOrder) {
    Key back = Key::of(Key::Kind::Tab);
    back.shift = true;
    const Key forth = Key::of(Key::Kind::Tab);
    tabs.press(forth);
    EXPECT_TRUE(box.hasFocus());
    box.press(forth);
    EXPECT_TRUE(button.hasFocus()) << "past the label";
    button.press(forth);
    EXPECT_TRUE(tabs.hasFocus()) << "past what is on another tab";
    tabs.press(back);
    EXPECT_TRUE(button.hasFocus());
    box.Enabled(false);
    button.press(back);
    EXPECT_TRUE(tabs.hasFocus());
    EXPECT_EQ(box.Text(), "");
}

TEST_F(FocusTest, AClickedTabGetsTheFocusThenShowsItsPage) {
    box.focus();
    events.take();
    int pageWhenLost = -1;
    const auto handler = box.LostFocus.subscribe([&] { pageWhenLost = tabs.Tab(); });
    tabs.clickTab(1);
    EXPECT_THAT(events.take(), ElementsAre("Box.LostFocus", "Tabs.GotFocus", "Tabs.Click 0"));
    EXPECT_EQ(pageWhenLost, 0);
    EXPECT_TRUE(onPage1.isShowing());
    tabs.clickTab(1);
    EXPECT_THAT(events.take(), ElementsAre("Tabs.Click 1"));
    EXPECT_TRUE(isRefused([&] { tabs.clickTab(2); }));
    EXPECT_TRUE(isRefused([&] { tabs.clickTab(-1); }));
    EXPECT_EQ(tabs.Tab(), 1);
}

TEST_F(FocusTest, AProgramThatTurnsThePageTakesTheFocusFromWhatWasOnIt) {
    tabs.Tab(1);
    onPage1.focus();
    events.take();
    tabs.Tab(1);
    EXPECT_THAT(events.take(), IsEmpty());
    tabs.Tab(0);
    EXPECT_THAT(events.take(), ElementsAre("OnPage1.LostFocus", "Tabs.Click 1"));
    EXPECT_EQ(errorOf([&] { tabs.Tab(2); }), 380);
    EXPECT_EQ(tabs.Tab(), 0);
}

TEST_F(FocusTest, ArrowsTurnThePagesUpToTheEnds) {
    tabs.press(Key::of(Key::Kind::Left));
    EXPECT_EQ(tabs.Tab(), 0);
    tabs.press(Key::of(Key::Kind::Right));
    tabs.press(Key::of(Key::Kind::Right));
    EXPECT_EQ(tabs.Tab(), 1);
    EXPECT_THAT(events.take(), ElementsAre("Tabs.GotFocus", "Tabs.Click 0"));
}

TEST_F(FocusTest, AKeyOutsideTheControlsReachesTheSurface) {
    std::vector<int> codes;
    const auto handler = surface.KeyPress.subscribe([&](int code) { codes.push_back(code); });
    box.focus();
    events.take();
    surface.press(Key::of(U'a'));
    surface.press(Key::of(Key::Kind::Delete));
    EXPECT_THAT(codes, ElementsAre(97, 46));
    EXPECT_THAT(events.take(), ElementsAre("Box.LostFocus"));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

}  // namespace
}  // namespace headerdtc
