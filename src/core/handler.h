#pragma once

#include "controls/event.h"
#include "core/header_dtc.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A group of handlers that listens to one control, for as long as this is kept.
using Behaviour = std::shared_ptr<void>;

// The stored properties that one run of a handler has changed, by their public names.
class ChangedProperties {
  public:
    void add(std::string property);
    const std::vector<std::string>& names() const { return names_; }

  private:
    std::vector<std::string> names_;  // in the order of the first change, each once
};

// Runs a handler's body under the error trap, which reports a failure under the handler's name,
// and then gives the host a notice of each property that the body changed. The notices come last
// so that the host finds the controls as the handler leaves them, and they come after a failure
// too, because what was changed until then stays changed.
void runHandler(HeaderDTC& dtc, std::string_view name,
                const std::function<void(ChangedProperties&)>& body);

// What subscribes an owner's member functions as the handlers of one family's controls: called with
// an event, a role and the function. A handler's full name is the family's prefix and the role,
// such as "AddField_Click".
template <class Owner>
auto handlersOf(HeaderDTC& dtc, FamilyControls& family, Owner* owner, Subscriptions& kept) {
    return [&dtc, &family, owner, &kept]<class... Args>(
               Event<Args...>& event, std::string_view role,
               void (Owner::*body)(FamilyControls&, ChangedProperties&, Args...)) {
        kept += event.subscribe(
            [&dtc, &family, name = familyName(family.family, role), owner, body](Args... args) {
                runHandler(dtc, name, [&](ChangedProperties& changed) {
                    (owner->*body)(family, changed, args...);
                });
            });
    };
}

class Button;
class ComboBox;
class Control;
class Grid;
class ListBox;
class TextBox;
struct RowTracker;

// Small steps that handlers of several rooms share.

// Selection after a removal from a list, given a remembered index: nothing when the list is
// empty; otherwise ListIndex becomes the last item when the list is now too short for the index,
// else the index; that item is marked selected and the list gets the focus. Raises 381 for an
// index of -1.
void selectAfterRemoval(ListBox& list, int rememberedIndex);

// Removes every selected item, from the last to the first.
void removeSelected(ListBox& list);

// Selects every equal item, one after the other, so that the last one stays; without one the combo
// keeps what it shows.
void selectEqualItems(ComboBox& combo, const std::string& text);

// Remove is enabled when something is selected, Add when something is available.
void refreshFieldButtons(const ListBox& available, const ListBox& selected, Button& add,
                         Button& remove);

// Move up: the item at ListIndex, and no other, goes one place up and keeps the index. Tells
// whether it moved; moveItemDown is its mirror.
bool moveItemUp(ListBox& list);
bool moveItemDown(ListBox& list);

// True when a grid's rows no longer fit: RowHeightMin * Rows is at least Height.
bool GridNeedsScrollBar(const Grid& grid);

// Makes room for a grid's scroll bar: remembers whether the grid needs one and, when adjust() finds
// that changed, narrows or widens a column by the bar's width in twips.
class ScrollBarRoom {
  public:
    ScrollBarRoom(Grid& grid, int column, int width);
    void adjust();

  private:
    Grid& grid_;
    int column_;
    int width_;
    bool before_;
};

// Moves the "*" of a grid: the tracker takes the row, the marker column of the row left behind is
// emptied when that is a data row still there, and the row gets the "*".
void moveAsterisk(Grid& grid, RowTracker& tracker, int row);

// Whether a control changes because the author acts on it, which is so while it has the focus. The
// same events come when a page is loaded, where nothing of the page changes, and when a public
// property is written, which gives its own notice.
bool isInAuthorsHands(const Control& control);

// Gives an in-place editor its text: Enter (13) that of the cell, all of it selected; another key
// code starts a text with its character.
void startEditing(TextBox& editor, const std::string& cellText, int keyCode);

// Lays an in-place editor over the grid's current cell, as wide as its column, shows it and gives
// it the focus.
void layOverCell(Control& editor, const Grid& grid);

}  // namespace headerdtc
