#include "host/inspection/field_health.h"
#include "host/inspection/rules/rules.h"

#include <algorithm>
#include <unordered_map>

namespace headerdtc::rules {
// ---- providers ----------------------------------------------------------------------------------

namespace {

void requireKnown(const ControlView& control, const StoredItem& provider, std::string_view role,
                  Remarks& remarks) {
    if (control.facts().provider(provider.text)) return;
    const std::string similar = control.facts().similarProvider(provider.text);
    remarks.push_back(about(
        provider, std::nullopt,
        "the " + std::string(role) + " " + inQuotes(provider.text) + " is not in the catalogue",
        (similar.empty() ? "" : "is " + inQuotes(similar) + " meant? ") +
            std::string("choose one that is offered, or add it to the catalogue")));
}

}  // namespace

void providerIsKnown(const ControlView& control, Remarks& remarks) {
    const StoredItem& provider = control.configuration().dataProvider;
    if (!provider.text.empty()) return requireKnown(control, provider, "data provider", remarks);
    remarks.push_back(about(provider, std::nullopt, "no data provider is chosen",
                            "choose one on the General tab"));
}

void linkedProviderIsKnown(const ControlView& control, Remarks& remarks) {
    if (!control.configuration().hasLinkedProvider()) return;
    requireKnown(control, control.configuration().linkedDataProvider, "linked data provider",
                 remarks);
}

// ---- fields -------------------------------------------------------------------------------------

namespace {

bool isAmong(const std::vector<StoredItem>& items, std::string_view text) {
    return std::any_of(items.begin(), items.end(),
                       [&](const StoredItem& item) { return item.text == text; });
}

}  // namespace

void requireOffered(const StoredItem& field, StoredRole role, Family family,
                    const ProviderFields& offered, const std::string& provider, Remarks& remarks) {
    if (const auto vanished = vanishedField(role, family, field, offered, provider))
        remarks.push_back(about(field, family, vanished->text, vanished->advice));
}

void requireAllOffered(const std::vector<StoredItem>& fields, StoredRole role, Family family,
                       const ProviderFields& offered, const std::string& provider,
                       Remarks& remarks) {
    if (fields.empty()) return;
    if (offered.empty()) {
        remarks.push_back(about(
            fields.front(), family,
            inQuotes(provider) + " offers nothing to " + std::string(traitsOf(family).prefix) +
                ", but " + std::to_string(fields.size()) + " " + std::string(nameOf(role)) +
                (fields.size() == 1 ? " is" : "s are") + " chosen",
            "remove them, or describe the family in the catalogue"));
        return;
    }
    for (const StoredItem& field : fields)
        requireOffered(field, role, family, offered, provider, remarks);
}

void fieldsAreOffered(const ControlView& control, Remarks& remarks) {
    const auto* provider = control.provider();
    if (!provider) return;  // another rule's
    const StoredConfiguration& configuration = control.configuration();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        requireAllOffered(own.returnFields, StoredRole::ReturnField, family, provider->of(family),
                          configuration.dataProvider.text, remarks);
        const auto requireReturned = [&](const std::vector<StoredItem>& fields, StoredRole role) {
            for (const StoredItem& field : fields) {
                if (field.text.empty() || isAmong(own.returnFields, field.text)) continue;
                remarks.push_back(about(
                    field, family,
                    std::string(nameOf(role)) + " " + inQuotes(field.text) + " is no return field",
                    "choose it as return field too, or take it out"));
            }
        };
        requireReturned(own.translatedNames, StoredRole::TranslatedName);
        requireReturned(own.translatedValues, StoredRole::TranslatedValue);
    }
}

void keyFieldsAreOffered(const ControlView& control, Remarks& remarks) {
    const auto* provider = control.provider();
    if (!provider) return;
    const StoredConfiguration& configuration = control.configuration();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        const ProviderFields& offered = provider->of(family);
        const auto require = [&](const StoredItem& key, StoredRole role) {
            requireOffered(key, role, family, offered, configuration.dataProvider.text, remarks);
        };
        for (const StoredItem& key : own.keyFields)
            require(key, StoredRole::KeyField);
        for (const auto& criterion : own.criteria) {
            if (criterion.isWritten()) require(criterion.key, StoredRole::CriterionKey);
        }
    }
}

