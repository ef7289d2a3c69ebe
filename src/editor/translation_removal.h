#pragma once

#include "core/handler.h"
#include "editor/scanned_list.h"

#include <string>

namespace headerdtc {

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
