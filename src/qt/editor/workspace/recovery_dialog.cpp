#include "qt/editor/workspace/recovery_dialog.h"

#include "host/files/file_error.h"
#include "host/files/whole_file.h"
#include "qt/editor/base/words.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>

namespace headerdtc::qt {
namespace {

QString stateOf(const RecoveryCopy& copy) {
    if (!copy.hasFile) return RecoveryDialog::tr("never saved");
    try {
        return readWholeFile(copy.page).bytes == copy.base
                   ? RecoveryDialog::tr("file is as it was")
                   : RecoveryDialog::tr("file has changed since");
    } catch (const FileError&) {
        return RecoveryDialog::tr("file is gone");
    }
}

}  // namespace

RecoveryDialog::RecoveryDialog(std::vector<RecoveryCopy> copies, QWidget* parent)
    : QDialog(parent), copies_(std::move(copies)) {
    setObjectName(QStringLiteral("RecoveryDialog"));
    setWindowTitle(tr("Recover unsaved pages"));
    auto* text =
        new QLabel(tr("The editor ended without saving these pages. Recovered pages are "
                      "opened with their changes; no file is written until you save."));
    text->setWordWrap(true);

    list_ = new QTreeWidget;
    list_->setObjectName(QStringLiteral("RecoveryList"));
    list_->setAccessibleName(tr("Unsaved pages"));
    list_->setRootIsDecorated(false);
    list_->setHeaderLabels({tr("Page"), tr("Copied"), tr("On disk"), tr("Folder")});
    for (const RecoveryCopy& copy : copies_) {
        auto* item =
            new QTreeWidgetItem({toName(copy.page.filename()),
                                 QLocale().toString(copy.when.toLocalTime(), QLocale::ShortFormat),
                                 stateOf(copy), toName(copy.page.parent_path())});
        item->setCheckState(0, Qt::Checked);
        list_->addTopLevelItem(item);
    }
    for (int column = 0; column < 3; ++column)
        list_->resizeColumnToContents(column);

    auto* buttons = new QDialogButtonBox;
    auto* recover = buttons->addButton(tr("&Recover"), QDialogButtonBox::AcceptRole);
    auto* discard = buttons->addButton(tr("&Discard..."), QDialogButtonBox::DestructiveRole);
    auto* later = buttons->addButton(tr("Decide &later"), QDialogButtonBox::RejectRole);
    recover->setDefault(true);
    connect(recover, &QPushButton::clicked, this, [this] {
        answer_ = Answer::Recover;
        accept();
    });
    connect(discard, &QPushButton::clicked, this, [this] {
        if (QMessageBox::question(
                this, windowTitle(),
                tr("Discard the unsaved changes of %1? They cannot be brought "
                   "back.")
                    .arg(counted(static_cast<int>(chosen().size()), "page", "pages")),
                QMessageBox::Discard | QMessageBox::Cancel,
                QMessageBox::Cancel) != QMessageBox::Discard)
            return;
        answer_ = Answer::Discard;
        accept();
    });
    connect(later, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(list_, 1);
    layout->addWidget(buttons);
    resize(720, 320);
}

std::vector<RecoveryCopy> RecoveryDialog::chosen() const {
    std::vector<RecoveryCopy> chosen;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        if (list_->topLevelItem(i)->checkState(0) == Qt::Checked)
            chosen.push_back(copies_[static_cast<std::size_t>(i)]);
    }
    return chosen;
}

}  // namespace headerdtc::qt
