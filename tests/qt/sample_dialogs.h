#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/text_box.h"

// Dialog forms with the controls of the real ones and no behaviour but OK and Cancel.
namespace headerdtc::testing {

struct SampleDialog {
    SampleDialog(Desktop& desktop, const char* name, const char* caption)
        : form(desktop, name, Form::Kind::Dialog, caption) {}

    void closeBy(Button& ok, Button& cancel) {
        form.defaultButton = &ok;
        form.cancelButton = &cancel;
        subscriptions += ok.Click.subscribe([this] {
            accepted = true;
            form.Hide();
        });
        subscriptions += cancel.Click.subscribe([this] { form.Hide(); });
    }

    Form form;
    bool accepted = false;
    Subscriptions subscriptions;
};

struct SampleCriteriumDialog : SampleDialog {
    explicit SampleCriteriumDialog(Desktop& desktop)
        : SampleDialog(desktop, "SpecifyCriteriumDialog", "Specify script") {
        NameText.labelled("Name:");
        ScriptBodyText.labelled("Script body:");
        ScriptText.labelled("Overview:");
        ScriptText.Locked(true);
        closeBy(OKButton, CancelButton);
        form.defaultButton = nullptr;
    }

    TextBox NameText{form, "NameText"};
    TextBox ScriptBodyText{form, "ScriptBodyText", TextBox::Lines::Multiple};
    TextBox ScriptText{form, "ScriptText", TextBox::Lines::Multiple};
    OptionGroup kinds;
    OptionButton IncludedScriptOption{form, "IncludedScriptOption", "Included script", kinds};
    OptionButton LocalScriptOption{form, "LocalScriptOption", "Local script", kinds};
    OptionButton ConstantOption{form, "ConstantOption", "Constant", kinds};
    Button OKButton{form, "OKButton", "OK"};
    Button CancelButton{form, "CancelButton", "Cancel"};
};

struct SampleQuestionDialog : SampleDialog {
    explicit SampleQuestionDialog(Desktop& desktop)
        : SampleDialog(desktop, "AddI18NFieldQuestionDialog", "Question") {
        QuestionTextLabel.Caption("Do you want to add the translation for field 'CUSTNO'?");
        closeBy(OKButton, CancelButton);
    }

    Label QuestionTextLabel{form, "QuestionTextLabel"};
    Button OKButton{form, "OKButton", "Yes"};
    Button CancelButton{form, "CancelButton", "No"};
};

struct SampleLabelDialog : SampleDialog {
    explicit SampleLabelDialog(Desktop& desktop)
        : SampleDialog(desktop, "AddLabelDialog", "Add label") {
        LabelNameText.labelled("Label:");
        LabelValueText.labelled("Value (English):");
        closeBy(OKButton, CancelButton);
    }

    TextBox LabelNameText{form, "LabelNameText"};
    TextBox LabelValueText{form, "LabelValueText"};
    Button OKButton{form, "OKButton", "OK"};
    Button CancelButton{form, "CancelButton", "Cancel"};
};

struct SampleFieldnameDialog : SampleDialog {
    explicit SampleFieldnameDialog(Desktop& desktop)
        : SampleDialog(desktop, "SpecifyI18NFieldnameDialog", "Specify translation") {
        FieldNameText.labelled("Fieldname:");
        LabelsCombo.labelled("Label:");
        TranslationText.labelled("Translation (USA English):");
        TranslationText.Locked(true);
        closeBy(OKButton, CancelButton);
    }

    TextBox FieldNameText{form, "FieldNameText"};
    ComboBox LabelsCombo{form, "LabelsCombo", ComboBox::Style::Editable};
    TextBox TranslationText{form, "TranslationText"};
    Button AddLabelCommand{form, "AddLabelCommand", "Add label..."};
    Button OKButton{form, "OKButton", "OK"};
    Button CancelButton{form, "CancelButton", "Cancel"};
};

struct SampleFieldValueDialog : SampleDialog {
    explicit SampleFieldValueDialog(Desktop& desktop)
        : SampleDialog(desktop, "SpecifyI18NFieldValueDialog", "Specify translation") {
        FieldNameText.labelled("Fieldname:");
        I18NFieldValuesGrid.labelled("Values:").placed(120, 840, 7200, 2850);
        I18NFieldValuesGrid.RowHeightMin(315);
        const int widths[] = {250, 1300, 1350, 4100};
        const char* headers[] = {"", "Value", "Label", "Translation"};
        for (int column = 0; column < 4; ++column) {
            I18NFieldValuesGrid.ColWidth(column, widths[column]);
            I18NFieldValuesGrid.TextMatrix(0, column, headers[column]);
        }
        EditText.Visible(false);
        LabelsCombo.Visible(false);
        closeBy(OKButton, CancelButton);
        form.defaultButton = nullptr;
    }

    TextBox FieldNameText{form, "FieldNameText"};
    Grid I18NFieldValuesGrid{form, "I18NFieldValuesGrid", 4};
    TextBox EditText{form, "EditText"};
    ComboBox LabelsCombo{form, "LabelsCombo", ComboBox::Style::Editable};
    Button AddCommand{form, "AddCommand", "Add"};
    Button DeleteCommand{form, "DeleteCommand", "Delete"};
    Button AddLabelCommand{form, "AddLabelCommand", "Add label..."};
    Button OKButton{form, "OKButton", "OK"};
    Button CancelButton{form, "CancelButton", "Cancel"};
};

}  // namespace headerdtc::testing
