#include "qt/editor/start/about_dialog.h"

#include "qt/editor/base/icons.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace headerdtc::qt {

void showAbout(QWidget* window) {
    QMessageBox box(window);
    box.setObjectName(QStringLiteral("AboutBox"));
    box.setWindowTitle(QMessageBox::tr("About HeaderDTC"));
    box.setIconPixmap(applicationIcon().pixmap(QSize(64, 64), box.devicePixelRatioF()));
    box.setText(
        QStringLiteral("<b>HeaderDTC page editor %1</b>").arg(QApplication::applicationVersion()));
    box.setInformativeText(
        QMessageBox::tr(
            "Keeps the data headers of dashboard pages: what a page shows is said once, "
            "in the page, and the server script that fetches it is written from that.\n"
            "\nUses Qt %1.")
            .arg(QLatin1String(qVersion())));
    auto* aboutQt = box.addButton(QMessageBox::tr("About &Qt"), QMessageBox::HelpRole);
    box.addButton(QMessageBox::Close);
    box.exec();
    if (box.clickedButton() == aboutQt) QApplication::aboutQt();
}

}  // namespace headerdtc::qt
