#include "controls_fixture.h"

namespace headerdtc::modal_form_test {

class ModalFormTest : public ControlsTest {
  protected:
    ModalFormTest() {
        events.listenTo(surface);
        events.listenTo(dialog);
        hidden.Visible(false);
        dialog.defaultButton = &ok;
        dialog.cancelButton = &cancel;
        subscriptions += dialog.Load.subscribe([this] { events.note("Load"); });
        subscriptions += dialog.Paint.subscribe([this] { events.note("Paint"); });
        subscriptions +=
            desktop.opened.subscribe([this](Form& form) { events.note("opened " + form.name()); });
        subscriptions +=
            desktop.closed.subscribe([this](Form& form) { events.note("closed " + form.name()); });
        subscriptions += open.Click.subscribe([this] {
            dialog.ShowModal();
            events.note("after the dialog");
        });
        subscriptions += ok.Click.subscribe([this] { dialog.Hide(); });
        subscriptions += cancel.Click.subscribe([this] { dialog.Hide(); });
    }
    // What the person before the next dialog does.
    void then(std::function<void(Form&)> script) { loop.scripts.push_back(std::move(script)); }

    Button open{surface, "Open", "Open..."};
    Form dialog{desktop, "Dialog", Form::Kind::Dialog, "Question"};
    TextBox hidden{dialog, "Hidden"};
    TextBox name{dialog, "Name"};
    Grid grid{dialog, "Cells", 2};
    Button ok{dialog, "OK", "OK"};
    Button cancel{dialog, "Cancel", "Cancel"};
    Subscriptions subscriptions;
};

TEST_F(ModalFormTest, OpeningPaintsFocusesTheFirstUsableControlAndWaits) {
    then([this](Form&) { ok.press(); });
    open.press();
    EXPECT_EQ(events.take(),
              "Open.GotFocus, Open.Click, Load, opened Dialog, Paint, Name.GotFocus, "
              "Name.LostFocus, OK.GotFocus, OK.Click, closed Dialog, after the dialog");
    open.press();
    EXPECT_EQ(events.take(),
              "Open.Click, opened Dialog, Paint, Name.GotFocus, closed Dialog, after the dialog")
        << "loaded once, painted again";
    subscriptions += dialog.Paint.subscribe([this] { dialog.Hide(); });
    loop.formsShown.clear();
    open.press();
    EXPECT_THAT(loop.formsShown, IsEmpty()) << "hidden before it waits";
    EXPECT_THAT(events.take(), EndsWith("after the dialog"));
}

TEST_F(ModalFormTest, OnlyTheTopDialogCanBeReachedAndNoneIsOpenedTwice) {
    Form second(desktop, "Second", Form::Kind::Dialog);
    Button more(second, "More", "More");
    bool checked = false;
    then([&](Form&) {
        EXPECT_TRUE(isRefused([&] { open.press(); }));
        EXPECT_TRUE(isRefused([&] { press(surface, U'x'); }));
        EXPECT_TRUE(isRefused([&] { more.press(); })) << "not open yet";
        EXPECT_EQ(numberOf([&] { dialog.ShowModal(); }), 5);
        then([&](Form&) {
            EXPECT_TRUE(isRefused([&] { name.type("x"); }));
            more.press();
            checked = true;
        });
        second.ShowModal();
        name.type("reachable again");
    });
    open.press();
    EXPECT_TRUE(checked);
    EXPECT_EQ(name.Text(), "reachable again");
    EXPECT_THAT(desktop.modalForms(), IsEmpty());
    EXPECT_TRUE(isRefused([&] { ok.press(); }));
    EXPECT_EQ(numberOf([&] { surface.ShowModal(); }), 5);
    EXPECT_EQ(desktop.modalCount(), 2);
}

TEST_F(ModalFormTest, AFailureInsideReachesWhoeverOpenedTheDialog) {
    subscriptions += name.Change.subscribe([] { throw RuntimeError(ErrorNumber::DiskFull); });
    then([this](Form&) { name.type("x"); });
    EXPECT_EQ(numberOf([&] { open.press(); }), 61);
    EXPECT_FALSE(dialog.Visible());
    EXPECT_THAT(desktop.modalForms(), IsEmpty());
    EXPECT_THAT(events.take(), EndsWith("closed Dialog"));
    open.focus();
    EXPECT_TRUE(open.hasFocus());
}

TEST_F(ModalFormTest, EnterAndEscapePressTheDialogsButtons) {
    then([this](Form&) { press(name, Enter); });
    EXPECT_THAT(eventsOf([&] { open.press(); }),
                HasSubstr("Name.LostFocus, OK.GotFocus, OK.Click"));
    then([](Form& form) { form.dismiss(); });
    EXPECT_THAT(eventsOf([&] { open.press(); }), HasSubstr("Cancel.Click"));
    then([this](Form& form) {
        press(grid, Enter);
        EXPECT_TRUE(form.Visible()) << "a grid keeps Enter for its cells";
        ok.Enabled(false);
        press(name, Enter);
        EXPECT_TRUE(form.Visible());
        press(form, Escape);
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_THAT(eventsOf([&] { open.press(); }), HasSubstr("Cancel.Click"));
    EXPECT_EQ(eventsOf([&] { press(open, Escape); }), "");
}

TEST_F(ModalFormTest, AControlThatGoesLeavesItsForm) {
    { const Button passing(dialog, "Passing", ""); }
    EXPECT_EQ(dialog.find("Passing"), nullptr);
}

}  // namespace headerdtc::modal_form_test
