#pragma once

#include "controls/event.h"
#include "controls/gap_vector.h"

#include <string>

namespace headerdtc {

// What became of a list's items, for views that keep step without re-reading the whole list.
struct ItemsChange {
    enum class Kind { Inserted, Removed, Changed, Reset };
    Kind kind = Kind::Reset;
    int first = 0;  // 0-based
    int count = 0;  // items of the range; of a reset: the new number of items
};

// The most items a list can hold: its positions are 16-bit signed.
inline constexpr int MaxListCount = 32767;

// The items of a list box or combo box. Indices are 0-based and checked: raises 381 (Invalid
// property array index) for one that is not there, 6 (Overflow) for one item too many; the items
// are unchanged then.
class ListItems {
  public:
    struct Item {
        std::string text;
        bool selected = false;
    };

    // Reports every change through the event of the control that holds the items.
    explicit ListItems(Event<const ItemsChange&>& changed) : changed_(changed) {}

    int count() const { return items_.size(); }
    const Item& at(int index) const;
    Item& at(int index);
    // Index count() appends.
    void insert(int index, std::string text);
    void remove(int index);
    void clear();
    void replace(int index, const std::string& text);
    // Index of the first item from `start` on that equals the text, -1 for none.
    int find(const std::string& text, int start = 0) const;

  private:
    Event<const ItemsChange&>& changed_;
    GapVector<Item> items_;
};

}  // namespace headerdtc
