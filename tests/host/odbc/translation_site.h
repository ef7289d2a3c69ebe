#pragma once

#include "core/header_dtc.h"
#include "i18n/field_translation.h"
#include "support/fake_surroundings.h"
#include "translation_database.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace headerdtc::testing {

// A control whose translations are in a real database, and an author who works in the dialogs.
class TranslationSite : public ::testing::Test {
  protected:
    TranslationSite() {
        outside.clock.today = "2024-01-02";
        dtc.UserControl_Initialize();
        dtc.dataProvider = "Orders";
        for (const char* entry : {"1 - ORDNO", "2 - STATUS"}) {
            dtc.ZEKO.I18NFieldnamesList.AddItem(entry);
            dtc.ZEKO.I18NFieldValuesList.AddItem(entry);
        }
        dtc.SSTab1.Tab(3);
    }

    using Script = std::function<void(Form&)>;
    void onNextDialog(Script script) { outside.modalLoop.scripts.push_back(std::move(script)); }

    template <class Kind>
    static Kind& control(Form& form, const char* name) {
        return dynamic_cast<Kind&>(*form.find(name));
    }
    static void press(Form& form, const char* name) { control<Button>(form, name).press(); }
    static Script pressing(const char* name) {
        return [name](Form& form) { press(form, name); };
    }
    static Grid& values(Form& form) { return control<Grid>(form, "I18NFieldValuesGrid"); }

    // Types a label and its text in the add-label dialog, and presses OK.
    Script addingLabel(const std::string& label, const std::string& text) {
        return [label, text](Form& form) {
            control<TextBox>(form, "LabelNameText").type(label);
            control<TextBox>(form, "LabelValueText").type(text);
            press(form, "OKButton");
        };
    }
    // The grid's row of a value.
    static int rowOf(Form& form, const std::string& value) {
        for (int row = 1; row < values(form).Rows(); ++row)
            if (values(form).TextMatrix(row, 1) == value) return row;
        throw std::runtime_error("no row for " + value);
    }
    static void enterValue(Form& form, int row, const std::string& value) {
        values(form).clickCell(row, 1);
        control<TextBox>(form, "EditText").type(value);
        values(form).clickCell(row, 3);
    }
    static void chooseLabel(Form& form, int row, const std::string& label) {
        values(form).clickCell(row, 2);
        control<ComboBox>(form, "LabelsCombo").choose(label);
    }
    // Opens the field-value dialog of ZEKO field STATUS.
    void openValues(Script script) {
        onNextDialog(std::move(script));
        dtc.ZEKO.I18NFieldValuesList.select({1}, 1);
    }

    Surroundings surroundings() {
        return {outside.messages, outside.fileDialog, outside.registry, outside.dataSources,
                database,         outside.textFiles,  outside.clock,    outside.changes};
    }

    TranslationDatabase translations;
    OdbcDatabase database{translations.settings};
    FakeSurroundings outside;
    HeaderDTC dtc{surroundings(), outside.modalLoop};
    FieldTranslation translation{dtc};
};

}  // namespace headerdtc::testing
