#include "controls/tab_strip.h"

#include "controls/form.h"
#include "controls/person_action.h"
#include "platform/runtime_error.h"

namespace headerdtc {

TabStrip::TabStrip(Form& form, std::string name, std::vector<std::string> captions)
    : Control(form, std::move(name)), captions_(std::move(captions)) {
    form.useTabStrip(*this);
}

void TabStrip::Tab(int page) {
    if (page < 0 || page >= static_cast<int>(captions_.size()))
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    if (page != tab_) show(page);
}

void TabStrip::clickTab(int page) {
    perform({.kind = PersonAction::Kind::ClickTab, .control = this, .index = page}, [&] {
        requireReachable();
        if (page < 0 || page >= static_cast<int>(captions_.size()))
            refuse("it has no tab " + std::to_string(page));
        takeFocus();
        show(page);
    });
}

void TabStrip::press(const Key& key) {
    perform({.kind = PersonAction::Kind::Key, .control = this, .key = key}, [&] {
        takeFocus();
        if (pressTab(key)) return;
        const int count = static_cast<int>(captions_.size());
        if (key.kind == Key::Kind::Left && tab_ > 0) show(tab_ - 1);
        if (key.kind == Key::Kind::Right && tab_ < count - 1) show(tab_ + 1);
    });
}

void TabStrip::show(int page) {
    const int left = tab_;
    tab_ = page;
    if (left != page) {
        tabChanged.raise();
        form().tabPageChanged();
    }
    Click.raise(left);
}

}  // namespace headerdtc
