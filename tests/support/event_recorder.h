#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"

#include <string>
#include <utility>

namespace headerdtc::testing {

// Notes every event that the controls of forms raise, in order, as "ZEKOCriteriaGrid.EnterCell".
// Numbers that an event carries follow its name: "Box.KeyPress 13".
class EventRecorder : private ControlVisitor {
  public:
    EventRecorder() = default;
    explicit EventRecorder(Form& form) { listenTo(form); }

    void listenTo(Form& form) {
        for (Control* control : form.controls()) {
            record(*control, "GotFocus", control->GotFocus, "LostFocus", control->LostFocus);
            control->accept(*this);
        }
        record(form, "KeyPress", form.KeyPress);
    }
    void note(const std::string& event) { events_ += (events_.empty() ? "" : ", ") + event; }
    // What was noted since the last call, one after the other with ", " between.
    std::string take() { return std::exchange(events_, {}); }

  private:
    void visit(Button& c) override { record(c, "Click", c.Click); }
    void visit(CheckBox& c) override { record(c, "Click", c.Click); }
    void visit(ComboBox& c) override {
        record(c, "Click", c.Click, "Change", c.Change, "KeyPress", c.KeyPress);
    }
    void visit(Grid& c) override {
        record(c, "EnterCell", c.EnterCell, "RowColChange", c.RowColChange, "Click", c.Click);
        record(c, "DblClick", c.DblClick, "KeyPress", c.KeyPress, "Scroll", c.Scroll);
    }
    void visit(Label&) override {}
    void visit(ListBox& c) override { record(c, "Click", c.Click, "DblClick", c.DblClick); }
    void visit(OptionButton& c) override { record(c, "Click", c.Click); }
    void visit(TabStrip& c) override { record(c, "Click", c.Click); }
    void visit(TextBox& c) override {
        record(c, "Change", c.Change, "KeyDown", c.KeyDown, "KeyPress", c.KeyPress);
    }

    template <class Named, class... Args, class... Others>
    void record(const Named& named, const char* name, Event<Args...>& event, Others&... others) {
        subscriptions_ += event.subscribe([this, text = named.name() + "." + name](Args... args) {
            std::string entry = text;
            ((entry += " " + std::to_string(args)), ...);
            note(entry);
        });
        if constexpr (sizeof...(others) > 0) record(named, others...);
    }

    std::string events_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::testing
