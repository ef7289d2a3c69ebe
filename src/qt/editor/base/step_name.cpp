#include "qt/editor/base/step_name.h"

#include "core/family_controls.h"
#include "core/stored_keys.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <vector>

namespace headerdtc::qt {
namespace {

constexpr int General = 0;
constexpr int Eai = 1;
constexpr int Zeko = 2;
constexpr int Translations = 3;
constexpr int EaiLink = 4;
constexpr int ZekoLink = 5;

struct Known {
    std::string_view word;  // in the property's name
    const char* caption;
    int tab;
    bool follows = false;  // from what an author chooses
};

// What an author chooses comes first, what follows from it last. The first row whose word occurs in
// the name holds, so a word stands above those that it contains.
constexpr Known Table[] = {
    {"LinkedDataProvider", "linked data provider", ZekoLink},
    {"DataProvider", "data provider", General},
    {"EnableExtraFilters", "extra filters", General},
    {"ExtraIncludes", "include files", General},
    {"XSLFilename", "stylesheet", General},
    {"UserDefinedScript", "scripts", Zeko},
    {"ZEKOReturnField", "ZEKO return fields", Zeko},
    {"EAIReturnField", "EAI return fields", Eai},
    {"ZEKOSelectedLinkedFields", "ZEKO linked fields", ZekoLink},
    {"SelectedZEKOLinkedFields", "ZEKO linked fields", ZekoLink},
    {"EAISelectedLinkedFields", "EAI linked fields", EaiLink},
    {"SelectedEAILinkedFields", "EAI linked fields", EaiLink},
    {"ZEKOI18NFieldnames", "ZEKO translated names", Translations},
    {"EAII18NFieldnames", "EAI translated names", Translations},
    {"ZEKOI18NFieldValues", "ZEKO translated values", Translations},
    {"EAII18NFieldValues", "EAI translated values", Translations},
    {"ZEKOCriteria", "ZEKO criteria", Zeko},
    {"EAICriteria", "EAI criteria", Eai},
    {"ZEKOLinkFromFields", "ZEKO links", ZekoLink},
    {"ZEKOLinkToFields", "ZEKO links", ZekoLink},
    {"LinkedZEKOFields", "ZEKO links", ZekoLink},
    {"EAILinkFromFields", "EAI links", EaiLink},
    {"EAILinkToFields", "EAI links", EaiLink},
    {"LinkedEAIFields", "EAI links", EaiLink},
    {"ZEKOKeyField", "ZEKO key fields", Zeko, true},
    {"EAIKeyField", "EAI key fields", Eai, true},
    {"ZEKOAvailableFieldsLinked", "linked provider's ZEKO fields", ZekoLink, true},
    {"EAIAvailableFieldsLinked", "linked provider's EAI fields", EaiLink, true},
    {"ZEKOAvailableFields", "ZEKO available fields", Zeko, true},
    {"EAIAvailableFields", "EAI available fields", Eai, true},
    {"ZEKOToLinkKeyFields", "linked provider's ZEKO key fields", ZekoLink, true},
    {"EAIToLinkKeyFields", "linked provider's EAI key fields", EaiLink, true},
};

const Known* find(std::string_view name) {
    for (const Known& known : Table) {
        if (name.find(known.word) != std::string_view::npos) return &known;
    }
    return nullptr;
}

std::vector<std::string_view> differing(const StoredProperties& before,
                                        const StoredProperties& after) {
    const std::set<StoredProperties::value_type> old(before.begin(), before.end());
    const std::set<StoredProperties::value_type> now(after.begin(), after.end());
    std::vector<std::string_view> names;
    for (const auto& property : before) {
        if (!now.contains(property)) names.emplace_back(property.first);
    }
    for (const auto& property : after) {
        if (!old.contains(property)) names.emplace_back(property.first);
    }
    return names;
}

}  // namespace

QString propertyCaption(std::string_view storedName) {
    const Known* known = find(storedName);
    return known ? QString::fromLatin1(known->caption)
                 : QString::fromUtf8(storedName.data(), static_cast<qsizetype>(storedName.size()));
}

QString describeChange(const StoredProperties& before, const StoredProperties& after) {
    const Known* first = nullptr;
    for (const std::string_view name : differing(before, after)) {
        const Known* known = find(name);
        if (known && (!first || known < first)) first = known;
    }
    return first ? QString::fromLatin1(first->caption) : QStringLiteral("configuration");
}

std::vector<ChangedPart> changedParts(const StoredProperties& before,
                                      const StoredProperties& after) {
    struct Texts {
        std::multiset<std::string_view> before, after;
    };
    std::map<const Known*, Texts> texts;  // in the order of the table
    const auto gather = [&](const StoredProperties& properties, auto member) {
        for (const auto& [name, text] : properties) {
            const Known* known = find(name);
            const bool isText = storedTypeOf(name) == StoredType::String && !isScriptButton(name);
            if (known && isText) (texts[known].*member).insert(text);
        }
    };
    gather(before, &Texts::before);
    gather(after, &Texts::after);
    std::map<const Known*, bool> changed;
    for (const std::string_view name : differing(before, after)) {
        const Known* known = find(name);
        if (known && !isScriptButton(name)) changed[known] = true;
    }
    std::vector<ChangedPart> parts;
    for (const bool follows : {false, true}) {
        for (const auto& [known, _] : changed) {
            if (known->follows != follows) continue;
            ChangedPart part;
            part.caption = QString::fromLatin1(known->caption);
            const auto list = [](const auto& from, const auto& without, QStringList& to) {
                std::vector<std::string_view> left;
                std::set_difference(from.begin(), from.end(), without.begin(), without.end(),
                                    std::back_inserter(left));
                for (const std::string_view text : left) {
                    if (!text.empty())
                        to += QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
                                  .trimmed();
                }
            };
            list(texts[known].after, texts[known].before, part.added);
            list(texts[known].before, texts[known].after, part.removed);
            const bool isToldAlready = std::any_of(
                parts.begin(), parts.end(),
                [&](const ChangedPart& other) { return other.caption == part.caption; });
            if (!isToldAlready) parts.push_back(std::move(part));
        }
        if (!parts.empty()) break;
    }
    return parts;
}

bool isSameConfiguration(const StoredProperties& left, const StoredProperties& right) {
    if (left == right) return true;
    const auto names = differing(left, right);
    // Properties in another order are another configuration: a list was sorted, say.
    return !names.empty() && std::all_of(names.begin(), names.end(), isScriptButton);
}

QString changedNames(const StoredProperties& before, const StoredProperties& after) {
    auto names = differing(before, after);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::string joined;
    for (const std::string_view name : names) {
        joined += name;
        joined += ' ';
    }
    return QString::fromStdString(joined);
}

int tabOfProperty(std::string_view storedName) {
    const Known* known = find(storedName);
    return known ? known->tab : General;
}

}  // namespace headerdtc::qt
