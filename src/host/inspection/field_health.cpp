#include "host/inspection/field_health.h"

#include "core/header_dtc.h"
#include "host/inspection/finding.h"
#include "platform/text.h"

namespace headerdtc {
namespace {

bool isOffered(StoredRole role, std::string_view text, const ProviderFields& offered) {
    switch (role) {
        case StoredRole::KeyField:
        case StoredRole::CriterionKey:
            return offered.hasKeyField(text);
        case StoredRole::LinkTo:
            return offered.hasKeyField(text) || offered.hasName(text);
        default:
            return offered.hasEntry(text);
    }
}

void describe(VanishedField& field, std::string_view text) {
    const std::string role(nameOf(field.role));
    switch (field.role) {
        case StoredRole::KeyField:
        case StoredRole::CriterionKey:
            field.text =
                role + " " + inQuotes(text) + " is no key field of " + inQuotes(field.provider);
            field.advice = field.role == StoredRole::KeyField
                               ? "choose the provider anew, so that its keys are read"
                               : "choose a key field that is offered";
            return;
        case StoredRole::LinkTo:
            field.text = role + " " + std::to_string(field.item.row) + ", " + inQuotes(text) +
                         ", is no field of the linked data provider " + inQuotes(field.provider);
            field.advice = "choose a key field of that provider, or remove the link";
            return;
        default:
            field.text = role + " " + inQuotes(text) + " is not offered by " +
                         inQuotes(field.provider) +
                         (field.now ? "; the field is " + inQuotes(*field.now) + " there" : "");
            field.advice = (field.like.empty() ? "" : "is " + inQuotes(field.like) + " meant? ") +
                           std::string("remove it, or choose the field anew");
    }
}

}  // namespace

std::optional<VanishedField> vanishedField(StoredRole role, Family family, const StoredItem& item,
                                           const ProviderFields& offered,
                                           const std::string& provider) {
    const bool isKey = role == StoredRole::KeyField || role == StoredRole::CriterionKey;
    const std::string_view text = isKey ? trimBlanks(item.text) : std::string_view(item.text);
    if (text.empty() || isOffered(role, text, offered)) return std::nullopt;
    VanishedField field;
    field.role = role;
    field.family = family;
    field.item = item;
    field.provider = provider;
    if (!isKey && role != StoredRole::LinkTo) {
        const auto name = fieldNameIn(item.text, family);
        if (name) field.now = offered.entryOfName(*name);
        if (!field.now) field.like = offered.entryLike(item.text, family);
    }
    describe(field, text);
    return field;
}

std::vector<VanishedField> vanishedFields(const StoredConfiguration& configuration,
                                          const OfferLookup& offers) {
    std::vector<VanishedField> vanished;
    for (const Family family : {Family::EAI, Family::ZEKO}) {
        const auto& own = configuration.of(family);
        const auto look = [&](StoredRole role, const StoredItem& item, const StoredItem& provider) {
            const ProviderFields* offered = offers(provider.text, family);
            if (!offered) return;
            if (auto field = vanishedField(role, family, item, *offered, provider.text))
                vanished.push_back(std::move(*field));
        };
        const StoredItem& provider = configuration.dataProvider;
        for (const StoredItem& item : own.returnFields)
            look(StoredRole::ReturnField, item, provider);
        for (const auto& criterion : own.criteria)
            look(StoredRole::CriterionKey, criterion.key, provider);
        for (const auto& link : own.links)
            look(StoredRole::LinkFrom, link.from, provider);
        if (!configuration.hasLinkedProvider()) continue;
        const StoredItem& linked = configuration.linkedDataProvider;
        for (const auto& link : own.links)
            look(StoredRole::LinkTo, link.to, linked);
        for (const StoredItem& item : own.linkedFields)
            look(StoredRole::LinkedField, item, linked);
    }
    return vanished;
}

// ---- replacing a field --------------------------------------------------------------------------

namespace {

template <class List>
void replaceIn(List& list, const std::string& text, const std::string& with) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text) list.List(i, with);
    }
}

void replaceIn(Grid& grid, int column, const std::string& text, const std::string& with) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, column) == text) grid.TextMatrix(row, column, with);
    }
}

// Blanks before a number depend on how many fields there were when the list was made.
void takeFrom(ListBox& available, const std::string& field) {
    for (int i = available.ListCount() - 1; i >= 0; --i) {
        if (trimBlanks(available.List(i)) == trimBlanks(field)) available.RemoveItem(i);
    }
}

}  // namespace

void replaceField(HeaderDTC& dtc, const VanishedField& vanished, const std::string& with) {
    FamilyControls& family = dtc.family(vanished.family);
    const std::string& text = vanished.item.text;
    const int row = vanished.item.row;
    switch (vanished.role) {
        case StoredRole::ReturnField:
            family.SelectedFieldsList.List(row - 1, with);
            replaceIn(family.I18NFieldnamesList, text, with);
            replaceIn(family.I18NFieldValuesList, text, with);
            replaceIn(family.FromLinkFieldsCombo, text, with);
            replaceIn(family.LinksGrid, links_column::From, text, with);
            return takeFrom(family.FieldsList, with);
        case StoredRole::LinkedField:
            family.SelectedLinkedFieldsList.List(row - 1, with);
            return takeFrom(family.LinkedFieldsList, with);
        case StoredRole::CriterionKey:
            return family.CriteriaGrid.TextMatrix(row, criteria_column::Key, with);
        case StoredRole::LinkFrom:
            return family.LinksGrid.TextMatrix(row, links_column::From, with);
        case StoredRole::LinkTo:
            return family.LinksGrid.TextMatrix(row, links_column::To, with);
        default:
            return;
    }
}

}  // namespace headerdtc
