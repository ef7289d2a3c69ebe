#include "host/inspection/field_replacement.h"

#include "core/header_dtc.h"
#include "platform/text.h"

namespace headerdtc {
namespace {

template <class List>
void replaceIn(List& list, const std::string& text, const std::string& with) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text) list.List(i, with);
    }
}

void replaceIn(Grid& grid, int column, const std::string& text, const std::string& with) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, column) == text) grid.TextMatrix(row, column, with);
    }
}

// Blanks before a number depend on how many fields there were when the list was made.
void takeFrom(ListBox& available, const std::string& field) {
    for (int i = available.ListCount() - 1; i >= 0; --i) {
        if (trimBlanks(available.List(i)) == trimBlanks(field)) available.RemoveItem(i);
    }
}

}  // namespace

void replaceField(HeaderDTC& dtc, const VanishedField& vanished, const std::string& with) {
    FamilyControls& family = dtc.family(vanished.family);
    const std::string& text = vanished.item.text;
    const int row = vanished.item.row;
    switch (vanished.role) {
        case StoredRole::ReturnField:
            family.SelectedFieldsList.List(row - 1, with);
            replaceIn(family.I18NFieldnamesList, text, with);
            replaceIn(family.I18NFieldValuesList, text, with);
            replaceIn(family.FromLinkFieldsCombo, text, with);
            replaceIn(family.LinksGrid, links_column::From, text, with);
            return takeFrom(family.FieldsList, with);
        case StoredRole::LinkedField:
            family.SelectedLinkedFieldsList.List(row - 1, with);
            return takeFrom(family.LinkedFieldsList, with);
        case StoredRole::CriterionKey:
            return family.CriteriaGrid.TextMatrix(row, criteria_column::Key, with);
        case StoredRole::LinkFrom:
            return family.LinksGrid.TextMatrix(row, links_column::From, with);
        case StoredRole::LinkTo:
            return family.LinksGrid.TextMatrix(row, links_column::To, with);
        default:
            return;
    }
}

}  // namespace headerdtc
