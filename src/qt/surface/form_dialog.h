#pragma once

#include <QDialog>
#include <exception>
#include <memory>
#include <string>

namespace headerdtc {
class Form;
}

namespace headerdtc::qt {

class FormBinder;

// Fills an empty dialog window with the widgets of the dialog form of that name. Raises
// std::logic_error for a form that is not there.
void setUpDialogForm(const std::string& name, QDialog& dialog);

// The window of a dialog form, for one showing: the form decides when it closes.
class FormDialog : public QDialog {
    Q_OBJECT

  public:
    // Raises BindingError and std::logic_error as the binder and the dialog forms do.
    FormDialog(Form& form, QWidget* parent);
    ~FormDialog() override;

    // Shows the window and returns when the form is hidden. A failure that a handler of the form
    // lets out is thrown on.
    void run();

    // Closing the window is only a request: the form decides.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    // Enter and Escape are the models'.
    void keyPressEvent(QKeyEvent* event) override;

  Q_SIGNALS:
    void finishedByForm();

  private:
    Form& form_;
    std::unique_ptr<FormBinder> binder_;
    std::exception_ptr failure_;
};

}  // namespace headerdtc::qt
