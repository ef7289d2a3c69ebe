#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/text_box.h"
#include "core/family_controls.h"
#include "platform/dictionary.h"
#include "platform/surroundings.h"

#include <functional>
#include <string>

namespace headerdtc {

class TranslationStore;

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

// What is to become of a field value's translation on "OK".
enum class LedgerState : int {
    Unchanged = 0,  // loaded from the store
    Added = 1,      // added in this dialog
    Changed = 2,    // loaded, then its label changed, or deleted and entered again
    Deleted = 3,    // loaded, then deleted or replaced by another value in its cell
};

// The change ledger of the field-value dialog: value text -> state, in the order of adding.
class ChangeLedger {
  public:
    bool holds(const std::string& value) const { return entries_.Exists(value); }
    // The state of a value that the ledger holds.
    LedgerState state(const std::string& value) { return entries_.item(value); }
    void set(const std::string& value, LedgerState state) { entries_.assign(value, state); }
    // The value leaves the grid: one added here leaves no trace, any other is to be deleted.
    void drop(const std::string& value) {
        if (!holds(value)) return;
        if (state(value) == LedgerState::Added) {
            entries_.Remove(value);
        } else {
            set(value, LedgerState::Deleted);
        }
    }
    // The value got another label.
    void relabel(const std::string& value) {
        const bool added = holds(value) && state(value) == LedgerState::Added;
        set(value, added ? LedgerState::Added : LedgerState::Changed);
    }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

  private:
    Dictionary<LedgerState> entries_;
};

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
