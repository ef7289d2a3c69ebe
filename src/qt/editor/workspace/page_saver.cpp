#include "qt/editor/workspace/page_saver.h"

#include "qt/editor/base/words.h"
#include "qt/editor/page/compare_dialog.h"
#include "qt/editor/page/page_changes.h"
#include "qt/editor/workspace/notice_bar.h"
#include "qt/editor/workspace/page_editor.h"

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

// Offers no "Save anyway": without generated text there is nothing worth saving.
void tellFailure(QWidget& window, PageEditor& editor, const QString& reason) {
    QMessageBox box(
        QMessageBox::Critical, PageSaver::tr("Not saved"),
        PageSaver::tr("%1 was not saved, because it cannot be generated. Your changes are "
                      "still here; save again when the cause is gone.")
            .arg(editor.title()),
        QMessageBox::Close, &window);
    box.setObjectName(QStringLiteral("NotGeneratedBox"));
    box.setInformativeText(
        PageSaver::tr("%1\n\nMend what is missing, or correct the settings of the site.")
            .arg(reason));
    box.setTextFormat(Qt::PlainText);
    auto* settings = box.addButton(PageSaver::tr("Se&ttings..."), QMessageBox::ActionRole);
    box.setDefaultButton(QMessageBox::Close);
    box.exec();
    if (box.clickedButton() == settings) Q_EMIT editor.settingsRequested();
}

}  // namespace

template <class Save>
bool PageSaver::guarded(PageEditor& editor, Save save) {
    try {
        try {
            save(EditedPage::Guard::RefuseLosses);
        } catch (const SaveRefused& refused) {
            if (refused.doubt().kind == SaveDoubt::Kind::Failure ||
                !askToSaveAnyway(window_, editor.title(), QString::fromStdString(refused.what())))
                throw;
            save(EditedPage::Guard::SaveAnyway);
        }
    } catch (const SaveRefused& refused) {
        if (refused.doubt().kind == SaveDoubt::Kind::Failure)
            tellFailure(window_, editor, QString::fromStdString(refused.what()));
        return false;
    } catch (const ChangedByOther&) {
        // Somebody wrote between the last check and this write. Ask again whose content is kept,
        // and start over, since it may happen once more.
        return resolveChangeOnDisk(editor) && this->save(editor);
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
    const QString name =
        QFileDialog::getSaveFileName(&window_, tr("Save page"), toName(editor.page().file()),
                                     tr("ASP pages (*.asp *.inc *.ASP *.INC);;All files (*)"));
    if (name.isEmpty()) return false;
    const std::filesystem::path file = toPath(name);
    // Under its own name it is a save like any other, with all that is asked before one.
    std::error_code failure;
    if (editor.page().hasFile() && std::filesystem::equivalent(file, editor.page().file(), failure))
        return save(editor);
    return guarded(editor, [&](EditedPage::Guard guard) { editor.page().saveAs(file, guard); });
}

bool PageSaver::resolveChangeOnDisk(PageEditor& editor) {
    EditedPage& page = editor.page();
    WholeFile theirs;
    try {
        theirs = page.readTheirs();
    } catch (const FileError& error) {
        QMessageBox box(
            QMessageBox::Question, tr("Page is gone from the disk"),
            tr("%1 can no longer be read from the disk. Save it there again?").arg(editor.title()),
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
    const PageContent theirContent(page.file(), theirs.bytes, page.site()->configuration->codePage);
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
        case CompareDialog::Answer::TakeBoth:
            page.takeBoth(std::move(theirs), *dialog.merged().bytes);
            editor.notices().remove(QStringLiteral("disk"));
            return true;
        case CompareDialog::Answer::Later:
            return false;
    }
    return false;
}

QString unsavedChanges(PageEditor& editor) {
    const EditedPage& page = editor.page();
    if (!page.hasFile()) return PageSaver::tr("The page was never saved.");
    return PageSaver::tr("What would be lost:\n%1")
        .arg(bulleted(changesInWords(*page.saved(), *page.content())));
}

}  // namespace headerdtc::qt
