#include "core/handler.h"
#include "i18n/translation_dialogs.h"
#include "i18n/translation_store.h"
#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace headerdtc {
namespace {

// Columns of the grid.
constexpr int Value = 1, LabelColumn = 2, Translation = 3, ColumnCount = 4;
constexpr const char* Headers[] = {"", "Value", "Label", "Translation"};

// Twips.
constexpr int FixedColumnWidths[] = {250, 1300, 1350};
constexpr int WidthBesideTranslation = 3100;
constexpr int ScrollBarWidth = 300;
constexpr int GridWidth = 7200, GridHeight = 2850, RowHeight = 315;

// Unlike the grids of the tabs this one fits when its rows just fill its height.
bool rowsOverflow(const Grid& grid) {
    return grid.Rows() * grid.RowHeightMin() > grid.Height();
}

}  // namespace

SpecifyI18NFieldValueDialog::SpecifyI18NFieldValueDialog(Desktop& desktop,
                                                         const Surroundings& surroundings,
                                                         TranslationStore& store,
                                                         std::function<void()> showAddLabel)
    : form(desktop, "SpecifyI18NFieldValueDialog", Form::Kind::Dialog, "Specify translation"),
      FieldNameText(form, "FieldNameText"),
      I18NFieldValuesGrid(form, "I18NFieldValuesGrid", ColumnCount),
      EditText(form, "EditText"),
      LabelsCombo(form, "LabelsCombo", ComboBox::Style::Editable),
      AddCommand(form, "AddCommand", "Add"),
      DeleteCommand(form, "DeleteCommand", "Delete"),
      AddLabelCommand(form, "AddLabelCommand", "Add label..."),
      OKButton(form, "OKButton", "OK"),
      CancelButton(form, "CancelButton", "Cancel"),
      surroundings_(surroundings),
      store_(store),
      showAddLabel_(std::move(showAddLabel)) {
    FieldNameText.labelled("Fieldname:");
    I18NFieldValuesGrid.labelled("Values:").placed(120, 840, GridWidth, GridHeight);
    I18NFieldValuesGrid.RowHeightMin(RowHeight);
    EditText.Visible(false);
    LabelsCombo.Visible(false);
    form.cancelButton = &CancelButton;
    subscribe();
    Form_Load();
}

void SpecifyI18NFieldValueDialog::subscribe() {
    Grid& grid = I18NFieldValuesGrid;
    subscriptions_ += grid.Click.subscribe([this, &grid] {
        trap("I18NFieldValuesGrid_Click",
             [&] { I18NFieldValuesGrid_Edit(grid.Row(), grid.Col(), key_code::Enter); });
    });
    subscriptions_ += grid.KeyPress.subscribe([this, &grid](int keyCode) {
        trap("I18NFieldValuesGrid_KeyPress",
             [&] { I18NFieldValuesGrid_Edit(grid.Row(), grid.Col(), keyCode); });
    });
    subscriptions_ += grid.RowColChange.subscribe([this, &grid] { MoveAsterisk(grid.Row()); });
    subscriptions_ += EditText.LostFocus.subscribe([this] { EditText_LostFocus(); });
    subscriptions_ += LabelsCombo.Click.subscribe([this] {
        if (!preselecting_) LabelsCombo_Click();
    });
    subscriptions_ += AddCommand.Click.subscribe([this] { AddCommand_Click(); });
    subscriptions_ += DeleteCommand.Click.subscribe([this] { DeleteCommand_Click(); });
    subscriptions_ += AddLabelCommand.Click.subscribe([this] { AddLabelCommand_Click(); });
    subscriptions_ += OKButton.Click.subscribe([this] { OKButton_Click(); });
    subscriptions_ += CancelButton.Click.subscribe(
        [this] { trap("CancelButton_Click", [this] { form.Hide(); }); });
}

template <class Body>
void SpecifyI18NFieldValueDialog::trap(const char* procedure, Body body) {
    trapErrors(surroundings_.messages, procedure, body);
}

