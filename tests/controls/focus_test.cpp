#include "controls_fixture.h"

namespace headerdtc::focus_test {

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

TEST_F(FocusTest, AMoveRaisesLostFocusThenGotFocusAndNobodyHasItInBetween) {
    box.focus();
    const Control* during = &box;
    const auto handler = box.LostFocus.subscribe([&] { during = surface.ActiveControl(); });
    button.SetFocus();
    EXPECT_EQ(during, nullptr);
    EXPECT_EQ(events.take(), "Box.GotFocus, Box.LostFocus, Button.GotFocus");
    button.SetFocus();
    button.press();
    EXPECT_EQ(events.take(), "Button.Click");
    EXPECT_EQ(surface.ActiveControl(), &button);
}

TEST_F(FocusTest, AControlThatBecomesUnusableLosesTheFocus) {
    box.focus();
    EXPECT_EQ(eventsOf([&] { box.Visible(false); }), "Box.LostFocus");
    EXPECT_FALSE(box.hasFocus());
    box.Visible(true);
    box.focus();
    EXPECT_EQ(eventsOf([&] { box.Enabled(false); }), "Box.LostFocus");
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(FocusTest, NeitherProgramNorPersonReachesWhatIsHiddenDisabledOrOnAnotherTab) {
    box.focus();
    events.take();
    button.Enabled(false);
    for (Control* control : std::initializer_list<Control*>{&button, &onPage1, &label}) {
        EXPECT_EQ(numberOf([&] { control->SetFocus(); }), 5) << control->name();
        EXPECT_TRUE(isRefused([&] { control->focus(); })) << control->name();
        EXPECT_TRUE(isRefused([&] { control->press(Key::of(Down)); })) << control->name();
    }
    button.Enabled(true);
    button.Visible(false);
    EXPECT_TRUE(isRefused([&] { button.press(); }));
    EXPECT_TRUE(box.hasFocus());
    EXPECT_THAT([&] { onPage1.focus(); },
                ThrowsMessage<ActionRefused>("'OnPage1' cannot be used: it is on another tab"));
}

TEST_F(FocusTest, FinishingLeavesABoxAndComesBackWhereItIsStillThere) {
    box.focus();
    EXPECT_EQ(eventsOf([&] { surface.finishEditing(); }),
              "Box.LostFocus, Tabs.GotFocus, Tabs.LostFocus, Box.GotFocus");
    const auto closes = box.LostFocus.subscribe([&] { box.Visible(false); });
    surface.finishEditing();
    EXPECT_EQ(surface.ActiveControl(), &tabs);
    button.focus();
    events.take();
    EXPECT_EQ(eventsOf([&] { surface.finishEditing(); }), "");
}

TEST_F(FocusTest, ALostFocusHandlerMaySendItElsewhereOrDisableTheTarget) {
    box.focus();
    auto handler = box.LostFocus.subscribe([&] { tabs.SetFocus(); });
    EXPECT_EQ(eventsOf([&] { button.focus(); }), "Box.LostFocus, Tabs.GotFocus");
    EXPECT_TRUE(tabs.hasFocus());
    box.focus();
    events.take();
    handler = box.LostFocus.subscribe([&] { button.Enabled(false); });
    EXPECT_EQ(eventsOf([&] { EXPECT_THROW(button.press(), ActionRefused); }), "Box.LostFocus");
    EXPECT_EQ(surface.ActiveControl(), nullptr);
}

TEST_F(FocusTest, AFailingHandlerLeavesTheFocusNowhereAndTheViewsKnow) {
    box.focus();
    int told = 0;
    const auto view = surface.focusChanged.subscribe([&] { ++told; });
    const auto handler =
        box.LostFocus.subscribe([] { throw RuntimeError(ErrorNumber::DeviceIoError); });
    EXPECT_EQ(numberOf([&] { button.focus(); }), 57);
    EXPECT_EQ(surface.ActiveControl(), nullptr);
    EXPECT_EQ(told, 1);
}

// ---- Tab key and tab strip ----------------------------------------------------------------------

TEST_F(FocusTest, TabGoesRoundTheUsableControlsInTheirOrder) {
    Key back = Key::of(Tab);
    back.shift = true;
    press(tabs, Tab);
    EXPECT_TRUE(box.hasFocus());
    press(box, Tab);
    EXPECT_TRUE(button.hasFocus()) << "past the label";
    press(button, Tab);
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
    int pageWhenLost = -1;
    const auto handler = box.LostFocus.subscribe([&] { pageWhenLost = tabs.Tab(); });
    EXPECT_EQ(eventsOf([&] { tabs.clickTab(1); }), "Box.LostFocus, Tabs.GotFocus, Tabs.Click 0");
    EXPECT_EQ(pageWhenLost, 0);
    EXPECT_TRUE(onPage1.isShowing());
    button.onTabPage(0);
    EXPECT_FALSE(button.isShowing());
    EXPECT_EQ(eventsOf([&] { tabs.clickTab(1); }), "Tabs.Click 1");
    EXPECT_TRUE(isRefused([&] { tabs.clickTab(2); }));
    EXPECT_TRUE(isRefused([&] { tabs.clickTab(-1); }));
    EXPECT_EQ(tabs.Tab(), 1);
}

TEST_F(FocusTest, AProgramThatTurnsThePageTakesTheFocusFromWhatWasOnIt) {
    tabs.Tab(1);
    onPage1.focus();
    EXPECT_EQ(eventsOf([&] { tabs.Tab(1); }), "");
    EXPECT_EQ(eventsOf([&] { tabs.Tab(0); }), "OnPage1.LostFocus, Tabs.Click 1");
    EXPECT_EQ(numberOf([&] { tabs.Tab(2); }), 380);
    EXPECT_EQ(tabs.Tab(), 0);
}

TEST_F(FocusTest, ArrowsTurnThePagesUpToTheEnds) {
    press(tabs, Left);
    EXPECT_EQ(tabs.Tab(), 0);
    press(tabs, Right, Right);
    EXPECT_EQ(tabs.Tab(), 1);
    EXPECT_EQ(events.take(), "Tabs.GotFocus, Tabs.Click 0");
}

TEST_F(FocusTest, AKeyOutsideTheControlsReachesTheSurface) {
    box.focus();
    EXPECT_EQ(eventsOf([&] { press(surface, U'a', Delete); }),
              "Box.LostFocus, UserControl.KeyPress 97, UserControl.KeyPress 46");
}

}  // namespace headerdtc::focus_test
