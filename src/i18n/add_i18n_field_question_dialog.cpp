#include "i18n/add_i18n_field_question_dialog.h"

#include "platform/text.h"

namespace headerdtc {

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

}  // namespace headerdtc
