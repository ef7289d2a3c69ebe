#include "qt/surface/qt_message_box.h"

#include "qt/surface/qt_modal_loop.h"
#include "qt/surface/text.h"

namespace headerdtc::qt {

void QtMessageBox::show(const std::string& text) {
    show(text, QMessageBox::NoIcon);
}

void QtMessageBox::showError(const std::string& text) {
    show(text, QMessageBox::Warning);
}

void QtMessageBox::show(const std::string& text, QMessageBox::Icon icon) {
    QMessageBox box(icon, "HeaderDTC", toQt(text), QMessageBox::Ok, dialogParent(window_));
    // Texts quote statements and names of fields, which may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.exec();
}

}  // namespace headerdtc::qt
