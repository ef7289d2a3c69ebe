#pragma once

#include "core/handler_tools.h"
#include "core/header_dtc.h"

namespace headerdtc::testing {

// As much behaviour of a family's tab as makes its widgets do something: fields go over with Add
// and a double click, criteria are edited in place.
class SmallBehaviours {
  public:
    explicit SmallBehaviours(FamilyControls& family) : family_(family) {
        chooseFields();
        editCriteria();
    }

  private:
    void chooseFields() {
        subscriptions_ += family_.AddField.Click.subscribe([this] { addSelected(); });
        subscriptions_ += family_.FieldsList.DblClick.subscribe([this] { addSelected(); });
        subscriptions_ += family_.MoveUpCommand.Click.subscribe(
            [this] { moveItemUp(family_.SelectedFieldsList); });
    }

    void addSelected() {
        ListBox& available = family_.FieldsList;
        const int focus = available.ListIndex();
        for (int i = 0; i < available.ListCount(); ++i) {
            if (available.Selected(i)) family_.SelectedFieldsList.AddItem(available.List(i));
        }
        for (int i = available.ListCount() - 1; i >= 0; --i) {
            if (available.Selected(i)) available.RemoveItem(i);
        }
        selectAfterRemoval(available, focus);
        refreshFieldButtons(available, family_.SelectedFieldsList, family_.AddField,
                            family_.RemoveField);
    }

    void editCriteria() {
        Grid& grid = family_.CriteriaGrid;
        const auto mark = [this, &grid] { moveAsterisk(grid, family_.criteriaRows, grid.Row()); };
        subscriptions_ += grid.EnterCell.subscribe(mark);
        subscriptions_ += grid.GotFocus.subscribe(mark);
        subscriptions_ += grid.KeyPress.subscribe([this](int code) { edit(code); });
        subscriptions_ += grid.Click.subscribe([this, &grid] {
            if (grid.Col() != criteria_column::Value) edit(key_code::Enter);
        });
        subscriptions_ += grid.DblClick.subscribe([this, &grid] {
            if (grid.Col() == criteria_column::Value) edit(key_code::Enter);
        });
        subscriptions_ += grid.Scroll.subscribe([this] {
            for (Control* editor : {static_cast<Control*>(&family_.KeyFieldsCombo),
                                    static_cast<Control*>(&family_.OperatorsCombo),
                                    static_cast<Control*>(&family_.KeyFieldValueText)})
                editor->Visible(false);
        });
        writeBack(family_.KeyFieldsCombo, criteria_column::Key);
        writeBack(family_.OperatorsCombo, criteria_column::Operator);
        writeBack(family_.KeyFieldValueText, criteria_column::Value);
        subscriptions_ +=
            family_.KeyFieldValueText.KeyDown.subscribe([this](int code, int) { keyDown(code); });
        subscriptions_ += family_.AddCriteriumCommand.Click.subscribe([&grid, mark] {
            grid.Rows(grid.Rows() + 1);
            grid.Row(grid.Rows() - 1);
            mark();
        });
    }

    void edit(int code) {
        Grid& grid = family_.CriteriaGrid;
        if (grid.Col() == criteria_column::Key) openCombo(family_.KeyFieldsCombo);
        if (grid.Col() == criteria_column::Operator) openCombo(family_.OperatorsCombo);
        if (grid.Col() != criteria_column::Value) return;
        TextBox& box = family_.KeyFieldValueText;
        const bool whole = code == key_code::Enter;
        box.Text(whole ? grid.Text() : std::string(1, static_cast<char>(code)));
        box.SelStart(whole ? 0 : 1);
        if (whole) box.SelLength(static_cast<int>(box.Text().size()));
        layOverCell(box, grid);
    }

    void openCombo(ComboBox& combo) {
        if (const int item = combo.find(family_.CriteriaGrid.Text()); item >= 0)
            combo.ListIndex(item);
        layOverCell(combo, family_.CriteriaGrid);
    }

    template <class Editor>
    void writeBack(Editor& editor, int column) {
        subscriptions_ += editor.LostFocus.subscribe([this, &editor, column] {
            family_.CriteriaGrid.TextMatrix(family_.criteriaRows.previous, column, editor.Text());
            editor.Visible(false);
        });
    }

    void keyDown(int code) {
        Grid& grid = family_.CriteriaGrid;
        if (code == key_code::Delete) family_.KeyFieldValueText.Text("");
        if (code == key_code::Enter || code == key_code::Down) grid.SetFocus();
        if (code == key_code::Down && grid.Row() < grid.Rows() - 1) grid.Row(grid.Row() + 1);
    }

    FamilyControls& family_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::testing
