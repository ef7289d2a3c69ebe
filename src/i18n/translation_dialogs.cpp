#include "i18n/translation_dialogs.h"

#include "i18n/translation_store.h"
#include "platform/error_trap.h"
#include "platform/text.h"

namespace headerdtc {

// ---- the question ------------------------------------------------------------------------------

AddI18NFieldQuestionDialog::AddI18NFieldQuestionDialog(Desktop& desktop)
    : form(desktop, "AddI18NFieldQuestionDialog", Form::Kind::Dialog, "Question"),
      QuestionTextLabel(form, "QuestionTextLabel"),
      OKButton(form, "OKButton", "Yes"),
      CancelButton(form, "CancelButton", "No") {
    form.defaultButton = &OKButton;
    form.cancelButton = &CancelButton;
    subscriptions_ += form.Paint.subscribe([this] { Form_Paint(); });
    subscriptions_ += OKButton.Click.subscribe([this] {
        userAgrees_ = true;
        form.Hide();
    });
    subscriptions_ += CancelButton.Click.subscribe([this] { form.Hide(); });
}

void AddI18NFieldQuestionDialog::Form_Paint() {
    QuestionTextLabel.Caption(replaceAll(
        "Do you want to add the translation for field '<FIELDNAME>'?", "<FIELDNAME>", Fieldname));
}

// ---- a new label -------------------------------------------------------------------------------

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

// ---- the label of a field name -----------------------------------------------------------------

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
