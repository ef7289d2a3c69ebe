#pragma once

#include "controls/control.h"

#include <vector>

namespace headerdtc {

// A tab strip. Pages are numbered from 0.
class TabStrip : public Control {
  public:
    TabStrip(Form& form, std::string name, std::vector<std::string> captions);
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    const std::vector<std::string>& captions() const { return captions_; }

    // The page that is shown. Assigning another one raises Click with the page that was left;
    // raises 380 for a page that is not there.
    int Tab() const { return tab_; }
    void Tab(int page);

    // What a person does. Clicking the tab that is shown raises Click too, with its own index.
    void clickTab(int page);
    void press(const Key& key) override;

    // Argument: index of the page that was left.
    Event<int> Click;
    // For views: another page is shown.
    Event<> tabChanged;

  private:
    void show(int page);

    std::vector<std::string> captions_;
    int tab_ = 0;
};

}  // namespace headerdtc
