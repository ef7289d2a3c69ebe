#include "editor/criteria_cells.h"

#include <algorithm>

namespace headerdtc {

const std::string& criteriaCell(const HeaderDTC& dtc, const FamilyControls& family, int row,
                                int column) {
    return family.CriteriaGrid.TextArray(dtc.CriteriaGridIndex(row, column));
}

void setCriteriaCell(const HeaderDTC& dtc, FamilyControls& family, int row, int column,
                     const std::string& text, ChangedProperties& changed) {
    if (criteriaCell(dtc, family, row, column) == text) return;
    family.CriteriaGrid.TextArray(dtc.CriteriaGridIndex(row, column), text);
    if (row >= family.CriteriaGrid.FixedRows() && column != criteria_column::Marker)
        changed.add(familyName(family.family, "Criteria"));
}

std::vector<std::string> storedCells(const Grid& grid, int row) {
    std::vector<std::string> cells;
    for (int column = criteria_column::Key; column < grid.Cols(); ++column)
        cells.push_back(grid.TextMatrix(row, column));
    return cells;
}

bool holdsOnlyEmptyCells(const Grid& grid) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        for (int column = criteria_column::Key; column < grid.Cols(); ++column) {
            if (!grid.TextMatrix(row, column).empty()) return false;
        }
    }
    return true;
}

}  // namespace headerdtc
