#include "qt/editor/health/replace_dialog.h"

#include "qt/surface/text.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace headerdtc::qt {

ReplaceDialog::ReplaceDialog(const std::vector<VanishedField>& vanished, std::size_t first,
                             const FieldOffers& offers, const StoredConfiguration& configuration,
                             QWidget* parent)
    : QDialog(parent), vanished_(vanished), offers_(offers), configuration_(configuration) {
    setObjectName(QStringLiteral("ReplaceDialog"));
    setWindowTitle(tr("Replace missing field"));
    which_ = new QComboBox;
    which_->setObjectName(QStringLiteral("MissingField"));
    for (const VanishedField& field : vanished_)
        which_->addItem(tr("%1 %2: %3")
                            .arg(toQt(std::string(traitsOf(field.family).prefix)),
                                 toQt(std::string(nameOf(field.role))), toQt(field.item.text)));
    which_->setCurrentIndex(static_cast<int>(first));
    reason_ = new QLabel;
    reason_->setWordWrap(true);
    reason_->setTextFormat(Qt::PlainText);
    filter_ = new QLineEdit;
    filter_->setPlaceholderText(tr("Part of a name or number"));
    filter_->setClearButtonEnabled(true);
    choices_ = new QListWidget;
    choices_->setObjectName(QStringLiteral("Replacements"));
    choices_->setAccessibleName(tr("Fields that are offered"));
    choices_->setUniformItemSizes(true);

    auto* form = new QFormLayout;
    form->addRow(tr("&Missing:"), which_);
    form->addRow(QString(), reason_);
    form->addRow(tr("&Find:"), filter_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    replace_ = buttons->addButton(tr("&Replace"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(which_, &QComboBox::currentIndexChanged, this, &ReplaceDialog::fill);
    connect(filter_, &QLineEdit::textChanged, this, &ReplaceDialog::filter);
    connect(choices_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(choices_, &QListWidget::currentRowChanged, this,
            [this](int row) { replace_->setEnabled(row >= 0); });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(choices_, 1);
    layout->addWidget(buttons);
    resize(460, 420);
    fill();
    // Once it can be pressed: while it could not, the window made Cancel what Enter presses.
    replace_->setDefault(true);
    choices_->setFocus();
}

const VanishedField& ReplaceDialog::vanished() const {
    return vanished_[static_cast<std::size_t>(which_->currentIndex())];
}

std::string ReplaceDialog::replacement() const {
    const QListWidgetItem* item = choices_->currentItem();
    return item ? fromQt(item->data(Qt::UserRole).toString()) : std::string();
}

void ReplaceDialog::fill() {
    reason_->setText(tr("\"%1\" does not offer it any more. Fields with names like it come first.")
                         .arg(toQt(vanished().provider)));
    choices_->clear();
    for (const std::string& entry : offers_.replacements(vanished(), configuration_)) {
        auto* item = new QListWidgetItem(toQt(entry).trimmed(), choices_);
        item->setData(Qt::UserRole, toQt(entry));
    }
    filter();
}

void ReplaceDialog::filter() {
    const QString text = filter_->text().trimmed();
    int first = -1;
    for (int row = 0; row < choices_->count(); ++row) {
        const bool fits = choices_->item(row)->text().contains(text, Qt::CaseInsensitive);
        choices_->item(row)->setHidden(!fits);
        if (fits && first < 0) first = row;
    }
    choices_->setCurrentRow(first);
    replace_->setEnabled(first >= 0);
}

}  // namespace headerdtc::qt
