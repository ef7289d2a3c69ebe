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
#include <vector>

namespace headerdtc::testing {

// Notes every event that the controls of a form raise, as "ZEKOCriteriaGrid.EnterCell", in order.
class EventRecorder : private ControlVisitor {
  public:
    explicit EventRecorder(Form& form) {
        for (Control* control : form.controls()) {
            record(control->name(), "GotFocus", control->GotFocus);
            record(control->name(), "LostFocus", control->LostFocus);
            control->accept(*this);
        }
        record(form.name(), "KeyPress", form.KeyPress);
    }

    // What was noted since the last call.
    std::vector<std::string> take() { return std::exchange(events_, {}); }

  private:
    void visit(Button& c) override { record(c.name(), "Click", c.Click); }
    void visit(CheckBox& c) override { record(c.name(), "Click", c.Click); }
    void visit(ComboBox& c) override {
        record(c.name(), "Click", c.Click);
        record(c.name(), "Change", c.Change);
        record(c.name(), "KeyPress", c.KeyPress);
    }
    void visit(Grid& c) override {
        record(c.name(), "EnterCell", c.EnterCell);
        record(c.name(), "RowColChange", c.RowColChange);
        record(c.name(), "Click", c.Click);
        record(c.name(), "DblClick", c.DblClick);
        record(c.name(), "KeyPress", c.KeyPress);
        record(c.name(), "Scroll", c.Scroll);
    }
    void visit(Label&) override {}
    void visit(ListBox& c) override {
        record(c.name(), "Click", c.Click);
        record(c.name(), "DblClick", c.DblClick);
    }
    void visit(OptionButton& c) override { record(c.name(), "Click", c.Click); }
    void visit(TabStrip& c) override { record(c.name(), "Click", c.Click); }
    void visit(TextBox& c) override {
        record(c.name(), "Change", c.Change);
        record(c.name(), "KeyDown", c.KeyDown);
        record(c.name(), "KeyPress", c.KeyPress);
    }

    template <class... Args>
    void record(const std::string& control, const char* name, Event<Args...>& event) {
        subscriptions_ += event.subscribe(
            [this, text = control + "." + name](Args...) { events_.push_back(text); });
    }

    std::vector<std::string> events_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::testing
