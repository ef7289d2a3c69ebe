#include "controls/form.h"

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/control.h"
#include "controls/person_action.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <utility>

namespace headerdtc {

Form::Form(Desktop& desktop, std::string name, Kind kind, std::string caption)
    : desktop_(desktop),
      name_(std::move(name)),
      caption_(std::move(caption)),
      kind_(kind),
      visible_(kind == Kind::Surface) {}

Form::~Form() = default;

Control* Form::find(std::string_view name) const {
    const auto found =
        std::find_if(controls_.begin(), controls_.end(),
                     [&](const Control* control) { return control->name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::ShowModal() {
    if (visible_) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    if (!loaded_) {
        loaded_ = true;
        Load.raise();
    }
    // The stack is put right however the form is left: hidden, or by a failure of a handler.
    struct OnStack {
        Form& form;
        explicit OnStack(Form& shown) : form(shown) {
            form.visible_ = true;
            form.desktop_.modalForms_.push_back(&form);
            ++form.desktop_.modalCount_;
        }
        ~OnStack() {
            form.visible_ = false;
            form.active_ = nullptr;
            std::erase(form.desktop_.modalForms_, &form);
            form.desktop_.closed.raise(form);
        }
    } onStack(*this);
    desktop_.opened.raise(*this);
    Paint.raise();
    for (Control* control : controls_) {
        if (!canTakeFocus(*control)) continue;
        moveFocus(control);
        break;
    }
    if (visible_) desktop_.loop_.run(*this);
}

void Form::Hide() {
    visible_ = false;
}

void Form::press(const Key& key) {
    perform(*this, {.kind = PersonAction::Kind::Key, .key = key}, [&] {
        if (!isReachable()) throw ActionRefused("'" + name_ + "' is behind a modal dialog");
        moveFocus(nullptr);
        if (pressDialogKey(key)) return;
        const int code = key.pressCode();
        KeyPress.raise(code != 0 ? code : key.downCode());
    });
}

void Form::dismiss() {
    if (cancelButton) cancelButton->press();
}

// Only text boxes and combo boxes hold text that has not reached the control yet. A grid is left
// alone: getting the focus back would move its marker.
void Form::finishEditing() {
    Control* const box = active_;
    if (!tabStrip_ || !(dynamic_cast<TextBox*>(box) || dynamic_cast<ComboBox*>(box))) return;
    tabStrip_->focus();
    if (tabStrip_->hasFocus() && canTakeFocus(*box)) box->focus();
}

bool Form::isReachable() const {
    if (!visible_) return false;
    const auto& modal = desktop_.modalForms_;
    return modal.empty() ? kind_ == Kind::Surface : modal.back() == this;
}

void Form::add(Control& control) {
    controls_.push_back(&control);
}

void Form::remove(Control& control) {
    std::erase(controls_, &control);
    if (active_ == &control) active_ = nullptr;
}

bool Form::showsTabPage(int page) const {
    return page < 0 || (tabStrip_ != nullptr && tabStrip_->Tab() == page);
}

void Form::moveFocus(Control* control, bool again) {
    if (active_ == control) {
        if (again && control) control->GotFocus.raise();
        return;
    }
    // While the focus moves no control has it. A lost-focus handler may send it to another control,
    // and then it stays there.
    if (Control* left = std::exchange(active_, nullptr)) {
        try {
            left->LostFocus.raise();
        } catch (...) {
            focusChanged.raise();
            throw;
        }
        if (active_) return;
    }
    if (control && canTakeFocus(*control)) active_ = control;
    focusChanged.raise();
    if (control && active_ == control) control->GotFocus.raise();
}

void Form::focusNext(const Control& from, int direction) {
    const auto count = static_cast<int>(controls_.size());
    const auto here = std::find(controls_.begin(), controls_.end(), &from) - controls_.begin();
    for (int step = 1; step < count; ++step) {
        const int next = (static_cast<int>(here) + direction * step + count * step) % count;
        Control* control = controls_[static_cast<std::size_t>(next)];
        if (!canTakeFocus(*control)) continue;
        moveFocus(control);
        return;
    }
}

bool Form::pressDialogKey(const Key& key) {
    if (kind_ != Kind::Dialog) return false;
    Button* button = key.kind == Key::Kind::Enter    ? defaultButton
                     : key.kind == Key::Kind::Escape ? cancelButton
                                                     : nullptr;
    if (!button || !button->Enabled()) return false;
    button->press();
    return true;
}

void Form::tabPageChanged() {
    if (active_ && !active_->isShowing()) moveFocus(nullptr);
}

bool Form::canTakeFocus(const Control& control) const {
    return control.acceptsFocus() && control.Enabled() && control.isShowing();
}

}  // namespace headerdtc
