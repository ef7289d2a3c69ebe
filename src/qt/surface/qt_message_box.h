#pragma once

#include "platform/message_box.h"

#include <QMessageBox>
#include <QPointer>

namespace headerdtc::qt {

class QtMessageBox : public MessageBox {
  public:
    explicit QtMessageBox(QWidget* window = nullptr) : window_(window) {}
    void setWindow(QWidget* window) { window_ = window; }

    void show(const std::string& text) override;
    void showError(const std::string& text) override;

  private:
    void show(const std::string& text, QMessageBox::Icon icon);

    QPointer<QWidget> window_;
};

}  // namespace headerdtc::qt
