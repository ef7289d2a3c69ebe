#include "editor/criteria_editors.h"

#include "controls/keys.h"
#include "core/handler_tools.h"
#include "editor/criteria_cells.h"
#include "editor/criteria_traits.h"
#include "platform/error_trap.h"
#include "platform/utf8.h"

namespace headerdtc {
namespace {

// The last equal item wins; without one the combo keeps what it shows.
void selectEqualItem(ComboBox& combo, const std::string& text) {
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (combo.List(i) == text) combo.ListIndex(i);
    }
}

}  // namespace

CriteriaEditors::CriteriaEditors(HeaderDTC& dtc) : dtc_(dtc) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        const auto add = [&](auto& event, std::string_view role, auto body) {
            subscriptions_ += handle(event, dtc, family, role, this, body);
        };
        add(family.KeyFieldsCombo.LostFocus, "KeyFieldsCombo_LostFocus",
            &CriteriaEditors::KeyFieldsCombo_LostFocus);
        add(family.OperatorsCombo.LostFocus, "OperatorsCombo_LostFocus",
            &CriteriaEditors::OperatorsCombo_LostFocus);
        add(family.KeyFieldValueText.LostFocus, "KeyFieldValueText_LostFocus",
            &CriteriaEditors::KeyFieldValueText_LostFocus);
        add(family.KeyFieldValueText.KeyDown, "KeyFieldValueText_KeyDown",
            &CriteriaEditors::KeyFieldValueText_KeyDown);
        add(family.KeyFieldValueText.KeyPress, "KeyFieldValueText_KeyPress",
            &CriteriaEditors::KeyFieldValueText_KeyPress);
    }
}

void CriteriaEditors::CriteriaGridEdit(FamilyControls& family, int column, int keyCode) {
    trapErrors(dtc_.surroundings.messages, "CriteriaGridEdit", [&] {
        switch (column) {
            case criteria_column::Key:
                return openCombo(family.KeyFieldsCombo, family.CriteriaGrid, keyCode);
            case criteria_column::Operator:
                return openCombo(family.OperatorsCombo, family.CriteriaGrid, keyCode);
            case criteria_column::Value:
                return openValueBox(family, keyCode);
            default:
                return;
        }
    });
}

void CriteriaEditors::openCombo(ComboBox& combo, const Grid& grid, int keyCode) {
    if (keyCode == key_code::Enter) selectEqualItem(combo, grid.Text());
    layOverCell(combo, grid);
}

// The Del key is the page editor's command to delete the whole control, hence the warning, which
// each family gives once.
void CriteriaEditors::openValueBox(FamilyControls& family, int keyCode) {
    if (family.warnAboutDeleteKey) {
        dtc_.surroundings.messages.show(
            "Don't push the 'Del' button, for it will throw away the entire DTC");
        family.warnAboutDeleteKey = false;
    }
    TextBox& box = family.KeyFieldValueText;
    if (keyCode == key_code::Enter) {
        const std::string& text = family.CriteriaGrid.Text();
        box.Text(text);
        box.SelStart(0);
        box.SelLength(utf8::length(text));
    } else {
        box.Text(utf8::encode(static_cast<char32_t>(keyCode)));
        box.SelStart(1);
    }
    layOverCell(box, family.CriteriaGrid);
}

void CriteriaEditors::hide(FamilyControls& family) {
    family.KeyFieldValueText.Visible(false);
    family.KeyFieldsCombo.Visible(false);
    family.OperatorsCombo.Visible(false);
}

void CriteriaEditors::KeyFieldsCombo_LostFocus(FamilyControls& family, ChangedProperties& changed) {
    auto& row = family.criteriaRows.previous;
    if (row < 0) row = static_cast<std::int16_t>(family.CriteriaGrid.Row());
    const bool missing = row > family.CriteriaGrid.Rows() - 1;
    if (!missing || !criteriaTraitsOf(family.family).dropsKeyOfMissingRow) {
        setCriteriaCell(dtc_, family, row, criteria_column::Key, family.KeyFieldsCombo.Text(),
                        changed);
    }
    family.KeyFieldsCombo.Visible(false);
}

void CriteriaEditors::OperatorsCombo_LostFocus(FamilyControls& family, ChangedProperties& changed) {
    setCriteriaCell(dtc_, family, family.criteriaRows.previous, criteria_column::Operator,
                    family.OperatorsCombo.Text(), changed);
    family.OperatorsCombo.Visible(false);
}

void CriteriaEditors::KeyFieldValueText_LostFocus(FamilyControls& family,
                                                  ChangedProperties& changed) {
    setCriteriaCell(dtc_, family, family.criteriaRows.previous, criteria_column::Value,
                    family.KeyFieldValueText.Text(), changed);
    family.KeyFieldValueText.Text("");
    family.KeyFieldValueText.Visible(false);
}

// Escape does not take the edit back: hiding the box takes its focus, and losing the focus writes
// its text like any other way of leaving.
void CriteriaEditors::KeyFieldValueText_KeyDown(FamilyControls& family, ChangedProperties&,
                                                int keyCode, int) {
    Grid& grid = family.CriteriaGrid;
    switch (keyCode) {
        case key_code::Enter:
            grid.SetFocus();
            break;
        case key_code::Escape:
            family.KeyFieldValueText.Visible(false);
            grid.SetFocus();
            break;
        case key_code::Up:
            grid.SetFocus();
            if (grid.Row() > grid.FixedRows()) grid.Row(grid.Row() - 1);
            break;
        case key_code::Down:
            grid.SetFocus();
            if (grid.Row() < grid.Rows() - 1) grid.Row(grid.Row() + 1);
            break;
        case key_code::Delete:
            family.KeyFieldValueText.Text("");
            break;
        default:
            break;
    }
}

// Enter has been dealt with; left alone it would beep.
void CriteriaEditors::KeyFieldValueText_KeyPress(FamilyControls&, ChangedProperties&,
                                                 int& keyCode) {
    if (keyCode == key_code::Enter) keyCode = 0;
}

}  // namespace headerdtc
