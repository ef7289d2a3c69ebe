#pragma once

#include "controls/control.h"
#include "controls/editable_text.h"
#include "controls/list_items.h"

#include <string>
#include <utility>

namespace headerdtc {

// A combo box: a text and a list that drops down. Item positions are 0-based, 16-bit signed, -1
// for none. An index that is not there raises 381 and leaves the combo unchanged.
class ComboBox : public Control {
  public:
    // A drop-down list shows one of its items or nothing; an editable one takes any text.
    enum class Style { DropDownList, Editable };

    ComboBox(Form& form, std::string name, Style style);
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    bool isEditable() const { return style_ == Style::Editable; }

    // For views, which may ask for what is not there.
    const ListItems& items() const { return items_; }

    // ---- what a program does ---------------------------------------------------------------
    int ListCount() const { return items_.count(); }
    const std::string& List(int index) const { return items_.at(index).text; }
    // The text follows when the item is the one at ListIndex.
    void List(int index, const std::string& text);
    // Appends, or inserts before the item at `index` (ListCount appends). Raises 6 when full.
    void AddItem(std::string text) { AddItem(std::move(text), ListCount()); }
    void AddItem(std::string text, int index);
    // When the item at ListIndex is removed, ListIndex becomes -1 and the text empty; ListIndex
    // follows its item otherwise.
    void RemoveItem(int index);
    // Empties the list and the text.
    void Clear();

    int ListIndex() const { return listIndex_; }
    // Selects an item, or none (-1), and makes it the text. Raises Click, also when the index
    // stays the same; raises 380 for an item that is not there.
    void ListIndex(int index);
    const std::string& Text() const { return content_.text(); }
    // Editable: raises Change when the text becomes another; ListIndex becomes -1. Drop-down
    // list: selects the first equal item like ListIndex, none for an empty text; raises 380 when
    // there is no such item.
    void Text(const std::string& text);
    // Selection in the text of an editable combo, in characters from 0.
    int SelStart() const { return content_.selStart(); }
    // Positions beyond the text are moved to its end; negative ones raise 380.
    void SelStart(int position);
    int SelLength() const { return content_.selLength(); }
    void SelLength(int length);
    // Index of the first equal item, -1 for none (exact comparison).
    int find(const std::string& text) const { return items_.find(text); }

    // ---- what a person does ----------------------------------------------------------------
    // Picks an item of the list, or the first one of that text.
    void choose(int item);
    void choose(const std::string& text);
    // Replaces the text of an editable combo.
    void type(const std::string& text);
    // Up and Down pick the item beside; other keys raise KeyPress and then act on the text, or
    // pick the next item with that first character.
    void press(const Key& key) override;
    // For windows whose own widget edits: keyPress() before a key acts, edited() with the text that
    // the widget has then.
    bool keyPress(const Key& key);
    void edited(const std::string& text, int selStart, int selLength);

    // ---- events ----------------------------------------------------------------------------
    Event<> Click;
    Event<> Change;
    // Argument: the key code, which a handler may replace (0: the key is swallowed).
    Event<int&> KeyPress;
    // For views: items will come or go; items came, went or are others, ListIndex with them.
    Event<const ItemsChange&> itemsChanging, itemsChanged;
    // For views: text, selection or ListIndex is another.
    Event<> contentChanged;

  private:
    void pick(int item);
    void moveBy(int step);
    void pickByKey(int item);
    void tellContent(bool textChanged);

    Style style_;
    ListItems items_;
    int listIndex_ = -1;
    EditableText content_;
};

}  // namespace headerdtc
