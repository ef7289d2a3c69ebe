#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace headerdtc {

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

}  // namespace headerdtc
