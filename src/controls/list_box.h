#pragma once

#include "controls/control.h"
#include "controls/list_items.h"

#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

// A list box. Item positions are 0-based, 16-bit signed, -1 for none. An index that is not there
// raises 381 and leaves the list unchanged.
//
// In a single-selection list the item at ListIndex is the selected one. In a multi-selection list
// ListIndex is the item with the focus rectangle, which need not be selected.
class ListBox : public Control {
  public:
    // Toggled: a multi-selection list in which each click or key marks or unmarks one item. A key
    // that leads to another item moves the focus there and leaves the marks alone.
    enum class Selection { Single, Multiple, Toggled };

    ListBox(Form& form, std::string name, Selection selection);
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    bool isMultiSelect() const { return selection_ != Selection::Single; }
    bool isToggled() const { return selection_ == Selection::Toggled; }

    // For views, which may ask for what is not there.
    const ListItems& items() const { return items_; }

    // ---- what a program does ---------------------------------------------------------------
    int ListCount() const { return items_.count(); }
    const std::string& List(int index) const { return items_.at(index).text; }
    void List(int index, const std::string& text);
    // The item's text, or an empty text for an index that is not there.
    std::string ListOrEmpty(int index) const;
    // Appends, or inserts before the item at `index` (ListCount appends). Raises 6 when full.
    void AddItem(std::string text) { AddItem(std::move(text), ListCount()); }
    void AddItem(std::string text, int index);
    // When the item at ListIndex is removed, ListIndex becomes -1; it follows its item otherwise.
    void RemoveItem(int index);
    void Clear();

    int ListIndex() const { return listIndex_; }
    // -1 takes the focus rectangle away. Raises Click, also when the index stays the same; raises
    // 380 for an item that is not there.
    void ListIndex(int index);
    bool Selected(int index) const { return items_.at(index).selected; }
    // Raises no event. In a single-selection list selecting moves ListIndex too.
    void Selected(int index, bool selected);
    // The same for several items of a multi-selection list, told to the views once.
    void Selected(const std::vector<int>& indices, bool selected);
    int SelCount() const { return selCount_; }
    // The item at ListIndex, empty when there is none.
    std::string Text() const { return ListOrEmpty(listIndex_); }
    // Index of the first equal item, -1 for none (exact comparison).
    int find(const std::string& text) const { return items_.find(text); }
    // The same for several texts; one that stands there twice is the first and the second equal
    // item.
    std::vector<int> find(const std::vector<std::string>& texts) const;

    // ---- what a person does ----------------------------------------------------------------
    // Makes exactly these items the selected ones, with the focus on `focusItem` (-1 for none);
    // one Click. In a single-selection list they are one and the same item.
    void select(const std::vector<int>& items, int focusItem);
    // Selects the item alone: Click, then DblClick, unless the first press opened a dialog, which
    // takes the second one.
    void doubleClick(int item);
    // Moves the focus to an item of a Toggled list; no event.
    void focusItem(int item);
    // A double click on the empty area: selection and index stay as they are.
    void doubleClickEmptyArea();
    // Arrows and first characters select another item alone, in a Toggled list only move the focus
    // there; the blank selects and deselects the item with the focus of a multi-selection list.
    // Click when the selection changed.
    void press(const Key& key) override;

    // ---- events ----------------------------------------------------------------------------
    Event<> Click;
    Event<> DblClick;
    // For views: items will come or go; items came, went or are others. Selection and ListIndex
    // follow their items; selectionChanged is not raised for that.
    Event<const ItemsChange&> itemsChanging, itemsChanged;
    // For views: the selection or ListIndex is another.
    Event<> selectionChanged;

  private:
    void requireItem(int item) const;
    void mark(int index, bool selected);
    void selectNone();
    void selectOnly(const std::vector<int>& items, int focusItem);
    void moveTo(int item);
    void selectByKey(const std::vector<int>& items, int focusItem);
    int itemReachedBy(const Key& key) const;

    Selection selection_;
    ListItems items_;
    int listIndex_ = -1;
    int selCount_ = 0;
};

}  // namespace headerdtc
