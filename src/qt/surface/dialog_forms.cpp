#include "qt/surface/dialog_forms.h"

#include "ui_add_i18n_field_question_dialog.h"
#include "ui_add_label_dialog.h"
#include "ui_specify_criterium_dialog.h"
#include "ui_specify_i18n_fieldname_dialog.h"
#include "ui_specify_i18n_fieldvalue_dialog.h"

#include <stdexcept>
#include <string_view>

namespace headerdtc::qt {
namespace {

template <class Ui>
void setUp(QDialog& dialog) {
    Ui().setupUi(&dialog);
}

struct DialogForm {
    std::string_view name;
    void (*setUp)(QDialog& dialog);
};

constexpr DialogForm DialogForms[] = {
    {"AddI18NFieldQuestionDialog", setUp<Ui::AddI18NFieldQuestionDialog>},
    {"AddLabelDialog", setUp<Ui::AddLabelDialog>},
    {"SpecifyCriteriumDialog", setUp<Ui::SpecifyCriteriumDialog>},
    {"SpecifyI18NFieldnameDialog", setUp<Ui::SpecifyI18NFieldnameDialog>},
    {"SpecifyI18NFieldValueDialog", setUp<Ui::SpecifyI18NFieldValueDialog>},
};

}  // namespace

void setUpDialogForm(const std::string& name, QDialog& dialog) {
    for (const DialogForm& form : DialogForms) {
        if (form.name == name) return form.setUp(dialog);
    }
    throw std::logic_error("There is no window for the form '" + name + "'");
}

}  // namespace headerdtc::qt
