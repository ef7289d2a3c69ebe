#pragma once

#include "controls/event.h"
#include "controls/keys.h"

#include <QChar>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <optional>

class QKeyEvent;
class QWidget;

namespace headerdtc {
class Control;
}  // namespace headerdtc

namespace headerdtc::qt {

class ActionRunner;
class FocusKeeper;

// What the views of one form share.
struct FormFace {
    ActionRunner& actions;
    FocusKeeper& focus;
};

// A widget as the view of a control model: enabled, visible, tool tip and names follow the model
// here; each kind of control adds what it shows and turns what a person does into the model's
// operations. Views keep no state of their own.
class ControlView : public QObject {
  public:
    ControlView(Control& control, QWidget& widget, FormFace face);

    // Shows the whole model; called once, after construction.
    void begin();

    Control& control() const { return control_; }
    QWidget& widget() const { return widget_; }

    // The text that the widget itself shows and that may carry a mnemonic; empty for none.
    virtual QString caption() const { return {}; }
    // The letter of the caption that Alt presses the control with.
    virtual void useMnemonic(QChar) {}
    // Marks a control that is another than in the page's file, to the eye and in words.
    void markChanged(bool changed);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    // What the widget shows of the model besides what all controls have.
    virtual void show() = 0;
    virtual void showEnabled(bool enabled);
    void act(const std::function<void()>& action);
    // A key pressed with the widget's focus; tells whether the widget is to be kept from it. Here:
    // Enter and Escape, which are the model's.
    virtual bool keyPressed(const QKeyEvent& event);
    // Puts the words by which assistive technology knows the control, and how much is in it.
    void describe(const QString& count = {});

    FormFace face_;
    Subscriptions subscriptions_;

  private:
    void showAppearance();
    QString spokenWords() const;
    void explain();

    Control& control_;
    QWidget& widget_;
    QPointer<QWidget> changeBar_;  // goes with the widgets of the form
};

// The key as the models know it; nothing for keys that they do not know (Home, function keys) and
// for those held with Ctrl, Alt or Meta, which are commands to the window.
std::optional<Key> keyOf(const QKeyEvent& event);

// Enter and Escape, which dialogs have buttons for.
bool isDialogKey(const Key& key);
bool isArrowKey(const Key& key);

// Frames a list or grid in the highlight colour while it has the focus. Some styles show the focus
// by the current item alone, which an empty list does not have and a grid shows always.
void outlineFocus(QWidget& widget);

}  // namespace headerdtc::qt
