#include "qt/surface/focus_keeper.h"

#include "controls/control.h"
#include "controls/form.h"
#include "qt/surface/action_runner.h"
#include "qt/surface/control_view.h"
#include "qt/surface/in_place_editors.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace headerdtc::qt {

FocusKeeper::FocusKeeper(Form& form, QWidget& formWidget, ActionRunner& actions)
    : form_(form), formWidget_(formWidget), actions_(actions) {
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { qtFocusMoved(now); });
    formWidget_.installEventFilter(this);
    subscriptions_ += form_.focusChanged.subscribe([this] { follow(); });
}

void FocusKeeper::add(Control& control, QWidget& widget) {
    controls_[&widget] = &control;
    widgets_[&control] = &widget;
}

void FocusKeeper::qtFocusMoved(QWidget* now) {
    if (following_ || !now || !form_.isReachable()) return;
    QWidget* widget = boundAncestor(now);
    if (!widget) return;
    Control& control = *controls_.at(widget);
    last_ = widget;
    if (control.hasFocus()) return;
    actions_.run([&] { control.focus(); });
    // A handler may have moved the focus on, or the model may have refused it.
    if (!control.hasFocus()) follow();
}

// The parts of a combo box lie inside it; what lies over a grid or list stands for it.
QWidget* FocusKeeper::boundAncestor(QWidget* widget) const {
    for (; widget && !controls_.contains(widget); widget = widget->parentWidget()) {
        if (controls_.contains(widget->focusProxy())) return widget->focusProxy();
    }
    return widget;
}

bool FocusKeeper::ownsQtFocus() const {
    const QWidget* focused = formWidget_.window()->focusWidget();
    return !focused || focused == &formWidget_ || formWidget_.isAncestorOf(focused);
}

void FocusKeeper::follow() {
    if (!ownsQtFocus() && !actions_.isRunning()) return;
    const Control* active = form_.ActiveControl();
    QWidget* widget = active ? widgets_.at(active) : &formWidget_;
    if (active) last_ = widget;
    // An editor that goes from its cell leaves the keys to its grid.
    if (!active && last_ && last_->isHidden() && InPlaceEditors::isEditor(*last_))
        widget = boundAncestor(last_->parentWidget());
    QWidget* focused = formWidget_.window()->focusWidget();
    if (focused && (focused == widget || boundAncestor(focused) == widget)) return;
    setQtFocus(*widget);
}

void FocusKeeper::park(const QWidget& widget) {
    const QWidget* focused = widget.window()->focusWidget();
    if (focused && (focused == &widget || widget.isAncestorOf(focused))) setQtFocus(formWidget_);
}

void FocusKeeper::setQtFocus(QWidget& widget) {
    const QScopedValueRollback following(following_, true);
    widget.setFocus(Qt::OtherFocusReason);
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &formWidget_ && event->type() == QEvent::KeyPress && formWidget_.hasFocus())
        return pressOnForm(static_cast<QKeyEvent&>(*event));
    return QObject::eventFilter(watched, event);
}

bool FocusKeeper::pressOnForm(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key) return false;
    if (key->kind == Key::Kind::Tab) {
        tabFrom(last_ ? *last_ : formWidget_, event.key() == Qt::Key_Tab);
    } else {
        actions_.run([&] { form_.press(*key); });
    }
    return true;
}

// When a control could not keep the focus, Tab goes on from that control instead of starting at the
// top again.
void FocusKeeper::tabFrom(QWidget& start, bool forward) {
    QWidget* next = &start;
    do {
        next = forward ? next->nextInFocusChain() : next->previousInFocusChain();
        const bool takesTab = (next->focusPolicy() & Qt::TabFocus) && next->isEnabled() &&
                              next->isVisible() && !next->focusProxy();
        if (!takesTab || next == &formWidget_) continue;
        next->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return;
    } while (next != &start);
}

}  // namespace headerdtc::qt
