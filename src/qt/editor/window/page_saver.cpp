#include "qt/editor/window/page_saver.h"

#include "qt/editor/files/compare_dialog.h"
#include "qt/editor/files/notice_bar.h"
#include "qt/editor/page/page_editor.h"
#include "qt/editor/page/step_name.h"

#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <set>

namespace headerdtc::qt {
namespace {

bool askToSaveAnyway(QWidget& window, const QString& title, const QString& reason) {
    QMessageBox box(
        QMessageBox::Warning, PageSaver::tr("Not saved"),
        PageSaver::tr("%1 was not saved, because something of it would be lost.").arg(title),
        QMessageBox::Cancel, &window);
    box.setObjectName(QStringLiteral("SaveRefusedBox"));
    box.setInformativeText(reason);
    box.setTextFormat(Qt::PlainText);
    auto* anyway = box.addButton(PageSaver::tr("Save &anyway"), QMessageBox::DestructiveRole);
    anyway->setObjectName(QStringLiteral("SaveAnywayButton"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == anyway;
}

}  // namespace

template <class Save>
bool PageSaver::guarded(PageEditor& editor, Save save) {
    try {
        try {
            save(EditedPage::Guard::RefuseLosses);
        } catch (const SaveRefused& refused) {
            if (!askToSaveAnyway(window_, editor.title(), QString::fromStdString(refused.what())))
                return false;
            save(EditedPage::Guard::SaveAnyway);
        }
    } catch (const std::exception& error) {
        QMessageBox::critical(&window_, tr("Not saved"),
                              tr("%1 could not be saved; nothing was written.\n\n%2")
                                  .arg(editor.title(), QString::fromStdString(error.what())));
        return false;
    }
    Q_EMIT saved(&editor);
    return true;
}

bool PageSaver::save(PageEditor& editor) {
    editor.finishEditing();
    if (!editor.page().hasFile()) return saveAs(editor);
    if (editor.page().changedOnDisk() && !resolveChangeOnDisk(editor)) return false;
    return guarded(editor, [&](EditedPage::Guard guard) { editor.page().save(guard); });
}

bool PageSaver::saveAs(PageEditor& editor) {
    editor.finishEditing();
    const QString name = QFileDialog::getSaveFileName(
        &window_, tr("Save page"), QFile::decodeName(editor.page().file().c_str()),
        tr("ASP pages (*.asp *.inc *.ASP *.INC);;All files (*)"));
    if (name.isEmpty()) return false;
    const std::filesystem::path file = QFile::encodeName(name).toStdString();
    return guarded(editor, [&](EditedPage::Guard guard) { editor.page().saveAs(file, guard); });
}

bool PageSaver::resolveChangeOnDisk(PageEditor& editor) {
    EditedPage& page = editor.page();
    WholeFile theirs;
    try {
        theirs = page.readTheirs();
    } catch (const FileError& error) {
        QMessageBox box(QMessageBox::Question, tr("File is gone"),
                        tr("The file of %1 can no longer be read. Save the page there again?")
                            .arg(editor.title()),
                        QMessageBox::Save | QMessageBox::Cancel, &window_);
        box.setInformativeText(QString::fromStdString(error.what()));
        if (box.exec() != QMessageBox::Save) return false;
        page.keepWithoutFile();
        return true;
    }
    if (theirs.bytes == page.saved()->bytes() || theirs.bytes == page.content()->bytes()) {
        page.keepMine(std::move(theirs));
        return true;
    }
    const PageContent theirContent(page.file(), theirs.bytes, page.content()->codePage());
    CompareDialog dialog(editor.title(), *page.saved(), *page.content(), theirContent, &window_);
    dialog.exec();
    switch (dialog.answer()) {
        case CompareDialog::Answer::KeepMine:
            page.keepMine(std::move(theirs));
            editor.notices().remove(QStringLiteral("disk"));
            return true;
        case CompareDialog::Answer::TakeTheirs:
            page.takeTheirs(std::move(theirs));
            editor.notices().remove(QStringLiteral("disk"));
            return false;
        case CompareDialog::Answer::Later:
            return false;
    }
    return false;
}

QString unsavedChanges(PageEditor& editor) {
    const EditedPage& page = editor.page();
    if (!page.hasFile()) return PageSaver::tr("The page was never saved.");
    QStringList changes;
    for (const ControlSpan& span : page.content()->controls()) {
        const auto before = page.saved()->indexOf(span.id);
        const QString control = QString::fromStdString(span.id);
        if (!before) {
            changes += PageSaver::tr("new control %1").arg(control);
        } else if (page.saved()->controls()[*before].properties != span.properties) {
            changes += PageSaver::tr("%1 of %2")
                           .arg(describeChange(page.saved()->controls()[*before].properties,
                                               span.properties),
                                control);
        }
    }
    if (changes.isEmpty()) changes += PageSaver::tr("source text");
    return PageSaver::tr("Changed: %1").arg(changes.join(QLatin1String(", ")));
}

}  // namespace headerdtc::qt
