#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"
#include "support/control_tools.h"
#include "support/fake_surroundings.h"

#include <gmock/gmock.h>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

using enum Key::Kind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Writes down what the controls of a form raise, as "name.Event", in the order of the events.
class EventRecorder : public ControlVisitor {
  public:
    void listenTo(Form& form) {
        for (Control* control : form.controls())
            control->accept(*this);
    }
    std::vector<std::string> take() { return std::exchange(events_, {}); }
    void note(std::string event) { events_.push_back(std::move(event)); }

    void visit(Button& control) override { focusAndClick(control); }
    void visit(CheckBox& control) override { focusAndClick(control); }
    void visit(OptionButton& control) override { focusAndClick(control); }
    void visit(TabStrip& control) override { focusAndClick(control); }
    void visit(Label&) override {}
    void visit(ComboBox& control) override {
        focusAndClick(control);
        on(control, control.Change, "Change");
        on(control, control.KeyPress, "KeyPress");
    }
    void visit(ListBox& control) override {
        focusAndClick(control);
        on(control, control.DblClick, "DblClick");
    }
    void visit(TextBox& control) override {
        focus(control);
        on(control, control.Change, "Change");
        on(control, control.KeyDown, "KeyDown");
        on(control, control.KeyPress, "KeyPress");
    }
    void visit(Grid& control) override {
        focusAndClick(control);
        on(control, control.EnterCell, "EnterCell");
        on(control, control.RowColChange, "RowColChange");
        on(control, control.DblClick, "DblClick");
        on(control, control.KeyPress, "KeyPress");
        on(control, control.Scroll, "Scroll");
    }

  private:
    void focus(Control& control) {
        on(control, control.GotFocus, "GotFocus");
        on(control, control.LostFocus, "LostFocus");
    }
    template <class Clickable>
    void focusAndClick(Clickable& control) {
        focus(control);
        on(control, control.Click, "Click");
    }
    // Numbers that an event carries follow its name: "Box.KeyPress 13".
    template <class... Args>
    void on(Control& control, Event<Args...>& event, const char* name) {
        subscriptions_ += event.subscribe([this, text = control.name() + "." + name](Args... args) {
            std::string entry = text;
            ((entry += " " + std::to_string(args)), ...);
            note(entry);
        });
    }

    std::vector<std::string> events_;
    Subscriptions subscriptions_;
};

// A surface; the test adds the controls, then records their events.
struct ControlsTest : ::testing::Test {
    testing::ScriptedModalLoop loop;
    Desktop desktop{loop};
    Form surface{desktop, "UserControl", Form::Kind::Surface};
    EventRecorder events;

    // What an action raises.
    template <class Action>
    std::vector<std::string> eventsOf(Action&& action) {
        events.take();
        action();
        return events.take();
    }
    // Whether the action is refused without any event.
    template <class Action>
    bool isRefused(Action&& action) {
        events.take();
        try {
            action();
        } catch (const ActionRefused&) {
            return events.take().empty();
        }
        return false;
    }
};

}  // namespace headerdtc
