#pragma once

#include "controls/list_box.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A list box from which entries are removed by scans that go upward from the start, each looking
// for one text. A scan leaps from hit to hit instead of reading every entry. Positions are those
// that the list has with the entries removed so far; the list box itself follows in one pass when
// the ScannedList ends, and nobody else changes it until then.
class ScannedList {
  public:
    static constexpr int None = std::numeric_limits<int>::max();

    explicit ScannedList(ListBox& list);
    ScannedList(const ScannedList&) = delete;
    ScannedList& operator=(const ScannedList&) = delete;
    ~ScannedList();

    // The entries left.
    int count() const { return left_; }
    // Starts a scan. The text outlives the scan.
    void seek(std::string_view text);
    // The first position from `from` on that reads as the text, None when no one does; `from`
    // never goes down during a scan. Reads beyond the end yield empty text.
    int next(int from);
    // Removes the entry that next() has found. Raises 381 when that was beyond the end.
    void remove();

  private:
    int& bucketOf(std::string_view text);
    int positionOf(int place) const;

    ListBox& list_;
    int left_;
    // An entry's place is its index in the list box, which it keeps. Places of equal texts are in
    // one bucket, ascending.
    std::vector<int> firstOfBucket_, nextInBucket_;
    std::vector<bool> removed_;
    std::vector<int> tree_;  // binary indexed tree over the places, from 1: entries left
    std::string_view text_;
    int* found_ = nullptr;  // where the scan stands: the link to the next candidate's place
};

}  // namespace headerdtc
