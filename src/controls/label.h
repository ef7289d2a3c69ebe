#pragma once

#include "controls/control.h"

namespace headerdtc {

// A label whose caption a program sets. Takes no focus and no keys.
class Label : public Control {
  public:
    Label(Form& form, std::string name) : Control(form, std::move(name)) {}
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
    bool acceptsFocus() const override { return false; }
    void press(const Key&) override { refuse("a label takes no keys"); }

    const std::string& Caption() const { return caption_; }
    void Caption(std::string caption) {
        caption_ = std::move(caption);
        appearanceChanged.raise();
    }

  private:
    std::string caption_;
};

}  // namespace headerdtc