void SpecifyI18NFieldValueDialog::Form_Load() {
    Grid& grid = I18NFieldValuesGrid;
    for (int column = 0; column < Translation; ++column)
        grid.ColWidth(column, FixedColumnWidths[column]);
    grid.ColWidth(Translation, grid.Width() - WidthBesideTranslation);
}

void SpecifyI18NFieldValueDialog::Init() {
    trap("Init", [this] {
        EditText.Visible(false);
        LabelsCombo.Visible(false);
        Grid& grid = I18NFieldValuesGrid;
        grid.Clear();
        LabelsCombo.Clear();
        grid.Rows(2);
        grid.Row(1);
        clearGrid();
        // The column widths too: an earlier opening may have made room for its scroll bar.
        Form_Load();
        marker_ = {};
        ledger_ = {};
        for (const auto& label : store_.ListRangeLabels())
            LabelsCombo.AddItem(label);
        loadTranslations();
        MoveAsterisk(grid.Row());
    });
}

void SpecifyI18NFieldValueDialog::loadTranslations() {
    Grid& grid = I18NFieldValuesGrid;
    int row = 1;
    for (const auto& translation :
         store_.ListFieldValueTranslations(ProviderName, BisType, FieldNameText.Text())) {
        if (row == grid.Rows()) grid.Rows(row + 1);
        ledger_.set(translation.value, LedgerState::Unchanged);
        grid.TextMatrix(row, Value, translation.value);
        grid.TextMatrix(row, LabelColumn, translation.label);
        grid.TextMatrix(row, Translation, translation.text);
        ++row;
    }
}

void SpecifyI18NFieldValueDialog::clearGrid() {
    Grid& grid = I18NFieldValuesGrid;
    grid.Clear();
    for (int column = Value; column <= Translation; ++column)
        grid.TextMatrix(0, column, Headers[column]);
}

void SpecifyI18NFieldValueDialog::MoveAsterisk(int row) {
    trap("MoveAsterisk", [&] { moveAsterisk(I18NFieldValuesGrid, marker_, row); });
}

void SpecifyI18NFieldValueDialog::I18NFieldValuesGrid_Edit(int row, int column, int keyCode) {
    trap("I18NFieldValuesGrid_Edit", [&] {
        if (column == Value) return editValue(cell(row, Value), keyCode);
        if (column != LabelColumn) return;
        if (cell(row, Value).empty()) return surroundings_.messages.show("Enter a value first...");
        editLabel(cell(row, LabelColumn), keyCode);
    });
}

void SpecifyI18NFieldValueDialog::editValue(const std::string& cellText, int keyCode) {
    layOverCell(EditText, I18NFieldValuesGrid);
    startEditing(EditText, cellText, keyCode);
}

void SpecifyI18NFieldValueDialog::editLabel(const std::string& cellText, int keyCode) {
    preselecting_ = true;
    if (keyCode == key_code::Enter) {
        LabelsCombo.ListIndex(LabelsCombo.find(cellText));
    } else {
        LabelsCombo.Text(utf8::encode(static_cast<char32_t>(keyCode)));
        LabelsCombo.SelStart(1);
    }
    preselecting_ = false;
    layOverCell(LabelsCombo, I18NFieldValuesGrid);
}

// Reports under the name of the handler that it was modelled on.
void SpecifyI18NFieldValueDialog::EditText_LostFocus() {
    trap("EAIKeyFieldValueText_LostFocus", [this] {
        const std::string value = EditText.Text();
        const int row = editedRow();
        if (value != cell(row, Value)) {
            applyValue(row, value);
            EditText.Text("");
        }
        EditText.Visible(false);
    });
}

void SpecifyI18NFieldValueDialog::applyValue(int row, const std::string& value) {
    if (ledger_.holds(value)) {
        // A deleted value typed again is a change of its row in the store; the cell, and the value
        // that it showed, stay as they are.
        if (ledger_.state(value) == LedgerState::Deleted) {
            ledger_.set(value, LedgerState::Changed);
        } else {
            surroundings_.messages.show("Value is already translated");
        }
        return;
    }
    ledger_.drop(cell(row, Value));
    ledger_.set(value, LedgerState::Added);
    I18NFieldValuesGrid.TextMatrix(row, Value, value);
}

