#include "controls/button.h"

#include "controls/form.h"
#include "controls/person_action.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace headerdtc {

void Button::Caption(std::string caption) {
    caption_ = std::move(caption);
    appearanceChanged.raise();
}

void Button::press() {
    perform({.kind = PersonAction::Kind::Press, .control = this}, [this] {
        takeFocus();
        Click.raise();
    });
}

void Button::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        if (key.kind == Key::Kind::Enter || key.isBlank()) {
            Click.raise();
        } else {
            form().pressDialogKey(key);
        }
    });
}

void CheckBox::Value(CheckState value) {
    if (value_ == value) return;
    value_ = value;
    valueChanged.raise();
    Click.raise();
}

void CheckBox::toggle() {
    perform({.kind = PersonAction::Kind::Press, .control = this}, [this] {
        takeFocus();
        Value(value_ == CheckState::Unchecked ? CheckState::Checked : CheckState::Unchecked);
    });
}

void CheckBox::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        if (key.isBlank()) {
            toggle();
        } else {
            form().pressDialogKey(key);
        }
    });
}

OptionButton::OptionButton(Form& form, std::string name, std::string caption, OptionGroup& group)
    : Control(form, std::move(name)), caption_(std::move(caption)), group_(group) {
    group_.members_.push_back(this);
}

OptionButton::~OptionButton() {
    std::erase(group_.members_, this);
}

void OptionButton::Value(bool value) {
    if (value_ == value) return;
    value_ = value;
    if (value) {
        for (OptionButton* other : group_.members_) {
            if (other != this) other->Value(false);
        }
    }
    valueChanged.raise();
    if (value) Click.raise();
}

void OptionButton::pick() {
    perform({.kind = PersonAction::Kind::Press, .control = this}, [this] {
        takeFocus();
        Value(true);
    });
}

void OptionButton::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        const bool back = key.kind == Key::Kind::Up || key.kind == Key::Kind::Left;
        const bool forth = key.kind == Key::Kind::Down || key.kind == Key::Kind::Right;
        if (back || forth) {
            pickBeside(forth);
        } else if (key.isBlank()) {
            Value(true);
        } else {
            form().pressDialogKey(key);
        }
    });
}

// The next usable option of the group, from the last one on to the first.
void OptionButton::pickBeside(bool forth) {
    const auto& members = group_.members_;
    const auto count = members.size();
    auto at =
        static_cast<std::size_t>(std::find(members.begin(), members.end(), this) - members.begin());
    for (std::size_t step = 1; step < count; ++step) {
        at = (at + (forth ? 1 : count - 1)) % count;
        if (members[at]->Enabled() && members[at]->isShowing()) return members[at]->pick();
    }
}

}  // namespace headerdtc
