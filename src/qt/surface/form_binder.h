#pragma once

#include "qt/surface/action_runner.h"
#include "qt/surface/focus_keeper.h"

#include <QString>
#include <memory>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

class QLabel;
class QWidget;

namespace headerdtc {
class Control;
class Form;
}  // namespace headerdtc

namespace headerdtc::qt {

class ControlView;

// A form's widgets do not fit its models: the text names every one that is missing or of another
// kind. A fault of the form file, not of anything that a person does.
class BindingError : public std::logic_error {
  public:
    using std::logic_error::logic_error;
};

// Makes the widgets of a form the views of the models of the same names. Labels are bound through
// their buddies and take the models' label texts; tab order, mnemonics and the names for assistive
// technology come from the models too. Models and widgets outlive the binder.
class FormBinder {
  public:
    // Raises BindingError. The letters of `takenMnemonics` belong to the window around the form.
    FormBinder(Form& form, QWidget& formWidget, const QString& takenMnemonics = {});
    ~FormBinder();
    FormBinder(const FormBinder&) = delete;
    FormBinder& operator=(const FormBinder&) = delete;

    // Marks these controls, and the tabs that they are on, as other than in the page's file.
    void markChanged(const std::set<const Control*>& changed);

    ActionRunner actions;
    FocusKeeper focus;

  private:
    class Matcher;

    // Controls and the labels whose buddies their widgets are.
    using Labels = std::vector<std::pair<const Control*, QLabel*>>;

    void attachEditors();
    void setTabOrder();
    Labels findLabels(QWidget& formWidget) const;
    void assignMnemonics(const Labels& labels, const QString& taken);

    std::vector<std::unique_ptr<ControlView>> views_;  // in tab order
};

}  // namespace headerdtc::qt
