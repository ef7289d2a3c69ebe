#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "platform/surroundings.h"

#include <functional>
#include <string>

namespace headerdtc {

class TranslationStore;

// The dialog in which an author picks the label that translates a field's name. One shared
// instance; its combo only grows: every showing and every added label appends all labels again.
class SpecifyI18NFieldnameDialog {
  public:
    // showAddLabel opens the add-label dialog modally.
    SpecifyI18NFieldnameDialog(Desktop& desktop, const Surroundings& surroundings,
                               TranslationStore& store, std::function<void()> showAddLabel);

    Form form;
    TextBox FieldNameText;
    ComboBox LabelsCombo;
    TextBox TranslationText;
    Button AddLabelCommand, OKButton, CancelButton;

    std::string ProviderName;
    std::string BisType;  // the family's tag

  private:
    template <class Body>
    void trap(const char* procedure, Body body);
    void UpdateLabels();

    const Surroundings& surroundings_;
    TranslationStore& store_;
    std::function<void()> showAddLabel_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
