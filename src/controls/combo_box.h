#pragma once

#include "controls/control.h"
#include "controls/list_items.h"

#include <string>

namespace headerdtc {

// A combo box: a text and a list that drops down. Item positions are 0-based, 16-bit signed, -1
// for none. Index errors raise 381 and leave the combo unchanged.
class ComboBox : public Control {
  public:
    // A drop-down list shows one of its items or nothing; an editable one takes any text.
    enum class Style { DropDownList, Editable };

    ComboBox(Form& form, std::string name, Style style);
    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    bool isEditable() const { return style_ == Style::Editable; }

    // ---- what a program does ---------------------------------------------------------------
    int ListCount() const { return items_.count(); }
    const std::string& List(int index) const { return items_.at(index).text; }
    void List(int index, const std::string& text);
    void AddItem(const std::string& text) { AddItem(text, ListCount()); }
    void AddItem(const std::string& text, int index);
    void RemoveItem(int index);
    // Empties the list and the text.
    void Clear();

    int ListIndex() const { return listIndex_; }
    // Selects an item, or none (-1), and makes it the text. Raises Click, also when the index
    // stays the same; raises 380 for an item that is not there.
    void ListIndex(int index);
    const std::string& Text() const { return text_; }
    // Editable: raises Change when the text becomes another; ListIndex becomes -1. Drop-down
    // list: selects the first equal item like ListIndex; raises 380 when there is none.
    void Text(const std::string& text);
    // Selection in the text of an editable combo, in characters from 0.
    int SelStart() const { return selStart_; }
    void SelStart(int position);
    int SelLength() const { return selLength_; }
    void SelLength(int length);
    // Index of the first equal item, -1 for none (exact comparison).
    int find(const std::string& text) const { return items_.find(text); }

    // ---- what a person does ----------------------------------------------------------------
    // Picks an item of the list.
    void choose(int item);
    void choose(const std::string& text);
    // Replaces the text of an editable combo.
    void type(const std::string& text);
    void press(const Key& key) override;
    // For windows whose own widget edits: a key is about to act; the text that came of it.
    bool keyPress(const Key& key);
    void edited(const std::string& text, int selStart, int selLength);

    // ---- events ----------------------------------------------------------------------------
    Event<> Click;
    Event<> Change;
    // Argument: the key code, which a handler may replace (0: the key is swallowed).
    Event<int&> KeyPress;
    // For views: items; text, selection or ListIndex.
    Event<const ItemsChange&> itemsChanged;
    Event<> contentChanged;

  private:
    void pick(int item);
    void moveBy(int step);
    void editByKey(const Key& key);

    Style style_;
    ListItems items_{itemsChanged};
    int listIndex_ = -1;
    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
};

}  // namespace headerdtc
