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
using Names = std::vector<std::string>;

template <class Items, class NameOf>
auto findName(Items& items, std::string_view name, NameOf&& nameOf) {
    return std::find_if(items.begin(), items.end(),
                        [&](const auto& item) { return equalIgnoringCase(nameOf(item), name); });
}

const std::string& itself(const std::string& name) {
    return name;
}
template <class Named>
const std::string& nameOfThis(const Named& named) {
    return named.name;
}

bool hasName(const Names& names, std::string_view name) {
    return findName(names, name, itself) != names.end();
}

// The names in the spelling that was there before.
Names inOldSpelling(const Names& names, const Names& before) {
    Names spelt;
    for (const std::string& name : names) {
        const auto old = findName(before, name, itself);
        spelt.push_back(old == before.end() ? name : *old);
    }
    return spelt;
}

Names allOnce(const Tables& tables, Names DatabaseTable::*list) {
    Names names;
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
    ProviderMerge(Provider& provider, const Tables& tables)
        : provider_(provider),
          tables_(tables),
          columns_(allOnce(tables, &DatabaseTable::columns)),
          key_(allOnce(tables, &DatabaseTable::key)) {}

    void merge() {
        // A record group from elsewhere may have fields that no table here has.
        dropsGone_ =
            !provider_.eai ||
            std::all_of(provider_.eai->groups.begin(), provider_.eai->groups.end(),
                        [&](const Catalogue::Group& group) { return isTable(group.name); });
        if (provider_.eai) {
            mergeGroups(provider_.eai->groups);
            mergeKey(provider_.eai->keyFields);
        }
        if (provider_.zeko) {
            mergeFields(provider_.zeko->fields);
            mergeKey(provider_.zeko->keyFields);
        }
    }

  private:
    bool isTable(std::string_view group) const {
        return std::any_of(tables_.begin(), tables_.end(), [&](const DatabaseTable* table) {
            return equalIgnoringCase(table->name, group);
        });
    }

    void mergeGroups(std::vector<Catalogue::Group>& groups) {
        for (const DatabaseTable* table : tables_) {
            auto group = findName(groups, table->name, nameOfThis<Catalogue::Group>);
            if (group == groups.end()) group = groups.insert(groups.end(), {table->name, {}});
            group->fields = inOldSpelling(table->columns, group->fields);
        }
    }

    void mergeFields(std::vector<Catalogue::NumberedField>& fields) {
        // The number of a field that is taken out now is not given out again either: pages may
        // still have it.
        long long last = 0;
        for (const auto& field : fields)
            last = std::max(last, field.number);
        std::erase_if(fields, [&](const auto& field) {
            return dropsGone_ && !hasName(columns_, field.name);
        });
        for (const std::string& column : columns_) {
            if (findName(fields, column, nameOfThis<Catalogue::NumberedField>) == fields.end())
                fields.push_back({++last, column});
        }
    }

    // A key field that somebody has added to the primary key stays: pages may have criteria on it.
    void mergeKey(Names& keyFields) {
        std::erase_if(keyFields, [&](const std::string& field) {
            return dropsGone_ && !hasName(columns_, field);
        });
        for (const std::string& field : key_) {
            if (!hasName(keyFields, field)) keyFields.push_back(field);
        }
    }

    Provider& provider_;
    const Tables& tables_;
    const Names columns_, key_;  // of all tables, each once
    bool dropsGone_ = false;     // what no table has is taken out
};

// The index of the provider that a table belongs to; made where there is none.
std::size_t providerOf(const DatabaseTable& table, std::vector<Provider>& providers) {
    auto found = std::find_if(providers.begin(), providers.end(), [&](const Provider& provider) {
        return provider.eai && findName(provider.eai->groups, table.name,
                                        nameOfThis<Catalogue::Group>) != provider.eai->groups.end();
    });
    if (found == providers.end()) found = findName(providers, table.name, nameOfThis<Provider>);
    if (found == providers.end())
        found = providers.insert(found, {table.name, Catalogue::Zeko{}, Catalogue::Eai{}});
    return static_cast<std::size_t>(found - providers.begin());
}

// ---- changes -----------------------------------------------------------------------------------

Names entriesOf(const std::optional<Catalogue::Eai>& eai) {
    Names entries;
    if (!eai) return entries;
    for (const auto& group : eai->groups) {
        for (const std::string& field : group.fields)
            entries.push_back(group.name + "." + field);
    }
    return entries;
}

Names entriesOf(const std::optional<Catalogue::Zeko>& zeko) {
    Names entries;
    if (!zeko) return entries;
    for (const auto& field : zeko->fields)
        entries.push_back(std::to_string(field.number) + " - " + field.name);
    return entries;
}

std::string joined(const Names& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

template <class Query>
void compare(const std::string& family, const std::string& provider,
             const std::optional<Query>& old, const std::optional<Query>& now,
             std::vector<CatalogueChange>& changes) {
    const auto tell = [&](Kind kind, const std::string& what) {
        changes.push_back({kind, provider, family + what});
    };
    const Names before = entriesOf(old), after = entriesOf(now);
    const auto tellLacking = [&](const Names& these, const Names& those, Kind kind) {
        for (const std::string& entry : these) {
            if (std::find(those.begin(), those.end(), entry) == those.end()) tell(kind, entry);
        }
    };
    const std::size_t count = changes.size();
    tellLacking(before, after, Kind::Removed);
    tellLacking(after, before, Kind::Added);
    if (changes.size() == count && before != after) tell(Kind::Changed, "order of the fields");
    const Names keysBefore = old ? old->keyFields : Names(), keys = now ? now->keyFields : Names();
    if (keys == keysBefore) return;
    tell(keysBefore.empty() ? Kind::Added : Kind::Changed,
         "key fields " + joined(keys) +
             (keysBefore.empty() ? "" : " (were " + joined(keysBefore) + ")"));
}

}  // namespace

Catalogue mergeTables(Catalogue catalogue, const std::vector<DatabaseTable>& tables) {
    std::vector<Tables> tablesOf(catalogue.providers.size());  // by provider
    for (const DatabaseTable& table : tables) {
        const std::size_t provider = providerOf(table, catalogue.providers);
        tablesOf.resize(catalogue.providers.size());
        tablesOf[provider].push_back(&table);
    }
    for (std::size_t i = 0; i < tablesOf.size(); ++i) {
        if (!tablesOf[i].empty()) ProviderMerge(catalogue.providers[i], tablesOf[i]).merge();
    }
    return catalogue;
}

Catalogue mergeList(Catalogue catalogue, const Catalogue& list) {
    for (const Provider& listed : list.providers) {
        auto& providers = catalogue.providers;
        const auto found =
            std::find_if(providers.begin(), providers.end(),
                         [&](const Provider& provider) { return provider.name == listed.name; });
        if (found == providers.end()) {
            providers.push_back(listed);
            continue;
        }
        if (listed.zeko) found->zeko = listed.zeko;
        if (listed.eai) found->eai = listed.eai;
    }
    return catalogue;
}

std::vector<CatalogueChange> changesBetween(const Catalogue& before, const Catalogue& after) {
    std::vector<CatalogueChange> changes;
    for (const Provider& now : after.providers) {
        static const Provider None;
        const Provider* const found = before.find(now.name);
        if (!found) changes.push_back({Kind::Added, now.name, "data provider"});
        const Provider& old = found ? *found : None;
        compare("EAI ", now.name, old.eai, now.eai, changes);
        compare("ZEKO ", now.name, old.zeko, now.zeko, changes);
    }
    return changes;
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