void SpecifyI18NFieldValueDialog::LabelsCombo_Click() {
    trap("LabelsCombo_Click", [this] {
        const int row = editedRow();
        const std::string value = cell(row, Value);
        if (!value.empty()) {
            ledger_.relabel(value);
            I18NFieldValuesGrid.TextMatrix(row, LabelColumn, LabelsCombo.Text());
        }
        LabelsCombo.Visible(false);
        UpdateTranslation();
    });
}

void SpecifyI18NFieldValueDialog::UpdateTranslation() {
    trap("UpdateTranslation", [this] {
        const int row = editedRow();
        I18NFieldValuesGrid.TextMatrix(
            row, Translation, store_.LabelText(cell(row, LabelColumn)).value_or("<EMPTY>"));
    });
}

void SpecifyI18NFieldValueDialog::UpdateLabels() {
    trap("UpdateLabels", [this] {
        for (const auto& label : store_.ListLabels())
            LabelsCombo.AddItem(label);
    });
}

void SpecifyI18NFieldValueDialog::AddCommand_Click() {
    trap("AddCommand_Click", [this] {
        Grid& grid = I18NFieldValuesGrid;
        const bool overflowed = rowsOverflow(grid);
        grid.Rows(grid.Rows() + 1);
        grid.Row(grid.Rows() - 1);
        if (rowsOverflow(grid) && !overflowed)
            grid.ColWidth(Translation, grid.ColWidth(Translation) - ScrollBarWidth);
        MoveAsterisk(grid.Row());
    });
}

void SpecifyI18NFieldValueDialog::DeleteCommand_Click() {
    trap("DeleteCommand_Click", [this] {
        Grid& grid = I18NFieldValuesGrid;
        const int row = marker_.current;
        if (row < 1 || row > grid.Rows() - 1) return;
        const bool overflowed = rowsOverflow(grid);
        ledger_.drop(cell(row, Value));
        if (grid.Rows() > grid.FixedRows() + 1) {
            grid.RemoveItem(row);
        } else {
            clearGrid();
        }
        if (overflowed && !rowsOverflow(grid))
            grid.ColWidth(Translation, grid.ColWidth(Translation) + ScrollBarWidth);
        MoveAsterisk(grid.Row());
    });
}

// Reports under the name of the one-step add.
void SpecifyI18NFieldValueDialog::AddLabelCommand_Click() {
    trap("AddButton_Click", [this] {
        showAddLabel_();
        UpdateLabels();
    });
}

void SpecifyI18NFieldValueDialog::OKButton_Click() {
    trap("OKButton_Click", [this] {
        const std::string fieldname(trimBlanks(FieldNameText.Text()));
        for (const auto& [value, state] : ledger_) {
            if (state == LedgerState::Deleted)
                store_.DeleteFieldValueTranslation(ProviderName, BisType, fieldname, value);
        }
        for (int row = 1; row < I18NFieldValuesGrid.Rows(); ++row) {
            const std::string& value = cell(row, Value);
            const std::string& label = cell(row, LabelColumn);
            if (!ledger_.holds(value)) continue;
            const LedgerState state = ledger_.state(value);
            if (state == LedgerState::Added)
                store_.InsertFieldValueTranslation(ProviderName, BisType, fieldname, value, label);
            if (state == LedgerState::Changed)
                store_.ChangeFieldValueTranslation(ProviderName, BisType, fieldname, value, label);
        }
        form.Hide();
    });
}

void SpecifyI18NFieldValueDialog::AddButton_Click() {
    trap("AddButton_Click", [this] {
        const int row = I18NFieldValuesGrid.Row();
        store_.AddFieldValueInOneStep(ProviderName, BisType, FieldNameText.Text(), cell(row, 0),
                                      cell(row, 1), cell(row, 2));
        form.Hide();
    });
}

int SpecifyI18NFieldValueDialog::editedRow() const {
    return marker_.current < 0 ? I18NFieldValuesGrid.Row() : marker_.current;
}

const std::string& SpecifyI18NFieldValueDialog::cell(int row, int column) const {
    return I18NFieldValuesGrid.TextMatrix(row, column);
}

}  // namespace headerdtc
