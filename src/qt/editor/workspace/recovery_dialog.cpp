#include "qt/editor/workspace/recovery_dialog.h"

#include "host/files/file_error.h"
#include "host/files/whole_file.h"
#include "qt/editor/base/words.h"
#include "ui_recovery_dialog.h"

#include <QLocale>
#include <QMessageBox>
#include <utility>

namespace headerdtc::qt {
namespace {

QString stateOf(const RecoveryCopy& copy) {
    if (!copy.hasFile) return RecoveryDialog::tr("never saved");
    try {
        return readWholeFile(copy.page).bytes == copy.base ? RecoveryDialog::tr("as it was")
                                                           : RecoveryDialog::tr("changed since");
    } catch (const FileError&) {
        return RecoveryDialog::tr("gone");
    }
}

}  // namespace

RecoveryDialog::RecoveryDialog(std::vector<RecoveryCopy> copies, QWidget* parent)
    : QDialog(parent), copies_(std::move(copies)), ui_(std::make_unique<Ui::RecoveryDialog>()) {
    ui_->setupUi(this);
    for (const RecoveryCopy& copy : copies_) {
        auto* item =
            new QTreeWidgetItem({toName(copy.page.filename()),
                                 QLocale().toString(copy.when.toLocalTime(), QLocale::ShortFormat),
                                 stateOf(copy), toName(copy.page.parent_path())});
        item->setCheckState(0, Qt::Checked);
        ui_->RecoveryList->addTopLevelItem(item);
    }
    for (int column = 0; column < 3; ++column)
        ui_->RecoveryList->resizeColumnToContents(column);

    QDialogButtonBox& buttons = *ui_->AnswerButtons;
    buttons.addButton(ui_->RecoverButton, QDialogButtonBox::AcceptRole);
    buttons.addButton(ui_->DiscardButton, QDialogButtonBox::DestructiveRole);
    buttons.addButton(ui_->LaterButton, QDialogButtonBox::RejectRole);
    connect(ui_->RecoverButton, &QPushButton::clicked, this,
            [this] { answerWith(Answer::Recover); });
    connect(ui_->DiscardButton, &QPushButton::clicked, this, [this] {
        if (QMessageBox::question(
                this, windowTitle(),
                tr("Discard the unsaved changes of %1? They cannot be brought "
                   "back.")
                    .arg(counted(static_cast<int>(chosen().size()), "page", "pages")),
                QMessageBox::Discard | QMessageBox::Cancel,
                QMessageBox::Cancel) == QMessageBox::Discard)
            answerWith(Answer::Discard);
    });
    connect(ui_->LaterButton, &QPushButton::clicked, this, &QDialog::reject);
}

RecoveryDialog::~RecoveryDialog() = default;

void RecoveryDialog::answerWith(Answer answer) {
    answer_ = answer;
    accept();
}

std::vector<RecoveryCopy> RecoveryDialog::chosen() const {
    std::vector<RecoveryCopy> chosen;
    for (int i = 0; i < ui_->RecoveryList->topLevelItemCount(); ++i) {
        if (ui_->RecoveryList->topLevelItem(i)->checkState(0) == Qt::Checked)
            chosen.push_back(copies_[static_cast<std::size_t>(i)]);
    }
    return chosen;
}

}  // namespace headerdtc::qt