// Only where the generation takes an entry apart: EAI return fields it writes whole.
void fieldsHaveTheirSeparator(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        const auto& own = control.configuration().of(family);
        const auto require = [&](const StoredItem& field, StoredRole role, bool always = false) {
            if ((field.text.empty() && !always) || fieldNameIn(field.text, family)) return;
            remarks.push_back(about(field, family,
                                    std::string(nameOf(role)) + " " + inQuotes(field.text) +
                                        " has no " + inQuotes(traitsOf(family).separator) +
                                        " before its name, which stops the generation",
                                    "remove it and choose the field anew"));
        };
        if (family == Family::ZEKO) {
            for (const StoredItem& field : own.returnFields)
                require(field, StoredRole::ReturnField, true);
            for (const StoredItem& field : own.linkedFields)
                require(field, StoredRole::LinkedField, true);
        }
        for (const StoredItem& field : own.translatedNames)
            require(field, StoredRole::TranslatedName);
        for (const StoredItem& field : own.translatedValues)
            require(field, StoredRole::TranslatedValue);
        for (const auto& link : own.links)
            require(link.from, StoredRole::LinkFrom);
    }
}

// The script puts them into dictionaries, which take no key twice: a number of ZEKO's, a name of
// EAI's, the name of the field that is linked.
void fieldsAreThereOnce(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        const auto& own = control.configuration().of(family);
        std::unordered_map<std::string_view, int> rows;
        const auto require = [&](const StoredItem& field, std::string_view key, StoredRole role) {
            const auto [first, isNew] = rows.emplace(key, field.row);
            if (key.empty() || isNew) return;
            remarks.push_back(about(field, family,
                                    std::string(nameOf(role)) + " " + inQuotes(field.text) +
                                        " is there twice (row " + std::to_string(first->second) +
                                        "), at which the page fails",
                                    "take one of them out"));
        };
        const auto requireAll = [&](const std::vector<StoredItem>& fields, StoredRole role) {
            rows.clear();
            for (const StoredItem& field : fields) {
                const std::string_view entry = field.text;
                require(field,
                        family == Family::EAI
                            ? entry
                            : trimBlanks(entry.substr(0, entry.find(traitsOf(family).separator))),
                        role);
            }
        };
        requireAll(own.returnFields, StoredRole::ReturnField);
        requireAll(own.linkedFields, StoredRole::LinkedField);
        rows.clear();
        for (const auto& link : own.links)
            require(link.from, fieldNameIn(link.from.text, family).value_or(""),
                    StoredRole::LinkFrom);
    }
}

Remark about(const StoredItem& item, std::optional<Family> family, std::string text,
             std::string advice) {
    return {family, item.row, item.property, std::move(text), std::move(advice)};
}

// ---- links --------------------------------------------------------------------------------------

void linkedFieldsAreOffered(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    const auto* provider = control.provider();
    const auto* linked = control.linkedProvider();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        if (linked)
            requireAllOffered(own.linkedFields, StoredRole::LinkedField, family, linked->of(family),
                              configuration.linkedDataProvider.text, remarks);
        for (const auto& link : own.links) {
            if (provider)
                requireOffered(link.from, StoredRole::LinkFrom, family, provider->of(family),
                               configuration.dataProvider.text, remarks);
            if (linked)
                requireOffered(link.to, StoredRole::LinkTo, family, linked->of(family),
                               configuration.linkedDataProvider.text, remarks);
        }
    }
}

void linksAreWhole(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        bool linksAnything = false;
        for (const auto& link : own.links) {
            const bool from = !link.from.text.empty(), to = !link.to.text.empty();
            linksAnything = linksAnything || from;
            if (from == to) continue;
            remarks.push_back(about(from ? link.to : link.from, family,
                                    "link " + std::to_string(link.row) + " has only its " +
                                        (from ? "from-field " + inQuotes(link.from.text)
                                              : "to-field " + inQuotes(link.to.text)) +
                                        (from ? "" : " and is left out"),
                                    "choose the other field, or remove the link"));
        }
        if (linksAnything && !configuration.hasLinkedProvider()) {
            remarks.push_back(about(configuration.linkedDataProvider, family,
                                    "fields are linked, but no linked data provider is chosen",
                                    "choose one on the link tab, or remove the links"));
        }
        if (!linksAnything && !own.linkedFields.empty()) {
            remarks.push_back(about(own.linkedFields.front(), family,
                                    "linked fields are chosen, but no fields are linked, so they "
                                    "are never read",
                                    "link a field of this provider to one of the other, or remove "
                                    "the linked fields"));
        }
    }
}

}  // namespace headerdtc::rules
