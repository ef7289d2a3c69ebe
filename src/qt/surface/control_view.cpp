#include "qt/surface/control_view.h"

#include "controls/control.h"
#include "qt/surface/action_runner.h"
#include "qt/surface/focus_keeper.h"
#include "qt/surface/key_translation.h"
#include "qt/surface/spoken_names.h"
#include "qt/surface/text.h"

#include <QKeyEvent>
#include <QWidget>

namespace headerdtc::qt {
namespace {

QString withoutColon(QString label) {
    if (label.endsWith(':')) label.chop(1);
    return label;
}

}  // namespace

ControlView::ControlView(Control& control, QWidget& widget, FormFace face)
    : face_(face), control_(control), widget_(widget) {
    face_.focus.add(control, widget);
    widget_.setToolTip(toQt(control_.toolTip()));
    widget_.installEventFilter(this);
    subscriptions_ += control_.appearanceChanged.subscribe([this] { showAppearance(); });
}

void ControlView::begin() {
    showAppearance();
    describe();
    show();
}

void ControlView::act(const std::function<void()>& action) {
    face_.actions.run(action);
}

void ControlView::showAppearance() {
    const bool usable = control_.Enabled() && control_.Visible();
    if (!usable) face_.focus.park(widget_);
    showEnabled(control_.Enabled());
    widget_.setVisible(control_.Visible());
}

void ControlView::showEnabled(bool enabled) {
    widget_.setEnabled(enabled);
}

void ControlView::describe(const QString& count) {
    QString name = spokenName(control_.name());
    if (name.isEmpty()) name = caption();
    if (name.isEmpty()) name = withoutColon(toQt(control_.label()));
    const QString toolTip = toQt(control_.toolTip());
    // Qt has a combo box called by its text.
    widget_.setAccessibleDescription(toolTip.isEmpty() ? name : toolTip);
    widget_.setAccessibleName(count.isEmpty() ? name : name + QStringLiteral(", ") + count);
}

// A key that an in-place editor has no use for comes by the grid that it lies in.
bool ControlView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &widget_ && event->type() == QEvent::KeyPress && widget_.hasFocus())
        return keyPressed(static_cast<QKeyEvent&>(*event));
    return QObject::eventFilter(watched, event);
}

bool ControlView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || !isDialogKey(*key)) return false;
    act([&] { control_.press(*key); });
    return true;
}

}  // namespace headerdtc::qt
