#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "core/family_controls.h"
#include "i18n/change_ledger.h"
#include "platform/surroundings.h"

#include <functional>
#include <string>

namespace headerdtc {

class TranslationStore;

// The dialog in which an author translates the values of one field. One shared instance; Init
// resets it for each opening. Changes stay in the ledger until "OK" writes the differences.
class SpecifyI18NFieldValueDialog {
  public:
    // showAddLabel opens the add-label dialog modally.
    SpecifyI18NFieldValueDialog(Desktop& desktop, const Surroundings& surroundings,
                                TranslationStore& store, std::function<void()> showAddLabel);

    Form form;
    TextBox FieldNameText;
    Grid I18NFieldValuesGrid;
    // Floating editors of the grid's columns 1 and 2, hidden at rest.
    TextBox EditText;
    ComboBox LabelsCombo;
    Button AddCommand, DeleteCommand, AddLabelCommand, OKButton, CancelButton;

    std::string ProviderName;
    std::string BisType;  // the family's tag

    // Clears and loads grid, label list and ledger for FieldNameText, ProviderName and BisType.
    void Init();
    // Adds the current row's value, label and text in one transaction. No control triggers it.
    void AddButton_Click();

  private:
    template <class Body>
    void trap(const char* procedure, Body body);
    void subscribe();
    void Form_Load();
    void loadTranslations();
    void clearGrid();
    void MoveAsterisk(int row);
    void I18NFieldValuesGrid_Edit(int row, int column, int keyCode);
    void editValue(const std::string& cellText, int keyCode);
    void editLabel(const std::string& cellText, int keyCode);
    void EditText_LostFocus();
    void applyValue(int row, const std::string& value);
    void LabelsCombo_Click();
    void UpdateTranslation();
    void UpdateLabels();
    void AddCommand_Click();
    void DeleteCommand_Click();
    void AddLabelCommand_Click();
    void OKButton_Click();

    // The marked row, or the grid's current row when none is marked yet.
    int editedRow() const;
    const std::string& cell(int row, int column) const;

    const Surroundings& surroundings_;
    TranslationStore& store_;
    std::function<void()> showAddLabel_;
    ChangeLedger ledger_;
    RowTracker marker_;
    // The program is preselecting a label; that is no choice of the author.
    bool preselecting_ = false;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
