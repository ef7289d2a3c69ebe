#pragma once

#include "controls/control.h"

#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

// A command button.
class Button : public Control {
  public:
    Button(Form& form, std::string name, std::string caption)
        : Control(form, std::move(name)), caption_(std::move(caption)) {}
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    const std::string& Caption() const { return caption_; }
    void Caption(std::string caption);

    // What a person does: presses the button.
    void press();
    void press(const Key& key) override;

    Event<> Click;

  private:
    std::string caption_;
};

// The value of a check box.
enum class CheckState : int { Unchecked = 0, Checked = 1, Greyed = 2 };

class CheckBox : public Control {
  public:
    CheckBox(Form& form, std::string name, std::string caption)
        : Control(form, std::move(name)), caption_(std::move(caption)) {}
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    const std::string& Caption() const { return caption_; }
    CheckState Value() const { return value_; }
    // Raises Click when the value becomes another.
    void Value(CheckState value);

    // What a person does: an unchecked box becomes checked, any other unchecked.
    void toggle();
    void press(const Key& key) override;

    Event<> Click;
    // For views.
    Event<> valueChanged;

  private:
    std::string caption_;
    CheckState value_ = CheckState::Unchecked;
};

class OptionButton;

// Option buttons of which at most one is selected. None is, until one is chosen.
class OptionGroup {
  private:
    friend class OptionButton;
    std::vector<OptionButton*> members_;
};

class OptionButton : public Control {
  public:
    OptionButton(Form& form, std::string name, std::string caption, OptionGroup& group);
    ~OptionButton() override;
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    const std::string& Caption() const { return caption_; }
    bool Value() const { return value_; }
    // Selecting deselects the others of the group and raises Click when it was not selected;
    // deselecting raises nothing.
    void Value(bool value);

    // What a person does: selects the option.
    void pick();
    void press(const Key& key) override;

    Event<> Click;
    // For views.
    Event<> valueChanged;

  private:
    void pickBeside(bool forth);

    std::string caption_;
    OptionGroup& group_;
    bool value_ = false;
};

}  // namespace headerdtc
