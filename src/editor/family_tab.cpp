#include "editor/family_tab.h"

#include "core/handler.h"
#include "core/handler_tools.h"
#include "platform/data_source.h"
#include "platform/text.h"

#include <string>
#include <vector>

namespace headerdtc {
namespace {

// "1 - ORDNO": the numbers come out right-aligned. The padding is not reset when a number as long
// as the longest has gone by: a source that gives its numbers out of order gets the padding of
// the short number before.
std::vector<std::string> numberedFields(DataSource& source, const HeaderDTC& dtc) {
    const Dictionary<std::string> fields = source.zekoFields(dtc.dataProvider);
    const auto width = static_cast<int>(std::to_string(fields.Count()).size());
    std::vector<std::string> entries;
    std::string padding;
    for (const auto& [number, field] : fields) {
        const int length = characterCount(number);
        if (length < width) padding.assign(static_cast<std::size_t>(width - length), ' ');
        entries.push_back(padding + number + std::string(dtc.ZEKO.traits.separator) + field);
    }
    return entries;
}

// "ORDERS.ORDNO".
std::vector<std::string> groupedFields(DataSource& source, const HeaderDTC& dtc) {
    const std::string& provider = dtc.DataProvidersCombo.Text();
    std::vector<std::string> entries;
    for (const auto& [groupKey, group] : source.eaiGroups(provider)) {
        for (const auto& [fieldKey, field] : source.eaiGroupFields(provider, group))
            entries.push_back(group + std::string(dtc.EAI.traits.separator) + field);
    }
    return entries;
}

// What differs between the families' tabs.
struct FamilyTabTraits {
    Family family;
    // The entries of the available fields; each function tells under which name it looks the
    // provider up.
    std::vector<std::string> (*availableFields)(DataSource& source, const HeaderDTC& dtc);
    Dictionary<std::string> (DataSource::*keyFields)(const std::string& provider);
};

constexpr FamilyTabTraits FamilyTabTable[] = {
    {Family::ZEKO, numberedFields, &DataSource::zekoKeyFields},
    {Family::EAI, groupedFields, &DataSource::eaiKeyFields},
};

const FamilyTabTraits& tabTraitsOf(Family family) {
    return FamilyTabTable[family == Family::ZEKO ? 0 : 1];
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
    const FamilyTabTraits& traits = tabTraitsOf(family.family);
    const auto source = dtc.surroundings.dataSources.createDataSource();
    const auto fields = traits.availableFields(*source, dtc);
    const auto keyFields = (source.get()->*traits.keyFields)(dtc.dataProvider);

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
    for (const auto& [key, field] : keyFields)
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
