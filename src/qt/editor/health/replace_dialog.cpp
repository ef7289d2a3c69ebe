#include "qt/editor/health/replace_dialog.h"

#include "qt/surface/text.h"
#include "ui_replace_dialog.h"

namespace headerdtc::qt {

ReplaceDialog::ReplaceDialog(const std::vector<VanishedField>& vanished, std::size_t first,
                             const FieldOffers& offers, const StoredConfiguration& configuration,
                             QWidget* parent)
    : QDialog(parent),
      vanished_(vanished),
      offers_(offers),
      configuration_(configuration),
      ui_(std::make_unique<Ui::ReplaceDialog>()) {
    ui_->setupUi(this);
    ui_->AnswerButtons->addButton(ui_->ReplaceButton, QDialogButtonBox::AcceptRole);
    for (const VanishedField& field : vanished_)
        ui_->MissingField->addItem(tr("%1 %2: %3")
                                       .arg(toQt(std::string(traitsOf(field.family).prefix)),
                                            toQt(std::string(nameOf(field.role))),
                                            toQt(field.item.text)));
    ui_->MissingField->setCurrentIndex(static_cast<int>(first));

    connect(ui_->AnswerButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui_->AnswerButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(ui_->MissingField, &QComboBox::currentIndexChanged, this, &ReplaceDialog::fill);
    connect(ui_->ReplacementFilter, &QLineEdit::textChanged, this, &ReplaceDialog::filter);
    connect(ui_->Replacements, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(ui_->Replacements, &QListWidget::currentRowChanged, this,
            [this](int row) { ui_->ReplaceButton->setEnabled(row >= 0); });
    fill();
    // Once it can be pressed: while it could not, the window made Cancel what Enter presses.
    ui_->ReplaceButton->setDefault(true);
    ui_->Replacements->setFocus();
}

ReplaceDialog::~ReplaceDialog() = default;

const VanishedField& ReplaceDialog::vanished() const {
    return vanished_[static_cast<std::size_t>(ui_->MissingField->currentIndex())];
}

std::string ReplaceDialog::replacement() const {
    const QListWidgetItem* item = ui_->Replacements->currentItem();
    return item ? fromQt(item->data(Qt::UserRole).toString()) : std::string();
}

void ReplaceDialog::fill() {
    ui_->ReasonLabel->setText(
        tr("\"%1\" does not offer it any more. Fields with names like it come first.")
            .arg(toQt(vanished().provider)));
    ui_->Replacements->clear();
    for (const std::string& entry : offers_.replacements(vanished(), configuration_)) {
        auto* item = new QListWidgetItem(toQt(entry).trimmed(), ui_->Replacements);
        item->setData(Qt::UserRole, toQt(entry));
    }
    filter();
}

void ReplaceDialog::filter() {
    const QString text = ui_->ReplacementFilter->text().trimmed();
    int first = -1;
    for (int row = 0; row < ui_->Replacements->count(); ++row) {
        const bool fits = ui_->Replacements->item(row)->text().contains(text, Qt::CaseInsensitive);
        ui_->Replacements->item(row)->setHidden(!fits);
        if (fits && first < 0) first = row;
    }
    ui_->Replacements->setCurrentRow(first);
    ui_->ReplaceButton->setEnabled(first >= 0);
}

}  // namespace headerdtc::qt
