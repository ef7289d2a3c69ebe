#include "qt/surface/form_dialog.h"

#include "controls/button.h"
#include "controls/form.h"
#include "qt/surface/form_binder.h"
#include "qt/surface/text.h"
#include "ui_add_i18n_field_question_dialog.h"
#include "ui_add_label_dialog.h"
#include "ui_specify_criterium_dialog.h"
#include "ui_specify_i18n_fieldname_dialog.h"
#include "ui_specify_i18n_fieldvalue_dialog.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QPushButton>
#include <stdexcept>
#include <string_view>
#include <utility>

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

FormDialog::FormDialog(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
    setUpDialogForm(form.name(), *this);
    setWindowTitle(toQt(form.caption()));
    setWindowModality(Qt::ApplicationModal);
    binder_ = std::make_unique<FormBinder>(form, *this);
    binder_->actions.onFailure = [this](const std::exception_ptr& failure) {
        failure_ = failure;
        Q_EMIT finishedByForm();
    };
    binder_->actions.onDone = [this] {
        if (!form_.Visible()) Q_EMIT finishedByForm();
    };
    if (form.defaultButton) {
        if (auto* button = findChild<QPushButton*>(toQt(form.defaultButton->name())))
            button->setDefault(true);
    }
}

FormDialog::~FormDialog() = default;

void FormDialog::run() {
    QEventLoop loop;
    connect(this, &FormDialog::finishedByForm, &loop, &QEventLoop::quit);
    show();
    // The focus is to be seen from the start, not only once Tab has moved it.
    setAttribute(Qt::WA_KeyboardFocusChange);
    loop.exec(QEventLoop::DialogExec);
    hide();
    // Where a message and its dialog close at once, some window managers leave nobody the focus.
    if (parentWidget()) parentWidget()->activateWindow();
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void FormDialog::reject() {
    binder_->actions.run([this] { form_.dismiss(); });
}

void FormDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

void FormDialog::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

}  // namespace headerdtc::qt
