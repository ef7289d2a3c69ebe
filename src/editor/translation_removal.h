#pragma once

#include "core/handler.h"

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

// Takes fields that are no longer return fields off the translation lists, and off the linked
// fields, which are scanned along with the names. The lists follow when it ends, also when that is
// because of a failure. A linked field that goes is noted; what becomes of the translations is part
// of the return fields.
class TranslationRemoval {
  public:
    // Both outlive it.
    TranslationRemoval(FamilyControls& family, ChangedProperties& changed);

    // The effect of the scans
    //     n = number of names;  for each j = 0 .. n - 1:
    //         if entry j of the names is the field, remove it
    //         if entry j of the linked fields is the field, remove it
    //     m = number of values;  for each j = 0 .. m - 1:
    //         if entry j of the values is the field, remove it
    // where an entry that moves into place j is passed over and reads beyond the end yield empty
    // text. Authors remove thousands of fields from lists of thousands, hence the ScannedLists.
    // Raises 381 where the scan for an empty field removes what it read beyond the end.
    void remove(const std::string& field);

  private:
    ScannedList names_, linked_, values_;
    ChangedProperties& changed_;
    std::string linkedName_;
};

}  // namespace headerdtc
