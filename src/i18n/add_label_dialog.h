#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "platform/surroundings.h"

namespace headerdtc {

class TranslationStore;

// The dialog in which an author adds a label with its US-English text, or overwrites the English
// text of one. Hidden, not destroyed, when closed: both boxes keep their last entry.
class AddLabelDialog {
  public:
    AddLabelDialog(Desktop& desktop, const Surroundings& surroundings, TranslationStore& store);

    Form form;
    TextBox LabelNameText, LabelValueText;
    Button OKButton, CancelButton;

  private:
    void OKButton_Click();

    const Surroundings& surroundings_;
    TranslationStore& store_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
