#include "i18n/specify_i18n_fieldname_dialog.h"

#include "i18n/translation_store.h"
#include "platform/error_trap.h"

namespace headerdtc {

SpecifyI18NFieldnameDialog::SpecifyI18NFieldnameDialog(Desktop& desktop,
                                                       const Surroundings& surroundings,
                                                       TranslationStore& store,
                                                       std::function<void()> showAddLabel)
    : form(desktop, "SpecifyI18NFieldnameDialog", Form::Kind::Dialog, "Specify translation"),
      FieldNameText(form, "FieldNameText"),
      LabelsCombo(form, "LabelsCombo", ComboBox::Style::Editable),
      TranslationText(form, "TranslationText"),
      AddLabelCommand(form, "AddLabelCommand", "Add label..."),
      OKButton(form, "OKButton", "OK"),
      CancelButton(form, "CancelButton", "Cancel"),
      surroundings_(surroundings),
      store_(store),
      showAddLabel_(std::move(showAddLabel)) {
    FieldNameText.labelled("Fieldname:");
    LabelsCombo.labelled("Label:");
    TranslationText.labelled("Translation (USA English):");
    TranslationText.Locked(true);
    form.defaultButton = &OKButton;
    form.cancelButton = &CancelButton;

    subscriptions_ +=
        form.Paint.subscribe([this] { trap("Form_Paint", [this] { UpdateLabels(); }); });
    subscriptions_ += LabelsCombo.LostFocus.subscribe([this] {
        trap("LabelsCombo_LostFocus",
             [this] { TranslationText.Text(store_.LabelText(LabelsCombo.Text()).value_or("")); });
    });
    subscriptions_ += AddLabelCommand.Click.subscribe([this] {
        trap("AddLabelCommand_Click", [this] {
            showAddLabel_();
            UpdateLabels();
        });
    });
    // Reports under the other button's name.
    subscriptions_ += OKButton.Click.subscribe([this] {
        trap("AddLabelCommand_Click", [this] {
            store_.AssignFieldnameLabel(ProviderName, BisType, FieldNameText.Text(),
                                        LabelsCombo.Text());
            form.Hide();
        });
    });
    subscriptions_ += CancelButton.Click.subscribe([this] { form.Hide(); });
}

template <class Body>
void SpecifyI18NFieldnameDialog::trap(const char* procedure, Body body) {
    trapErrors(surroundings_.messages, procedure, body);
}

void SpecifyI18NFieldnameDialog::UpdateLabels() {
    trap("UpdateLabels", [this] {
        for (const auto& label : store_.ListLabels())
            LabelsCombo.AddItem(label);
    });
}

}  // namespace headerdtc
