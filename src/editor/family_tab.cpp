#include "editor/family_tab.h"

#include "core/field_entries.h"
#include "core/handler.h"
#include "core/handler_tools.h"
#include "platform/data_source.h"

#include <string>

namespace headerdtc {
namespace {

// The name under which a family's fields are looked up. The key fields, and both of ZEKO, are those
// of the data provider as last taken over.
const std::string& providerOfFields(Family family, const HeaderDTC& dtc) {
    return family == Family::EAI ? dtc.DataProvidersCombo.Text() : dtc.dataProvider;
}

bool holdsCriteria(const Grid& grid) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        for (const int column :
             {criteria_column::Key, criteria_column::Operator, criteria_column::Value}) {
            if (!grid.TextMatrix(row, column).empty()) return true;
        }
    }
    return false;
}

// The author's work that goes with the data provider before. What is offered follows from the
// provider, of which the host has had its notice.
void noteDiscarded(const FamilyControls& family, ChangedProperties& changed) {
    if (family.SelectedFieldsList.ListCount() > 0 || family.I18NFieldnamesList.ListCount() > 0)
        changed.add(familyName(family.family, "ReturnFields"));
    if (holdsCriteria(family.CriteriaGrid)) changed.add(familyName(family.family, "Criteria"));
}

// Everything is asked of the data source before anything is changed, so that a source that fails
// or has vanished costs the author nothing, and the tab still asks for it when entered again.
void rebuild(HeaderDTC& dtc, FamilyControls& family, ChangedProperties& changed) {
    const auto source = dtc.surroundings.dataSources.createDataSource();
    const auto fields = fieldEntries(family.family, *source, providerOfFields(family.family, dtc));
    const auto keyFields = keyFieldNames(family.family, *source, dtc.dataProvider);

    noteDiscarded(family, changed);
    family.DataProviderText.Text(dtc.dataProvider);
    family.I18NFieldnamesList.Clear();
    family.I18NFieldValuesList.Clear();
    family.FieldsList.Clear();
    family.SelectedFieldsList.Clear();
    family.CriteriaGrid.Clear();
    writeCriteriaHeaders(family.CriteriaGrid);
    for (const std::string& field : fields)
        family.FieldsList.AddItem(field);
    family.KeyFieldsCombo.Clear();
    family.KeyFieldValueText.Text("");
    for (const std::string& field : keyFields)
        family.KeyFieldsCombo.AddItem(field);
}

}  // namespace

FamilyTab::FamilyTab(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.PrepareFamilyTab = [this](Family family) { prepare(family); };
}

void FamilyTab::prepare(Family which) {
    FamilyControls& family = dtc_.family(which);
    const std::string name = "Prepare" + std::string(family.traits.prefix) + "Tab";
    runHandler(dtc_, name, [&](ChangedProperties& changed) {
        if (family.DataProviderText.Text() != dtc_.dataProvider) rebuild(dtc_, family, changed);
        refreshFieldButtons(family.FieldsList, family.SelectedFieldsList, family.AddField,
                            family.RemoveField);
    });
}

}  // namespace headerdtc
