#include "editor/discarded_work.h"

#include "editor/criteria_cells.h"

namespace headerdtc {

void noteTranslations(const FamilyControls& family, ChangedProperties& changed) {
    if (family.I18NFieldnamesList.SelCount() > 0 || family.I18NFieldValuesList.SelCount() > 0)
        changed.add(familyName(family.family, "ReturnFields"));
}

void noteFamilyTab(const FamilyControls& family, ChangedProperties& changed) {
    noteTranslations(family, changed);
    if (family.SelectedFieldsList.ListCount() > 0)
        changed.add(familyName(family.family, "ReturnFields"));
    if (family.FieldsList.ListCount() > 0)
        changed.add(familyName(family.family, "AvailableFields"));
    if (!holdsOnlyEmptyCells(family.CriteriaGrid))
        changed.add(familyName(family.family, "Criteria"));
}

}  // namespace headerdtc
