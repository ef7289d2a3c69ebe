#pragma once

#include "platform/file_dialog.h"

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>

namespace headerdtc::qt {

// The desktop's file dialog, asked with Windows paths and answering with them.
class QtFileDialog : public FileDialog {
  public:
    using ToLocal = std::function<QString(const std::string& windowsPath)>;
    using ToWindows = std::function<std::string(const QString& localPath)>;

    QtFileDialog(ToLocal toLocal, ToWindows toWindows, QWidget* window = nullptr);
    void setWindow(QWidget* window) { window_ = window; }

    std::string open(const FileDialogRequest& request) override;

  private:
    ToLocal toLocal_;
    ToWindows toWindows_;
    QPointer<QWidget> window_;
};

// "description|pattern", more pairs following, as Qt's list of name filters. Qt reads the patterns
// from brackets at the end of a description; several patterns are parted by ";".
QStringList nameFilters(const QString& filter);

}  // namespace headerdtc::qt
