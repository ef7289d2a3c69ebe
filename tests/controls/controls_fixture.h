#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"
#include "platform/runtime_error.h"
#include "support/fake_surroundings.h"

#include <gmock/gmock.h>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

// Writes down what the controls of a form raise, as "name.Event", in the order of the events.
class EventRecorder : public ControlVisitor {
  public:
    void listenTo(Form& form) {
        for (Control* control : form.controls())
            control->accept(*this);
    }
    std::vector<std::string> take() { return std::exchange(events_, {}); }
    void note(std::string event) { events_.push_back(std::move(event)); }

    void visit(Button& control) override { focus(control), on(control, control.Click, "Click"); }
    void visit(CheckBox& control) override { focus(control), on(control, control.Click, "Click"); }
    void visit(OptionButton& control) override {
        focus(control), on(control, control.Click, "Click");
    }
    void visit(Label&) override {}
    void visit(ComboBox& control) override {
        focus(control);
        on(control, control.Click, "Click");
        on(control, control.Change, "Change");
        on(control, control.KeyPress, "KeyPress");
    }
    void visit(ListBox& control) override {
        focus(control);
        on(control, control.Click, "Click");
        on(control, control.DblClick, "DblClick");
    }
    void visit(TextBox& control) override {
        focus(control);
        on(control, control.Change, "Change");
        on(control, control.KeyDown, "KeyDown");
        on(control, control.KeyPress, "KeyPress");
    }
    void visit(TabStrip& control) override { focus(control), on(control, control.Click, "Click"); }
    void visit(Grid& control) override {
        focus(control);
        on(control, control.EnterCell, "EnterCell");
        on(control, control.RowColChange, "RowColChange");
        on(control, control.Click, "Click");
        on(control, control.DblClick, "DblClick");
        on(control, control.KeyPress, "KeyPress");
        on(control, control.Scroll, "Scroll");
    }

  private:
    void focus(Control& control) {
        on(control, control.GotFocus, "GotFocus");
        on(control, control.LostFocus, "LostFocus");
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

// The number of the run-time failure that an action raises, 0 for none.
template <class Action>
int errorOf(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

template <class List>
void fill(List& list, std::initializer_list<const char*> items) {
    for (const char* item : items)
        list.AddItem(item);
}

template <class List>
std::vector<std::string> itemsOf(const List& list) {
    std::vector<std::string> items;
    for (int i = 0; i < list.ListCount(); ++i)
        items.push_back(list.List(i));
    return items;
}

inline std::vector<int> selectionOf(const ListBox& list) {
    std::vector<int> selected;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) selected.push_back(i);
    }
    return selected;
}

// A surface; the test adds the controls, then records their events.
struct ControlsTest : ::testing::Test {
    testing::ScriptedModalLoop loop;
    Desktop desktop{loop};
    Form surface{desktop, "UserControl", Form::Kind::Surface};
    EventRecorder events;

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
