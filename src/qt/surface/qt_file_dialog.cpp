#include "qt/surface/qt_file_dialog.h"

#include "qt/surface/qt_modal_loop.h"
#include "qt/surface/text.h"

#include <QDir>
#include <QFileDialog>
#include <utility>

namespace headerdtc::qt {
namespace {

// A folder that is not there is asked for too: then the nearest one that is.
QString existingFolder(const QString& path) {
    QFileInfo folder(path);
    while (!folder.isDir() && folder.absolutePath() != folder.absoluteFilePath())
        folder.setFile(folder.absolutePath());
    return folder.absoluteFilePath();
}

}  // namespace

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

}  // namespace headerdtc::qt
