#include "host/inspection/configuration_text.h"

#include "core/family_controls.h"
#include "host/inspection/finding.h"
#include "host/inspection/provider_fields.h"
#include "platform/text.h"

#include <iterator>
#include <string_view>

namespace headerdtc {
namespace {

using OfFamily = StoredConfiguration::OfFamily;

// A field in an author's words: without its number, which only the suite needs, but with its record
// group.
std::string fieldInWords(std::string_view entry, Family family) {
    const auto name = family == Family::ZEKO ? fieldNameIn(entry, family) : std::nullopt;
    return std::string(trimBlanks(name.value_or(entry)));
}

// Texts one after the other; empty ones, which say nothing, are passed over.
template <class Items, class InWords>
std::string listed(const Items& items, const InWords& inWords, std::string_view between = ", ") {
    std::string text;
    for (const auto& item : items) {
        const std::string words = inWords(item);
        if (words.empty()) continue;
        if (!text.empty()) text += between;
        text += words;
    }
    return text;
}

std::string fieldsInWords(const std::vector<StoredItem>& fields, Family family) {
    return listed(fields,
                  [&](const StoredItem& field) { return fieldInWords(field.text, family); });
}

// "is at least", by the place of an operator in their table.
std::string operatorInWords(std::string_view operation) {
    constexpr std::string_view Words[] = {"is", "is at most", "is at least"};
    static_assert(std::size(Words) == std::size(CriteriumOperators));
    for (std::size_t i = 0; i < std::size(Words); ++i) {
        if (operation == CriteriumOperators[i]) return std::string(Words[i]);
    }
    return std::string(operation);
}

// A criterion that lacks a piece is not generated, so it is left out here too.
std::string criteriaInWords(const OfFamily& family) {
    return listed(
        family.criteria,
        [&](const StoredConfiguration::Criterion& criterion) -> std::string {
            if (!criterion.isWritten()) return {};
            const std::string& value = criterion.value.text;
            const int type = family.typeOf(value);
            std::string words = std::string(trimBlanks(criterion.key.text)) + " " +
                                operatorInWords(criterion.operation.text) + " ";
            words += type == CONSTANT ? inQuotes(value) : value + "()";
            return words + (type == USERSCRIPT ? " (local script)" : "");
        },
        ", and ");
}

std::string linksInWords(const OfFamily& own, Family family) {
    return listed(own.links, [&](const StoredConfiguration::Link& link) -> std::string {
        if (link.from.text.empty() && link.to.text.empty()) return {};
        return fieldInWords(link.from.text, family) + " to " + fieldInWords(link.to.text, family);
    });
}

}  // namespace

std::vector<Statement> inWords(const StoredConfiguration& configuration) {
    std::vector<Statement> statements;
    const auto say = [&](std::string subject, std::string text) {
        if (!text.empty()) statements.push_back({std::move(subject), std::move(text)});
    };
    const std::string& provider = configuration.dataProvider.text;
    say("Data provider", provider.empty() ? "none is chosen" : provider);
    const auto textOf = [](const StoredItem& item) { return item.text; };
    say("Include files", listed(configuration.includes, textOf));
    say("Stylesheet", configuration.stylesheet.text);
    say("Local scripts",
        listed(configuration.scripts, [](const auto& script) { return script.name.text; }));
    say("Filters", configuration.hasExtraFilters ? "end users may filter on further fields" : "");
    for (const Family family : {Family::EAI, Family::ZEKO}) {
        const OfFamily& own = configuration.of(family);
        const std::string prefix(traitsOf(family).prefix);
        say(prefix + " fields", fieldsInWords(own.returnFields, family));
        say(prefix + " criteria", criteriaInWords(own));
        say(prefix + " sort field", own.keyFields.empty() ? "" : own.keyFields.front().text);
        say(prefix + " translated names", fieldsInWords(own.translatedNames, family));
        say(prefix + " translated values", fieldsInWords(own.translatedValues, family));
    }
    if (!configuration.hasLinkedProvider()) return statements;
    say("Linked data provider", configuration.linkedDataProvider.text);
    for (const Family family : {Family::EAI, Family::ZEKO}) {
        const OfFamily& own = configuration.of(family);
        const std::string prefix(traitsOf(family).prefix);
        say(prefix + " links", linksInWords(own, family));
        say(prefix + " linked fields", fieldsInWords(own.linkedFields, family));
    }
    return statements;
}

}  // namespace headerdtc
