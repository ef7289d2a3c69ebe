#include "qt/surface_fixture.h"

namespace headerdtc::focus_test {

class FocusTest : public SurfaceTest {
  protected:
    // A box in the middle of an event, as a message would open it. The person lets go of the mouse
    // to close it.
    void showBoxOn(Event<>& event) {
        subscriptions += event.subscribe([this] {
            QDialog box(&surface);
            QTimer::singleShot(30, &box, [&box] {
                QTest::mouseRelease(windowOf(box), Qt::LeftButton);
                box.accept();
            });
            box.exec();
        });
    }

    // Until the button has been clicked so often: a click may come a moment later.
    bool isSaved(int times) {
        return QTest::qWaitFor([&] { return saves >= times; }, Patience);
    }

    int saves = 0;
    Subscription saving = dtc.SaveCommand.Click.subscribe([this] { ++saves; });
    Subscriptions subscriptions;
};

TEST_F(FocusTest, AnotherWindowTakesNoFocusFromTheModels) {
    click(widget(dtc.XSLFilenameText));
    events.take();
    QDialog other;
    QLineEdit box(&other);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other, Patience));
    EXPECT_FALSE(surface.isActiveWindow());
    EXPECT_EQ(focused(), "XSLFilenameText");
    // Nor does a model's focus take the window's.
    dtc.IncludeASPText.SetFocus();
    EXPECT_TRUE(box.hasFocus());
    other.close();
    surface.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&surface, Patience));
    EXPECT_EQ(qtFocused(), "IncludeASPText");
    EXPECT_EQ(events.take(), "XSLFilenameText.LostFocus, IncludeASPText.GotFocus");
}

TEST_F(FocusTest, AControlThatIsDisabledUnderTheFocusHandsItToNobody) {
    openTab(1);
    click(widget(dtc.EAI.AddField));
    events.take();
    dtc.EAI.AddField.Enabled(false);
    settle();
    EXPECT_EQ(events.take(), "EAIAddField.LostFocus");
    EXPECT_EQ(qtFocused(), "UserControl");
    // A key then reaches the surface itself, and Tab goes on from where the focus was.
    press(Qt::Key_X);
    EXPECT_EQ(events.take(), "UserControl.KeyPress 120");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "EAISelectedFieldsList") << "behind a button that is disabled";
}

TEST_F(FocusTest, TabsTurnByKeysByAssistiveTechnologyAndByTheProgram) {
    auto& tabs = widget<QTabWidget>(dtc.SSTab1);
    click(*tabs.tabBar(), tabs.tabBar()->tabRect(2).center());
    EXPECT_EQ(dtc.SSTab1.Tab(), 2);
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> keys[] = {
        {Qt::Key_Right, Qt::NoModifier, 3},
        {Qt::Key_Tab, Qt::ControlModifier, 4},
        {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 3},
        {Qt::Key_G, Qt::AltModifier, 0}};
    for (const auto& [key, held, tab] : keys) {
        press(key, held);
        EXPECT_EQ(dtc.SSTab1.Tab(), tab);
    }
    tabs.setCurrentIndex(5);
    EXPECT_EQ(dtc.SSTab1.Tab(), 5);
    EXPECT_EQ(focused(), "SSTab1");
    openTab(0);
    click(widget(dtc.XSLFilenameText));
    events.take();
    dtc.SSTab1.Tab(1);
    settle();
    EXPECT_EQ(events.take(), "XSLFilenameText.LostFocus, SSTab1.Click 0");
    EXPECT_EQ(tabs.currentIndex(), 1);
    // Nor does Qt turn the page once more, after a handler that leads elsewhere.
    subscriptions += dtc.SSTab1.Click.subscribe([this](int) {
        if (dtc.SSTab1.Tab() == 0) dtc.SSTab1.Tab(4);
    });
    click(*tabs.tabBar(), tabs.tabBar()->tabRect(0).center());
    EXPECT_EQ(tabs.currentIndex(), 4);
    EXPECT_EQ(events.take(), "SSTab1.GotFocus, SSTab1.Click 1, SSTab1.Click 0");
}

TEST_F(FocusTest, AClickGoesOnAfterAMessageOfTheControlLeftBehind) {
    click(widget(dtc.XSLFilenameText));
    events.take();
    showBoxOn(dtc.XSLFilenameText.LostFocus);
    click(widget(dtc.SaveCommand));
    EXPECT_TRUE(isSaved(1));
    EXPECT_EQ(events.take(), "XSLFilenameText.LostFocus, SaveCommand.GotFocus, SaveCommand.Click");
}

TEST_F(FocusTest, ButtonsAreClickedByMouseSpaceEnterAndMnemonic) {
    click(widget(dtc.SaveCommand));
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(isSaved(4));

    auto& check = widget<QCheckBox>(dtc.EnableExtraFiltersCheck);
    click(check, {8, check.height() / 2});
    EXPECT_EQ(dtc.EnableExtraFiltersCheck.Value(), CheckState::Checked);
    dtc.EnableExtraFiltersCheck.Value(CheckState::Greyed);
    EXPECT_EQ(check.checkState(), Qt::PartiallyChecked);
    press(Qt::Key_Space);
    EXPECT_EQ(dtc.EnableExtraFiltersCheck.Value(), CheckState::Unchecked);
    EXPECT_EQ(check.checkState(), Qt::Unchecked);
}

TEST_F(FocusTest, FailuresThatNoHandlerTrapsAreShownAndTheWorkGoesOn) {
    subscriptions +=
        dtc.SaveCommand.Click.subscribe([] { throw RuntimeError(ErrorNumber::Overflow); });
    click(widget(dtc.SaveCommand));
    EXPECT_THAT(outside.messages.errors, ElementsAre("Run-time error '6': Overflow"));
    click(widget(dtc.XSLFilenameText));
    EXPECT_EQ(focused(), "XSLFilenameText");
}

}  // namespace headerdtc::focus_test
