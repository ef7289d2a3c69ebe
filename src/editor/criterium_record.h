#pragma once

#include "core/handler.h"

#include <cstdint>
#include <string>
#include <vector>

namespace headerdtc {

// What the page stores of a criterion, as it was before its script dialog opened. Looking the
// value up for the dialog, and the dialog's OK, change grid and dictionaries without a notice of
// their own; the record tells afterwards what has become another.
class CriteriumRecord {
  public:
    CriteriumRecord(const HeaderDTC& dtc, const FamilyControls& family, int row);

    // Notes the family's "Criteria" when the row or the value types, "UserDefinedScripts" when the
    // scripts are no longer the same, order included.
    void noteChanges(ChangedProperties& changed) const;

  private:
    std::vector<std::string> cells() const;

    const HeaderDTC& dtc_;
    const FamilyControls& family_;
    int row_;
    std::vector<std::string> cells_;
    Dictionary<std::int32_t> types_;
    ScriptDictionary scripts_;
};

}  // namespace headerdtc
