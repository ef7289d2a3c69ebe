#include "qt/surface/button_view.h"

#include "qt/surface/mnemonics.h"
#include "qt/surface/text.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>

namespace headerdtc::qt {

AbstractButtonView::AbstractButtonView(Control& control, QAbstractButton& widget, FormFace face)
    : ControlView(control, widget, face), button_(widget) {
    connect(&button_, &QAbstractButton::clicked, this, [this] { clicked(); });
    subscriptions_ += control.appearanceChanged.subscribe([this] { showCaption(); });
}

void AbstractButtonView::useMnemonic(QChar letter) {
    mnemonic_ = letter;
    showCaption();
}

void AbstractButtonView::showCaption() {
    const QString text = withMnemonic(caption(), mnemonic_);
    if (button_.text() == text) return;
    button_.setText(text);
    describe();
}

void AbstractButtonView::clicked() {
    act([this] { click(); });
    show();
}

// The press that moves the focus here may have opened a message box, from the lost-focus of the
// control left behind, and the button was let go of while that box was open. The click goes on.
bool AbstractButtonView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &button_ && event->type() == QEvent::MouseButtonPress) {
        const auto& press = static_cast<QMouseEvent&>(*event);
        const bool released = !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
        if (press.button() == Qt::LeftButton && press.spontaneous() && released) {
            if (button_.isEnabled()) clicked();
            return true;
        }
    }
    return ControlView::eventFilter(watched, event);
}

bool AbstractButtonView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || !isArrowKey(*key)) return ControlView::keyPressed(event);
    act([&] { control().press(*key); });
    return true;
}

ButtonView::ButtonView(Button& model, QPushButton& widget, FormFace face)
    : AbstractButtonView(model, widget, face), model_(model) {
    // Enter presses the button that the model says.
    widget.setAutoDefault(false);
}

QString ButtonView::caption() const {
    return toQt(model_.Caption());
}

CheckBoxView::CheckBoxView(CheckBox& model, QCheckBox& widget, FormFace face)
    : AbstractButtonView(model, widget, face), model_(model), checkBox_(widget) {
    subscriptions_ += model_.valueChanged.subscribe([this] { show(); });
}

QString CheckBoxView::caption() const {
    return toQt(model_.Caption());
}

void CheckBoxView::show() {
    showCaption();
    constexpr Qt::CheckState States[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    checkBox_.setCheckState(States[static_cast<int>(model_.Value())]);
}

OptionButtonView::OptionButtonView(OptionButton& model, QRadioButton& widget, FormFace face)
    : AbstractButtonView(model, widget, face), model_(model), radio_(widget) {
    // Which options exclude each other is the model's knowledge: for Qt each is alone in a group
    // that excludes nothing. Without a group it would have to be no option to be so, and be read
    // aloud as a check box.
    auto* alone = new QButtonGroup(&radio_);
    alone->setExclusive(false);
    alone->addButton(&radio_);
    subscriptions_ += model_.valueChanged.subscribe([this] { show(); });
}

QString OptionButtonView::caption() const {
    return toQt(model_.Caption());
}

void OptionButtonView::show() {
    showCaption();
    radio_.setChecked(model_.Value());
}

}  // namespace headerdtc::qt
