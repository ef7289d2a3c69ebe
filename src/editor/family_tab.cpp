#include "editor/family_tab.h"

#include "core/field_entries.h"
#include "core/handler.h"
#include "core/handler_tools.h"
#include "editor/discarded_work.h"
#include "platform/data_source.h"

#include <string>

namespace headerdtc {
namespace {

// The name under which a family's fields are looked up. The key fields, and both of ZEKO, are those
// of the data provider as last taken over.
const std::string& providerOfFields(Family family, const HeaderDTC& dtc) {
    return family == Family::EAI ? dtc.DataProvidersCombo.Text() : dtc.dataProvider;
}

void discard(FamilyControls& family, ChangedProperties& changed) {
    noteFamilyTab(family, changed);
    family.I18NFieldnamesList.Clear();
    family.I18NFieldValuesList.Clear();
    family.FieldsList.Clear();
    family.SelectedFieldsList.Clear();
    family.CriteriaGrid.Clear();
    writeCriteriaHeaders(family.CriteriaGrid);
}

void refill(HeaderDTC& dtc, FamilyControls& family, ChangedProperties& changed) {
    const Family which = family.family;
    const auto source = dtc.surroundings.dataSources.createDataSource();
    for (const std::string& entry : fieldEntries(which, *source, providerOfFields(which, dtc))) {
        family.FieldsList.AddItem(entry);
        changed.add(familyName(which, "AvailableFields"));
    }
    const std::string keyFieldnames = familyName(which, "KeyFieldnames");
    if (family.KeyFieldsCombo.ListCount() > 0) changed.add(keyFieldnames);
    family.KeyFieldsCombo.Clear();
    family.KeyFieldValueText.Text("");
    for (const std::string& field : keyFieldNames(which, *source, dtc.dataProvider)) {
        family.KeyFieldsCombo.AddItem(field);
        changed.add(keyFieldnames);
    }
}

}  // namespace

FamilyTab::FamilyTab(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.PrepareFamilyTab = [this](Family family) { prepare(family); };
}

void FamilyTab::prepare(Family which) {
    FamilyControls& family = dtc_.family(which);
    const std::string name = "Prepare" + std::string(family.traits.prefix) + "Tab";
    runHandler(dtc_, name, [&](ChangedProperties& changed) {
        if (family.DataProviderText.Text() != dtc_.dataProvider) {
            // Taken over first: a data source that fails leaves the tab empty, and is not asked
            // again until another provider is chosen.
            family.DataProviderText.Text(dtc_.dataProvider);
            discard(family, changed);
            refill(dtc_, family, changed);
        }
        refreshFieldButtons(family.FieldsList, family.SelectedFieldsList, family.AddField,
                            family.RemoveField);
    });
}

}  // namespace headerdtc
