#include "qt/surface/qt_modal_loop.h"

#include "qt/surface/form_dialog.h"

#include <QApplication>

namespace headerdtc::qt {

QWidget* dialogParent(QWidget* otherwise) {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return otherwise;
}

void QtModalLoop::run(Form& form) {
    FormDialog dialog(form, dialogParent(window_));
    if (const auto size = sizes_.find(form.name()); size != sizes_.end())
        dialog.resize(size->second);
    struct Remember {
        QSize& size;
        const FormDialog& dialog;
        ~Remember() { size = dialog.size(); }
    } const remember{sizes_[form.name()], dialog};
    dialog.run();
}

}  // namespace headerdtc::qt
