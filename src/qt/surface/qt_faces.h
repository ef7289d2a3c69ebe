#pragma once

#include "controls/form.h"
#include "platform/surroundings.h"

#include <QMessageBox>
#include <QPointer>
#include <QSize>
#include <QString>
#include <functional>
#include <map>
#include <string>

namespace headerdtc::qt {

// Boxes and dialogs open over the window that is active, or else over the one that they were given.

class QtMessageBox : public MessageBox {
  public:
    explicit QtMessageBox(QWidget* window = nullptr) : window_(window) {}

    void show(const std::string& text) override;
    void showError(const std::string& text) override;

  private:
    void show(const std::string& text, QMessageBox::Icon icon);

    QPointer<QWidget> window_;
};

// The desktop's file dialog, asked with Windows paths and answering with them.
class QtFileDialog : public FileDialog {
  public:
    using ToLocal = std::function<QString(const std::string& windowsPath)>;
    using ToWindows = std::function<std::string(const QString& localPath)>;

    QtFileDialog(ToLocal toLocal, ToWindows toWindows, QWidget* window = nullptr);

    std::string open(const FileDialogRequest& request) override;

  private:
    ToLocal toLocal_;
    ToWindows toWindows_;
    QPointer<QWidget> window_;
};

// "description|pattern", more pairs following, as Qt's list of name filters. Qt reads the patterns
// from brackets at the end of a description; several patterns are parted by ";".
QStringList nameFilters(const QString& filter);

// Waits for a modal form in a window of its own.
class QtModalLoop : public ModalLoop {
  public:
    explicit QtModalLoop(QWidget* window = nullptr) : window_(window) {}

    void run(Form& form) override;

  private:
    QPointer<QWidget> window_;
    std::map<std::string, QSize> sizes_;  // as the person left each dialog
};

// What a control asks a person with.
struct ControlFaces {
    QtMessageBox messages;
    QtFileDialog fileDialog;
    QtModalLoop modalLoop;
};

}  // namespace headerdtc::qt
