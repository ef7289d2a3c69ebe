#include "core/handler.h"

#include "controls/keys.h"
#include "core/family_controls.h"
#include "platform/error_trap.h"
#include "platform/utf8.h"

#include <algorithm>
#include <string>
#include <utility>

namespace headerdtc {

void ChangedProperties::add(std::string property) {
    if (std::find(names_.begin(), names_.end(), property) == names_.end())
        names_.push_back(std::move(property));
}

void runHandler(HeaderDTC& dtc, std::string_view name,
                const std::function<void(ChangedProperties&)>& body) {
    ChangedProperties changed;
    trapErrors(dtc.surroundings.messages, name, [&] { body(changed); });
    trapErrors(dtc.surroundings.messages, name, [&] {
        for (const std::string& property : changed.names())
            dtc.PropertyChanged(property);
    });
}

void selectAfterRemoval(ListBox& list, int rememberedIndex) {
    if (list.ListCount() == 0) return;
    list.ListIndex(list.ListCount() <= rememberedIndex ? list.ListCount() - 1 : rememberedIndex);
    list.Selected(list.ListIndex(), true);
    list.SetFocus();
}

void removeSelected(ListBox& list) {
    for (int i = list.ListCount() - 1; i >= 0; --i) {
        if (list.Selected(i)) list.RemoveItem(i);
    }
}

void selectEqualItems(ComboBox& combo, const std::string& text) {
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (combo.List(i) == text) combo.ListIndex(i);
    }
}

void refreshFieldButtons(const ListBox& available, const ListBox& selected, Button& add,
                         Button& remove) {
    remove.Enabled(selected.ListCount() >= 1);
    add.Enabled(available.ListCount() >= 1);
}

bool moveItemUp(ListBox& list) {
    const int index = list.ListIndex();
    if (list.ListCount() < 1 || index < 1) return false;
    const std::string text = list.List(index);
    list.AddItem(text, index - 1);
    list.RemoveItem(index + 1);
    list.ListIndex(index - 1);
    return true;
}

bool moveItemDown(ListBox& list) {
    const int index = list.ListIndex();
    if (index < 0 || list.ListCount() < 2 || index >= list.ListCount() - 1) return false;
    const std::string text = list.List(index);
    list.AddItem(text, index + 2);
    list.RemoveItem(index);
    list.ListIndex(index + 1);
    return true;
}

bool GridNeedsScrollBar(const Grid& grid) {
    return grid.RowHeightMin() * grid.Rows() >= grid.Height();
}

ScrollBarRoom::ScrollBarRoom(Grid& grid, int column, int width)
    : grid_(grid), column_(column), width_(width), before_(GridNeedsScrollBar(grid)) {}

void ScrollBarRoom::adjust() {
    const bool now = GridNeedsScrollBar(grid_);
    if (now && !before_) grid_.ColWidth(column_, grid_.ColWidth(column_) - width_);
    if (!now && before_) grid_.ColWidth(column_, grid_.ColWidth(column_) + width_);
    before_ = now;
}

void moveAsterisk(Grid& grid, RowTracker& tracker, int row) {
    constexpr int MarkerColumn = 0;
    tracker.moveTo(row);
    const int previous = tracker.previous;
    if (previous >= 1 && previous < grid.Rows()) grid.TextMatrix(previous, MarkerColumn, "");
    grid.TextMatrix(tracker.current, MarkerColumn, "*");
}

bool isInAuthorsHands(const Control& control) {
    return control.hasFocus();
}

void startEditing(TextBox& editor, const std::string& cellText, int keyCode) {
    if (keyCode == key_code::Enter) {
        editor.Text(cellText);
        editor.SelStart(0);
        editor.SelLength(utf8::length(cellText));
    } else {
        editor.Text(utf8::encode(static_cast<char32_t>(keyCode)));
        editor.SelStart(1);
    }
}

void layOverCell(Control& editor, const Grid& grid) {
    editor.Width(grid.ColWidth(grid.Col()));
    editor.Move(grid.Left() + grid.CellLeft(), grid.Top() + grid.CellTop());
    editor.Visible(true);
    editor.SetFocus();
}

}  // namespace headerdtc
