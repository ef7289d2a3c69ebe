#include "editor/family_tab.h"

#include "core/handler.h"
#include "core/handler_tools.h"
#include "editor/discarded_work.h"
#include "platform/data_source.h"
#include "platform/text.h"

#include <functional>
#include <string>

namespace headerdtc {
namespace {

using Offer = std::function<void(const std::string& entry)>;

// A field entry: number or group, separator, field name.
std::string entryOf(std::string start, const FamilyTraits& traits, const std::string& field) {
    start += traits.separator;
    start += field;
    return start;
}

// " 1 - ORDNO": numbers shorter than the longest are padded to its width. The padding is kept, and
// not taken back, for numbers that need none: after " 9" comes " 10".
void offerNumberedFields(DataSource& source, const HeaderDTC& dtc, const Offer& offer) {
    const Dictionary<std::string> fields = source.zekoFields(dtc.dataProvider);
    const auto width = static_cast<int>(std::to_string(fields.Count()).size());
    std::string padding;
    for (const auto& [number, field] : fields) {
        const int length = characterCount(number);
        if (length < width) padding.assign(static_cast<std::size_t>(width - length), ' ');
        offer(entryOf(padding + number, dtc.ZEKO.traits, field));
    }
}

// "ORDERS.ORDNO".
void offerGroupedFields(DataSource& source, const HeaderDTC& dtc, const Offer& offer) {
    const std::string provider = dtc.DataProvidersCombo.Text();
    const Dictionary<std::string> groups = source.eaiGroups(provider);
    for (const auto& [groupKey, group] : groups) {
        const Dictionary<std::string> fields = source.eaiGroupFields(provider, group);
        for (const auto& [fieldKey, field] : fields)
            offer(entryOf(group, dtc.EAI.traits, field));
    }
}

// What differs between the families' tabs.
struct FamilyTabTraits {
    Family family;
    // Offers the entries of the available fields one by one; each function tells under which name
    // it looks the provider up.
    void (*offerFields)(DataSource& source, const HeaderDTC& dtc, const Offer& offer);
    Dictionary<std::string> (DataSource::*keyFields)(const std::string& provider);
};

constexpr FamilyTabTraits FamilyTabTable[] = {
    {Family::ZEKO, offerNumberedFields, &DataSource::zekoKeyFields},
    {Family::EAI, offerGroupedFields, &DataSource::eaiKeyFields},
};

const FamilyTabTraits& tabTraitsOf(Family family) {
    return FamilyTabTable[family == Family::ZEKO ? 0 : 1];
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
    const FamilyTabTraits& traits = tabTraitsOf(family.family);
    const auto source = dtc.surroundings.dataSources.createDataSource();
    traits.offerFields(*source, dtc, [&](const std::string& entry) {
        family.FieldsList.AddItem(entry);
        changed.add(familyName(family.family, "AvailableFields"));
    });
    const std::string keyFieldnames = familyName(family.family, "KeyFieldnames");
    if (family.KeyFieldsCombo.ListCount() > 0) changed.add(keyFieldnames);
    family.KeyFieldsCombo.Clear();
    family.KeyFieldValueText.Text("");
    const Dictionary<std::string> keyFields = (source.get()->*traits.keyFields)(dtc.dataProvider);
    for (const auto& [key, field] : keyFields) {
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
