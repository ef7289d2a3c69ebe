#pragma once

#include "core/handler.h"

#include <string>
#include <vector>

namespace headerdtc {

// The cells of a criteria grid as the page stores them: every column but the marker's, every row
// but the header. A cell is addressed by the flat index of the control, which takes the column
// count from the ZEKO grid for both families.

const std::string& criteriaCell(const HeaderDTC& dtc, const FamilyControls& family, int row,
                                int column);
// Notes the family's "Criteria" when a stored cell becomes another. Raises 381.
void setCriteriaCell(const HeaderDTC& dtc, FamilyControls& family, int row, int column,
                     const std::string& text, ChangedProperties& changed);

// The stored cells of one row. Raises 381.
std::vector<std::string> storedCells(const Grid& grid, int row);
bool holdsOnlyEmptyCells(const Grid& grid);

}  // namespace headerdtc
