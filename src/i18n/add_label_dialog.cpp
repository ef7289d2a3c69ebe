#include "i18n/add_label_dialog.h"

#include "i18n/translation_store.h"
#include "platform/error_trap.h"

namespace headerdtc {

AddLabelDialog::AddLabelDialog(Desktop& desktop, const Surroundings& surroundings,
                               TranslationStore& store)
    : form(desktop, "AddLabelDialog", Form::Kind::Dialog, "Add label"),
      LabelNameText(form, "LabelNameText"),
      LabelValueText(form, "LabelValueText"),
      OKButton(form, "OKButton", "OK"),
      CancelButton(form, "CancelButton", "Cancel"),
      surroundings_(surroundings),
      store_(store) {
    LabelNameText.labelled("Label:");
    LabelValueText.labelled("Value (English):");
    form.defaultButton = &OKButton;
    form.cancelButton = &CancelButton;
    subscriptions_ += OKButton.Click.subscribe([this] { OKButton_Click(); });
    subscriptions_ += CancelButton.Click.subscribe([this] { form.Hide(); });
}

void AddLabelDialog::OKButton_Click() {
    trapErrors(surroundings_.messages, "OKButton_Click", [this] {
        store_.AddLabel(LabelNameText.Text(), LabelValueText.Text());
        form.Hide();
    });
}

}  // namespace headerdtc
