#include "editor/criterium_record.h"

#include "editor/criteria_cells.h"

#include <algorithm>

namespace headerdtc {
namespace {

template <class Item>
bool sameEntries(const Dictionary<Item>& a, const Dictionary<Item>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

}  // namespace

CriteriumRecord::CriteriumRecord(const HeaderDTC& dtc, const FamilyControls& family, int row)
    : dtc_(dtc),
      family_(family),
      row_(row),
      cells_(cells()),
      types_(family.CriteriaType),
      scripts_(*dtc.userDefinedScripts) {}

void CriteriumRecord::noteChanges(ChangedProperties& changed) const {
    if (cells() != cells_ || !sameEntries(family_.CriteriaType, types_))
        changed.add(familyName(family_.family, "Criteria"));
    if (!sameEntries(*dtc_.userDefinedScripts, scripts_)) changed.add("UserDefinedScripts");
}

// Empty for a row that has gone while the dialog was open.
std::vector<std::string> CriteriumRecord::cells() const {
    const Grid& grid = family_.CriteriaGrid;
    return row_ < grid.Rows() ? storedCells(grid, row_) : std::vector<std::string>();
}

}  // namespace headerdtc
