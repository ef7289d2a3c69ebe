#include "qt/surface/qt_faces.h"

#include "qt/surface/form_dialog.h"
#include "qt/surface/text.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <utility>

namespace headerdtc::qt {
namespace {

QWidget* dialogParent(QWidget* otherwise) {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return otherwise;
}

// A folder that is not there is asked for too: then the nearest one that is.
QString existingFolder(const QString& path) {
    QFileInfo folder(path);
    while (!folder.isDir() && folder.absolutePath() != folder.absoluteFilePath())
        folder.setFile(folder.absolutePath());
    return folder.absoluteFilePath();
}

}  // namespace

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

QtFileDialog::QtFileDialog(ToLocal toLocal, ToWindows toWindows, QWidget* window)
    : toLocal_(std::move(toLocal)), toWindows_(std::move(toWindows)), window_(window) {}

std::string QtFileDialog::open(const FileDialogRequest& request) {
    QFileDialog dialog(dialogParent(window_), toQt(request.title));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!request.initialDirectory.empty())
        dialog.setDirectory(existingFolder(toLocal_(request.initialDirectory)));
    dialog.setNameFilters(nameFilters(toQt(request.filter)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return toWindows_(dialog.selectedFiles().constFirst());
}

QStringList nameFilters(const QString& filter) {
    const QStringList parts = filter.split('|');
    QStringList filters;
    for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
        QString description = parts.at(at);
        QString patterns = parts.at(at + 1);
        patterns.replace(';', ' ');
        if (const qsizetype bracket = description.lastIndexOf('('); bracket >= 0)
            description.truncate(bracket);
        filters += description.trimmed() + " (" + patterns + ")";
    }
    return filters;
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
