#include "host/catalogue_import/catalogue_merge.h"

#include "platform/text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

namespace headerdtc {
namespace {

using Kind = CatalogueChange::Kind;
using Provider = Catalogue::Provider;
using Tables = std::vector<const DatabaseTable*>;

template <class Items, class NameOf>
auto findName(Items& items, std::string_view name, NameOf&& nameOf) {
    return std::find_if(items.begin(), items.end(),
                        [&](const auto& item) { return equalIgnoringCase(nameOf(item), name); });
}

const std::string& itself(const std::string& name) {
    return name;
}
const std::string& nameOfField(const Catalogue::NumberedField& field) {
    return field.name;
}
template <class Named>
const std::string& nameOfThis(const Named& named) {
    return named.name;
}

bool hasName(const std::vector<std::string>& names, std::string_view name) {
    return findName(names, name, itself) != names.end();
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

// The names in the spelling that was there before.
std::vector<std::string> inOldSpelling(const std::vector<std::string>& names,
                                       const std::vector<std::string>& before) {
    std::vector<std::string> spelt;
    for (const std::string& name : names) {
        const auto old = findName(before, name, itself);
        spelt.push_back(old == before.end() ? name : *old);
    }
    return spelt;
}

std::vector<std::string> allOnce(const Tables& tables,
                                 std::vector<std::string> DatabaseTable::*list) {
    std::vector<std::string> names;
    for (const DatabaseTable* table : tables) {
        for (const std::string& name : table->*list) {
            if (!hasName(names, name)) names.push_back(name);
        }
    }
    return names;
}

// Brings one provider up to its tables.
class ProviderMerge {
  public:
    ProviderMerge(Provider& provider, const Tables& tables, bool prune,
                  std::vector<CatalogueChange>& changes)
        : provider_(provider),
          tables_(tables),
          columns_(allOnce(tables, &DatabaseTable::columns)),
          key_(allOnce(tables, &DatabaseTable::key)),
          prune_(prune),
          changes_(changes) {}

    void merge() {
        // A record group from elsewhere may have fields that no table here has.
        const bool isWhole =
            !provider_.eai ||
            std::all_of(provider_.eai->groups.begin(), provider_.eai->groups.end(),
                        [&](const Catalogue::Group& group) { return isTable(group.name); });
        dropsGone_ = prune_ || isWhole;
        if (provider_.eai) mergeGroups(*provider_.eai);
        if (provider_.zeko) mergeFields(*provider_.zeko);
        if (provider_.zeko) mergeKey("ZEKO", provider_.zeko->keyFields);
        if (provider_.eai) mergeKey("EAI", provider_.eai->keyFields);
    }

  private:
    void tell(Kind kind, const std::string& what) {
        changes_.push_back({kind, provider_.name, what});
    }

    bool isTable(std::string_view group) const {
        return std::any_of(tables_.begin(), tables_.end(), [&](const DatabaseTable* table) {
            return equalIgnoringCase(table->name, group);
        });
    }

    void mergeGroups(Catalogue::Eai& eai) {
        for (const DatabaseTable* table : tables_) {
            auto group = findName(eai.groups, table->name, nameOfThis<Catalogue::Group>);
            if (group == eai.groups.end()) {
                eai.groups.push_back({table->name, {}});
                group = std::prev(eai.groups.end());
            }
            mergeGroup(*group, table->columns);
        }
        if (!prune_) return;
        std::erase_if(eai.groups, [&](const Catalogue::Group& group) {
            if (isTable(group.name)) return false;
            tell(Kind::Removed, "EAI record group " + group.name);
            return true;
        });
    }

    void mergeGroup(Catalogue::Group& group, const std::vector<std::string>& columns) {
        const std::string prefix = "EAI " + group.name + ".";
        for (const std::string& column : columns) {
            if (!hasName(group.fields, column)) tell(Kind::Added, prefix + column);
        }
        for (const std::string& field : group.fields) {
            if (!hasName(columns, field)) tell(Kind::Removed, prefix + field);
        }
        auto fields = inOldSpelling(columns, group.fields);
        const bool isReordered =
            fields.size() == group.fields.size() &&
            std::is_permutation(fields.begin(), fields.end(), group.fields.begin()) &&
            fields != group.fields;
        if (isReordered) tell(Kind::Changed, "EAI order of " + group.name + ": " + joined(fields));
        group.fields = std::move(fields);
    }

    void mergeFields(Catalogue::Zeko& zeko) {
        // The number of a field that is taken out now is not given out again either: pages may
        // still have it.
        long long last = 0;
        for (const auto& field : zeko.fields)
            last = std::max(last, field.number);
        if (dropsGone_) {
            std::erase_if(zeko.fields, [&](const Catalogue::NumberedField& field) {
                if (hasName(columns_, field.name)) return false;
                tell(Kind::Removed, entryOf(field));
                return true;
            });
        }
        for (const std::string& column : columns_) {
            if (findName(zeko.fields, column, nameOfField) != zeko.fields.end()) continue;
            zeko.fields.push_back({++last, column});
            tell(Kind::Added, entryOf(zeko.fields.back()));
        }
    }

    static std::string entryOf(const Catalogue::NumberedField& field) {
        return "ZEKO " + std::to_string(field.number) + " - " + field.name;
    }

    // A key field that somebody has added to the primary key stays: pages may have criteria on it.
    void mergeKey(const char* family, std::vector<std::string>& keyFields) {
        std::vector<std::string> fields;
        const auto add = [&](const std::string& field) {
            if (!hasName(fields, field)) fields.push_back(field);
        };
        for (const std::string& field : keyFields) {
            const bool isGone = dropsGone_ && !hasName(columns_, field);
            if (!isGone && !(prune_ && !key_.empty() && !hasName(key_, field))) add(field);
        }
        for (const std::string& field : key_)
            add(field);
        if (fields == keyFields) return;
        tell(keyFields.empty() ? Kind::Added : Kind::Changed,
             std::string(family) + " key fields " + joined(fields) +
                 (keyFields.empty() ? "" : " (were " + joined(keyFields) + ")"));
        keyFields = std::move(fields);
    }

    Provider& provider_;
    const Tables& tables_;
    const std::vector<std::string> columns_, key_;  // of all tables, each once
    bool prune_;
    bool dropsGone_ = false;  // what no table has is taken out
    std::vector<CatalogueChange>& changes_;
};

class Merger {
  public:
    Merger(const Catalogue& before, const MergeOptions& options) : options_(options) {
        result_.catalogue = before;
        tablesOf_.resize(before.providers.size());
    }

    MergedCatalogue merge(const std::vector<DatabaseTable>& tables) {
        for (const DatabaseTable& table : tables)
            tablesOf_[providerOf(table)].push_back(&table);
        auto& providers = result_.catalogue.providers;
        for (std::size_t i = 0; i < providers.size(); ++i) {
            if (const Tables& own = tablesOf_[i]; !own.empty())
                ProviderMerge(providers[i], own, options_.prune, result_.changes).merge();
        }
        return std::move(result_);
    }

  private:
    // The index of the provider that a table belongs to; made where there is none.
    std::size_t providerOf(const DatabaseTable& table) {
        auto& providers = result_.catalogue.providers;
        auto found = providers.end();
        if (options_.provider.empty()) {
            found = std::find_if(providers.begin(), providers.end(), [&](const Provider& provider) {
                return provider.eai &&
                       findName(provider.eai->groups, table.name, nameOfThis<Catalogue::Group>) !=
                           provider.eai->groups.end();
            });
        }
        const std::string& name = options_.provider.empty() ? table.name : options_.provider;
        if (found == providers.end()) found = findName(providers, name, nameOfThis<Provider>);
        if (found == providers.end()) {
            providers.push_back({name, Catalogue::Zeko{}, Catalogue::Eai{}});
            tablesOf_.resize(providers.size());
            result_.changes.push_back({Kind::Added, name, "data provider"});
            return providers.size() - 1;
        }
        return static_cast<std::size_t>(found - providers.begin());
    }

    const MergeOptions& options_;
    MergedCatalogue result_;
    std::vector<Tables> tablesOf_;  // by provider
};

}  // namespace

MergedCatalogue mergeTables(const Catalogue& before, const std::vector<DatabaseTable>& tables,
                            const MergeOptions& options) {
    return Merger(before, options).merge(tables);
}

// ---- the catalogue as text ----------------------------------------------------------------------

namespace {

constexpr std::size_t LineWidth = 100;

std::string quoted(const std::string& text) {
    using Json = nlohmann::json;
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::vector<std::string> quotedAll(const std::vector<std::string>& texts) {
    std::vector<std::string> all(texts.size());
    std::transform(texts.begin(), texts.end(), all.begin(), quoted);
    return all;
}

// "[a, b, c]", going on in a new line below the first item where a line is full. `column` is how
// much of the line is written already; `indent` that of the lines after it.
std::string list(const std::vector<std::string>& items, std::size_t column, std::size_t indent) {
    std::string text = "[";
    std::size_t used = column + 1;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool isLast = i + 1 == items.size();
        if (i > 0 && used + items[i].size() + 4 > LineWidth) {
            text.back() = '\n';
            text += std::string(indent, ' ');
            used = indent;
        }
        text += items[i] + (isLast ? "" : ", ");
        used += items[i].size() + 2;
    }
    return text + "]";
}

std::string zekoText(const Catalogue::Zeko& zeko) {
    std::vector<std::string> fields;
    fields.reserve(zeko.fields.size());
    for (const auto& field : zeko.fields)
        fields.push_back("{\"number\": " + std::to_string(field.number) +
                         ", \"name\": " + quoted(field.name) + "}");
    return "   \"zeko\": {\"fields\": " + list(fields, 22, 23) +
           ",\n            \"keyFields\": " + list(quotedAll(zeko.keyFields), 25, 26) + "}";
}

std::string eaiText(const Catalogue::Eai& eai) {
    std::string groups;
    for (const auto& group : eai.groups) {
        const std::string head = "{\"name\": " + quoted(group.name) + ", \"fields\": ";
        groups += (groups.empty() ? "" : ",\n                      ") + head +
                  list(quotedAll(group.fields), 22 + head.size(), 26) + "}";
    }
    return "   \"eai\": {\"groups\": [" + groups +
           "],\n           \"keyFields\": " + list(quotedAll(eai.keyFields), 24, 25) + "}";
}

}  // namespace

std::string catalogueText(const Catalogue& catalogue) {
    std::string text = "{\"providers\": [";
    for (const auto& provider : catalogue.providers) {
        text += std::string(&provider == &catalogue.providers.front() ? "" : ",") +
                "\n  {\"name\": " + quoted(provider.name);
        if (provider.zeko) text += ",\n" + zekoText(*provider.zeko);
        if (provider.eai) text += ",\n" + eaiText(*provider.eai);
        text += "}";
    }
    return text + "]}\n";
}

}  // namespace headerdtc
