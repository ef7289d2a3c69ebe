#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"

#include <string>

namespace headerdtc {

// Asks whether a field's name is to get a translation. One shared instance: an author who has
// once said "Yes" is taken to agree for as long as the control lives.
class AddI18NFieldQuestionDialog {
  public:
    explicit AddI18NFieldQuestionDialog(Desktop& desktop);

    Form form;
    Label QuestionTextLabel;
    Button OKButton, CancelButton;

    std::string Fieldname;
    bool UserAgrees() const { return userAgrees_; }

  private:
    void Form_Paint();

    bool userAgrees_ = false;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
