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

// The lists of a family: how the names of their counts and items are put together, "@" standing for
// the family's prefix, and where they go.
struct ListRow {
    std::string_view count, items;
    Items list;
    StoredRole role;
};
constexpr ListRow ReturnFields = {"@ReturnFieldCount", "@ReturnFields", &OfFamily::returnFields,
                                  StoredRole::ReturnField};
constexpr ListRow KeyFields = {"@KeyFieldsCount", "@KeyFieldnames", &OfFamily::keyFields,
                               StoredRole::KeyField};
constexpr ListRow LaterLists[] = {
    {"NrOf@I18NFieldnames", "@I18NFieldnames", &OfFamily::translatedNames,
     StoredRole::TranslatedName},
    {"NrOf@I18NFieldValues", "@I18NFieldValues", &OfFamily::translatedValues,
     StoredRole::TranslatedValue},
    {"NrOfSelected@LinkedFields", "@SelectedLinkedFields", &OfFamily::linkedFields,
     StoredRole::LinkedField},
};

std::string named(std::string_view pattern, Family family) {
    const auto place = pattern.find('@');
    std::string name(pattern.substr(0, place));
    name += traitsOf(family).prefix;
    return name.append(pattern.substr(place + 1));
}

class ConfigurationReader {
  public:
    explicit ConfigurationReader(const StoredProperties& properties) {
        values_.reserve(properties.size());
        for (const auto& [name, text] : properties)
            values_.emplace(name, text);
    }

    StoredConfiguration read() {
        result_.dataProvider = item("DataProvider", 0);
        for (const Family family : BothFamilies)
            readFamily(family);
        readScripts();
        const int includes = count("NrOfExtraIncludes");
        for (int i = 0; i < includes; ++i)
            result_.includes.push_back(item(keys_.numbered("ExtraIncludes", i), i + 1));
        result_.stylesheet = item("XSLFilename", 0);
        result_.linkedDataProvider = item("LinkedDataProvider", 0);
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
    // No list is longer than what its page stores: a count beyond that is a slip, whose empty
    // items say nothing.
    int count(std::string_view name, int fallback = 0) {
        return std::min(number(name, fallback), static_cast<int>(values_.size()) + 2);
    }

    // ---- the parts -------------------------------------------------------------------------
    void readFamily(Family family) {
        OfFamily& own = result_.of(family);
        readList(ReturnFields, family);
        readCriteria(family, own);
        readList(KeyFields, family);
        for (const ListRow& list : LaterLists)
            readList(list, family);
        const std::string linkRows = named("NrOfLinked@Fields", family);
        const int rows = count(linkRows, 2);
        if (rows < 1)
            result_.faults.push_back(
                {linkRows, std::string(text(linkRows)), "while the header alone is one row"});
        const std::string from = named("@LinkFromFields", family);
        const std::string to = named("@LinkToFields", family);
        for (int row = 1; row < rows; ++row)
            own.links.push_back(
                {row, item(keys_.numbered(from, row), row), item(keys_.numbered(to, row), row)});
    }

    void readList(const ListRow& list, Family family) {
        const int items = count(named(list.count, family));
        const std::string prefix = named(list.items, family);
        for (int i = 0; i < items; ++i)
            (result_.of(family).*list.list).push_back(item(keys_.numbered(prefix, i), i + 1));
    }

    void readCriteria(Family family, OfFamily& own) {
        const int rows = count(named("@CriteriaCount", family));
        const std::string cells = named("@Criteria", family);
        const std::string types = named("@CriteriaType", family);
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
        const int scripts = count("NrOfUserDefinedScripts");
        for (int k = 1; k <= scripts; ++k) {
            StoredItem name = item(keys_.numbered("UserDefinedScript", k), k);
            std::string script(text(keys_.suffixed(name.text, "UserDefinedScript")));
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
        const auto tellAll = [&](const ListRow& list) {
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
        for (const ListRow& list : LaterLists)
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
