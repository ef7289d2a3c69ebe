#include "controls/control.h"

#include "controls/form.h"
#include "controls/person_action.h"
#include "platform/runtime_error.h"

#include <utility>

namespace headerdtc {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
    form_.add(*this);
}

Control::~Control() {
    form_.remove(*this);
}

Control& Control::onTabPage(int page) {
    tabPage_ = page;
    return *this;
}

Control& Control::labelled(std::string label) {
    label_ = std::move(label);
    return *this;
}

Control& Control::withToolTip(std::string toolTip) {
    toolTip_ = std::move(toolTip);
    return *this;
}

Control& Control::placed(int left, int top, int width, int height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    return *this;
}

void Control::Enabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    appearanceChanged.raise();
    releaseFocusIfUnusable();
}

void Control::Visible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    appearanceChanged.raise();
    releaseFocusIfUnusable();
}

void Control::Width(int width) {
    width_ = width;
    appearanceChanged.raise();
}

void Control::Height(int height) {
    height_ = height;
    appearanceChanged.raise();
}

void Control::Move(int left, int top) {
    left_ = left;
    top_ = top;
    appearanceChanged.raise();
}

void Control::SetFocus() {
    if (!acceptsFocus() || !enabled_ || !isShowing())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    form_.moveFocus(this);
}

bool Control::hasFocus() const {
    return form_.ActiveControl() == this;
}

bool Control::isShowing() const {
    return visible_ && form_.showsTabPage(tabPage_);
}

void Control::focus() {
    perform({.kind = PersonAction::Kind::Focus, .control = this}, [this] { takeFocus(); });
}

void Control::requireReachable() const {
    if (!form_.isReachable()) refuse("it is behind a modal dialog, or its form is not open");
    if (!form_.showsTabPage(tabPage_)) refuse("it is on another tab");
    if (!visible_) refuse("it is hidden");
    if (!enabled_) refuse("it is disabled");
}

void Control::takeFocus() {
    requireReachable();
    if (!acceptsFocus()) refuse("it takes no focus");
    form_.moveFocus(this);
    requireReachable();
}

bool Control::pressTab(const Key& key) {
    if (key.kind != Key::Kind::Tab) return false;
    form_.focusNext(*this, key.shift ? -1 : 1);
    return true;
}

void Control::refuse(const std::string& reason) const {
    throw ActionRefused("'" + name_ + "' cannot be used: " + reason);
}

void Control::releaseFocusIfUnusable() {
    if (hasFocus() && (!enabled_ || !isShowing())) form_.moveFocus(nullptr);
}

}  // namespace headerdtc
