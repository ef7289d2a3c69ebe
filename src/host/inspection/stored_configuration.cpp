#include "host/inspection/stored_configuration.h"

#include "core/family_controls.h"
#include "core/key_buffer.h"
#include "core/stored_key_table.h"
#include "core/stored_values.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace headerdtc {
namespace {

using OfFamily = StoredConfiguration::OfFamily;
using Items = std::vector<StoredItem> OfFamily::*;

struct RoleNames {
    StoredRole role;
    std::string_view name, key;
};
constexpr RoleNames Roles[] = {
    {StoredRole::DataProvider, "data provider", "dataProvider"},
    {StoredRole::LinkedDataProvider, "linked data provider", "linkedDataProvider"},
    {StoredRole::ReturnField, "return field", "returnField"},
    {StoredRole::KeyField, "key field", "keyField"},
    {StoredRole::CriterionKey, "key of criterion", "criterionKey"},
    {StoredRole::CriterionOperator, "operator of criterion", "criterionOperator"},
    {StoredRole::CriterionValue, "value of criterion", "criterionValue"},
    {StoredRole::TranslatedName, "translated field name", "translatedName"},
    {StoredRole::TranslatedValue, "translated field value", "translatedValue"},
    {StoredRole::LinkedField, "linked field", "linkedField"},
    {StoredRole::LinkFrom, "from-field of link", "linkFrom"},
    {StoredRole::LinkTo, "to-field of link", "linkTo"},
    {StoredRole::Include, "include file", "include"},
    {StoredRole::Stylesheet, "stylesheet", "stylesheet"},
    {StoredRole::ScriptName, "script", "script"},
};

const RoleNames& namesOf(StoredRole role) {
    return *std::find_if(std::begin(Roles), std::end(Roles),
                         [&](const RoleNames& names) { return names.role == role; });
}

// The lists of a family and where they go.
struct ListPart {
    StoredPart part;
    Items list;
    StoredRole role;
};
constexpr ListPart ReturnFields = {StoredPart::ReturnFields, &OfFamily::returnFields,
                                   StoredRole::ReturnField};
constexpr ListPart KeyFields = {StoredPart::KeyFields, &OfFamily::keyFields, StoredRole::KeyField};
constexpr ListPart LaterLists[] = {
    {StoredPart::TranslatedNames, &OfFamily::translatedNames, StoredRole::TranslatedName},
    {StoredPart::TranslatedValues, &OfFamily::translatedValues, StoredRole::TranslatedValue},
    {StoredPart::LinkedFields, &OfFamily::linkedFields, StoredRole::LinkedField},
};

class ConfigurationReader {
  public:
    explicit ConfigurationReader(const StoredProperties& properties) {
        values_.reserve(properties.size());
        for (const auto& [name, text] : properties)
            values_.emplace(name, text);
    }

    StoredConfiguration read() {
        result_.dataProvider = item(*stored::RowOf("DataProvider"), 0);
        result_.hasExtraFilters = isTrue(stored::RowOf("EnableExtraFilters")->key);
        for (const Family family : BothFamilies)
            readFamily(family);
        readScripts();
        const int includes = count(stored::rowOf<stored::ItemCount>(StoredPart::Includes));
        const auto& include = stored::rowOf<stored::Items>(StoredPart::Includes);
        for (int i = 0; i < includes; ++i)
            result_.includes.push_back(item(keys_.numbered(include.key, i), i + 1));
        result_.stylesheet = item(*stored::RowOf("XSLFilename"), 0);
        result_.linkedDataProvider = item(*stored::RowOf("LinkedDataProvider"), 0);
        return std::move(result_);
    }

  private:
    // ---- one stored property ---------------------------------------------------------------
    std::string_view text(std::string_view name) const {
        const auto found = values_.find(name);
        return found == values_.end() ? std::string_view() : found->second;
    }

    StoredItem item(std::string_view name, int row) const {
        return {std::string(text(name)), row, std::string(name)};
    }

    StoredItem item(const stored::Row& row, int number) const { return item(row.key, number); }

    int number(std::string_view name, int fallback) {
        const auto found = values_.find(name);
        if (found == values_.end()) return fallback;
        try {
            return toInteger(std::string(found->second));
        } catch (const RuntimeError&) {
            result_.faults.push_back(
                {std::string(name), std::string(found->second), "which is no 16-bit number"});
            return fallback;
        }
    }
    bool isTrue(std::string_view name) {
        const auto found = values_.find(name);
        if (found == values_.end()) return false;
        try {
            return toBoolean(std::string(found->second));
        } catch (const RuntimeError&) {
            return false;
        }
    }
    // A count larger than the number of stored properties is a slip; the list is not filled up with
    // empty items for it.
    int count(const stored::Row& row, int fallback = 0) {
        return std::min(number(row.key, fallback), static_cast<int>(values_.size()) + 2);
    }

    // ---- the parts -------------------------------------------------------------------------
    void readFamily(Family family) {
        OfFamily& own = result_.of(family);
        readList(ReturnFields, family);
        readCriteria(family, own);
        readList(KeyFields, family);
        for (const ListPart& list : LaterLists)
            readList(list, family);
        const auto& linkRows = stored::rowOf<stored::RowCount>(StoredPart::Links, family);
        const int rows = count(linkRows, 2);
        if (rows < 1)
            result_.faults.push_back({std::string(linkRows.key), std::string(text(linkRows.key)),
                                      "while the header alone is one row"});
        const auto& from = stored::rowOf<stored::LinkRows>(StoredPart::Links, family);
        const auto& to = stored::rowOf<stored::WithRowAbove>(StoredPart::Links, family);
        for (int row = 1; row < rows; ++row)
            own.links.push_back({row, item(keys_.numbered(from.key, row), row),
                                 item(keys_.numbered(to.key, row), row)});
    }

