#include "qt/editor/base/step_name.h"

#include "core/stored_keys.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace headerdtc::qt {
namespace {

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

QString describeChange(const StoredProperties& before, const StoredProperties& after) {
    std::optional<ControlPart> first;
    for (const std::string_view name : differing(before, after)) {
        const auto part = partOf(name);
        if (part && (!first || *part < *first)) first = part;
    }
    return first ? QString::fromStdString(first->caption()) : QStringLiteral("configuration");
}

std::vector<ChangedPart> changedParts(const StoredProperties& before,
                                      const StoredProperties& after) {
    struct Texts {
        std::multiset<std::string_view> before, after;
        bool isChanged = false;
    };
    std::map<ControlPart, Texts> texts;
    const auto gather = [&](const StoredProperties& properties, auto member) {
        for (const auto& [name, text] : properties) {
            const auto part = partOf(name);
            const bool isText = storedTypeOf(name) == StoredType::String && !isScriptButton(name);
            if (part && isText) (texts[*part].*member).insert(text);
        }
    };
    gather(before, &Texts::before);
    gather(after, &Texts::after);
    for (const std::string_view name : differing(before, after)) {
        const auto part = partOf(name);
        if (part && !isScriptButton(name)) texts[*part].isChanged = true;
    }
    const auto missing = [](const auto& from, const auto& without) {
        std::vector<std::string_view> left;
        std::set_difference(from.begin(), from.end(), without.begin(), without.end(),
                            std::back_inserter(left));
        QStringList shown;
        for (const std::string_view text : left) {
            if (!text.empty())
                shown +=
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).trimmed();
        }
        return shown;
    };
    std::vector<ChangedPart> parts;
    for (const auto& [part, of] : texts) {
        // What follows is told where nothing else has changed.
        if (!of.isChanged || (part.followsFromAChoice() && !parts.empty())) continue;
        parts.push_back({QString::fromStdString(part.caption()), missing(of.after, of.before),
                         missing(of.before, of.after)});
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

}  // namespace headerdtc::qt
