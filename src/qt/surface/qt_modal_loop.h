#pragma once

#include "controls/form.h"

#include <QPointer>
#include <QSize>
#include <QWidget>
#include <map>
#include <string>

namespace headerdtc::qt {

// Waits for a modal form in a window of its own, over the window that is active, or else over the
// one that it was given.
class QtModalLoop : public ModalLoop {
  public:
    explicit QtModalLoop(QWidget* window = nullptr) : window_(window) {}
    void setWindow(QWidget* window) { window_ = window; }

    void run(Form& form) override;

  private:
    QPointer<QWidget> window_;
    std::map<std::string, QSize> sizes_;  // as the person left each dialog
};

// The window over which a dialog is to open.
QWidget* dialogParent(QWidget* otherwise);

}  // namespace headerdtc::qt