    void readList(const ListPart& list, Family family) {
        using namespace stored;
        const int items = count(rowOf<ItemCount, SelectionCount>(list.part, family));
        const Row& row = rowOf<stored::Items, Selection>(list.part, family);
        for (int i = 0; i < items; ++i)
            (result_.of(family).*list.list).push_back(item(keys_.numbered(row.key, i), i + 1));
    }

    void readCriteria(Family family, OfFamily& own) {
        const int rows = count(stored::rowOf<stored::RowCount>(StoredPart::Criteria, family));
        const std::string_view cells =
            stored::rowOf<stored::Cells>(StoredPart::Criteria, family).key;
        const std::string_view types =
            stored::rowOf<stored::CriteriaTypes>(StoredPart::Criteria, family).key;
        for (int row = 1; row < rows; ++row) {
            const auto cell = [&](int column) { return item(keys_.cell(cells, row, column), row); };
            own.criteria.push_back({row, cell(criteria_column::Key),
                                    cell(criteria_column::Operator), cell(criteria_column::Value)});
        }
        // As many kinds as there are criteria, whatever the page has.
        int k = 1;
        for (; k < rows; ++k)
            readValueType(types, k, own.valueTypes);
        while (values_.contains(keys_.numbered(types, k)))
            readValueType(types, k++, own.unreadTypes);
    }

    void readValueType(std::string_view types, int k,
                       std::vector<StoredConfiguration::ValueType>& read) {
        const StoredItem value = item(keys_.numbered(types, k), k);
        if (value.text.empty()) return;
        const int type = number(std::string(keys_.suffixed(value.text, types)), CONSTANT);
        read.push_back({value.text, type, value.property});
    }

    void readScripts() {
        const int scripts = count(stored::rowOf<stored::ScriptCount>(StoredPart::Scripts));
        const std::string_view key = stored::rowOf<stored::Scripts>(StoredPart::Scripts).key;
        for (int k = 1; k <= scripts; ++k) {
            StoredItem name = item(keys_.numbered(key, k), k);
            std::string script(text(keys_.suffixed(name.text, key)));
            result_.scripts.push_back({std::move(name), std::move(script)});
        }
    }

    std::unordered_map<std::string_view, std::string_view> values_;
    KeyBuffer keys_;
    StoredConfiguration result_;
};

}  // namespace

std::string_view nameOf(StoredRole role) {
    return namesOf(role).name;
}

std::string_view keyOf(StoredRole role) {
    return namesOf(role).key;
}

bool StoredConfiguration::Criterion::isWritten() const {
    return !trimBlanks(key.text).empty() && !operation.text.empty() && !value.text.empty();
}

int StoredConfiguration::OfFamily::typeOf(std::string_view value) const {
    const auto found = std::find_if(valueTypes.begin(), valueTypes.end(),
                                    [&](const ValueType& type) { return type.value == value; });
    return found == valueTypes.end() ? static_cast<int>(CONSTANT) : found->type;
}

bool StoredConfiguration::hasLinkedProvider() const {
    return !linkedDataProvider.text.empty() &&
           linkedDataProvider.text != stored::LinkedProviderNotStored;
}

StoredConfiguration readStoredConfiguration(const StoredProperties& properties) {
    return ConfigurationReader(properties).read();
}

void forEachItem(
    const StoredConfiguration& configuration,
    const std::function<void(StoredRole, std::optional<Family>, const StoredItem&)>& use) {
    const auto tell = [&](StoredRole role, std::optional<Family> family, const StoredItem& item) {
        if (!item.text.empty()) use(role, family, item);
    };
    tell(StoredRole::DataProvider, std::nullopt, configuration.dataProvider);
    for (const Family family : BothFamilies) {
        const OfFamily& own = configuration.of(family);
        const auto tellAll = [&](const ListPart& list) {
            for (const StoredItem& item : own.*list.list)
                tell(list.role, family, item);
        };
        tellAll(ReturnFields);
        for (const auto& criterion : own.criteria) {
            tell(StoredRole::CriterionKey, family, criterion.key);
            tell(StoredRole::CriterionOperator, family, criterion.operation);
            tell(StoredRole::CriterionValue, family, criterion.value);
        }
        tellAll(KeyFields);
        for (const ListPart& list : LaterLists)
            tellAll(list);
        for (const auto& link : own.links) {
            tell(StoredRole::LinkFrom, family, link.from);
            tell(StoredRole::LinkTo, family, link.to);
        }
    }
    for (const auto& script : configuration.scripts)
        tell(StoredRole::ScriptName, std::nullopt, script.name);
    for (const StoredItem& include : configuration.includes)
        tell(StoredRole::Include, std::nullopt, include);
    tell(StoredRole::Stylesheet, std::nullopt, configuration.stylesheet);
    if (configuration.hasLinkedProvider())
        tell(StoredRole::LinkedDataProvider, std::nullopt, configuration.linkedDataProvider);
}

}  // namespace headerdtc
