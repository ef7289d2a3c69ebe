#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace headerdtc {

// What becomes of a list's items, for views that keep step without re-reading the whole list. Views
// are told once the list is in its new state, ListIndex included; of items that come or go also
// before, while the list is still in its old state.
struct ItemsChange {
    enum class Kind { Inserted, Removed, Changed, Reset };
    Kind kind = Kind::Reset;
    int first = 0;  // 0-based
    int count = 0;  // items of the range; of a reset: the new number of items
};

// Tells of items that come or go before and after they do.
template <class List, class Body>
void changeItems(List& list, const ItemsChange& change, Body body) {
    list.itemsChanging.raise(change);
    body();
    list.itemsChanged.raise(change);
}

// A sequence with a movable gap: inserting and removing costs the distance to the place of the
// last change, not the length of the tail. Lists are edited by scans that walk in one direction,
// so a scan that removes thousands of items stays linear. Indices are 0-based and unchecked.
template <class T>
class GapVector {
  public:
    int size() const { return static_cast<int>(store_.size()) - gapSize_; }
    T& operator[](int index) { return store_[place(index)]; }
    const T& operator[](int index) const { return store_[place(index)]; }

    // Puts in an empty one and gives it.
    T& insert(int index) {
        if (gapSize_ == 0) grow();
        moveGap(index);
        --gapSize_;
        T& item = store_[at(gapStart_++)];
        item = T{};  // what was moved away may have left something behind
        return item;
    }

    void erase(int index) {
        moveGap(index);
        store_[at(gapStart_ + gapSize_)] = T{};  // frees what it held
        ++gapSize_;
    }

    void clear() {
        store_.clear();
        gapStart_ = gapSize_ = 0;
    }

  private:
    static std::size_t at(int place) { return static_cast<std::size_t>(place); }
    std::size_t place(int index) const { return at(index < gapStart_ ? index : index + gapSize_); }

    void moveGap(int index) {
        if (gapSize_ == 0) {
            gapStart_ = index;
            return;
        }
        for (; gapStart_ > index; --gapStart_)
            store_[at(gapStart_ + gapSize_ - 1)] = std::move(store_[at(gapStart_ - 1)]);
        for (; gapStart_ < index; ++gapStart_)
            store_[at(gapStart_)] = std::move(store_[at(gapStart_ + gapSize_)]);
    }

    // Puts a gap behind the last item, where there is none.
    void grow() {
        constexpr int SmallestGap = 8;
        const int count = size();
        const int gap = count < SmallestGap ? SmallestGap : count;
        store_.resize(at(count + gap));
        gapStart_ = count;
        gapSize_ = gap;
    }

    std::vector<T> store_;
    int gapStart_ = 0;
    int gapSize_ = 0;
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

    int count() const { return items_.size(); }
    bool has(int index) const { return index >= 0 && index < count(); }
    const Item& at(int index) const {
        require(index);
        return items_[index];
    }
    Item& at(int index) {
        require(index);
        return items_[index];
    }
    // Raises what an insertion there would raise. Index count() appends.
    void requirePlace(int index) const {
        if (index != count()) require(index);
        if (count() >= MaxListCount) refuseMore();
    }
    void insert(int index, std::string text);
    void remove(int index);
    void clear() { items_.clear(); }
    // Index of the first item that equals the text, -1 for none (exact comparison).
    int find(std::string_view text) const;
    // Index of the next item after `index` (-1: from the first) that begins with a character,
    // beyond the last going on at the first; -1 for none. The case of ASCII letters does not
    // matter.
    int findNext(int index, char32_t firstCharacter) const;

  private:
    void require(int index) const {
        if (!has(index)) refuse();
    }
    [[noreturn]] static void refuse();
    [[noreturn]] static void refuseMore();

    GapVector<Item> items_;
};

}  // namespace headerdtc
