#pragma once

#include "controls/event.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <unordered_map>

class QKeyEvent;

namespace headerdtc {
class Control;
class Form;
}  // namespace headerdtc

namespace headerdtc::qt {

class ActionRunner;

// Keeps the focus of a form's models and Qt's focus in step, in both directions. Only Qt's focus
// coming to a control of the form is news for the models: focus that leaves for another window, a
// menu or a file dialog leaves the control without its lost-focus.
//
// While the models have no focus, the form's own widget has Qt's: keys then reach the form.
class FocusKeeper : public QObject {
  public:
    FocusKeeper(Form& form, QWidget& formWidget, ActionRunner& actions);

    void add(Control& control, QWidget& widget);

    // Puts Qt's focus where the models' is. Takes it from elsewhere in the window only during an
    // action of the person at this form.
    void follow();
    // To be called before a widget is disabled or hidden: Qt would hand its focus on to a
    // neighbour, which the models know nothing of.
    void park(const QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void qtFocusMoved(QWidget* now);
    QWidget* boundAncestor(QWidget* widget) const;
    bool ownsQtFocus() const;
    void setQtFocus(QWidget& widget);
    bool pressOnForm(const QKeyEvent& event);
    void tabFrom(QWidget& start, bool forward);

    Form& form_;
    QWidget& formWidget_;
    ActionRunner& actions_;
    std::unordered_map<const QWidget*, Control*> controls_;
    std::unordered_map<const Control*, QWidget*> widgets_;
    QPointer<QWidget> last_;  // the control that had the focus last, for Tab
    bool following_ = false;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::qt
