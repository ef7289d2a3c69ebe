#include "qt/editor/base/step_name.h"

#include "core/stored_key_table.h"
#include "qt/surface/text.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <vector>

namespace headerdtc::qt {
namespace {

struct StepName {
    Q_DECLARE_TR_FUNCTIONS(StepName)
};

using Property = StoredProperties::value_type;

// What only one of the two has so.
std::vector<const Property*> differing(const StoredProperties& before,
                                       const StoredProperties& after) {
    using Texts = std::set<std::pair<std::string_view, std::string_view>>;
    const Texts old(before.begin(), before.end());
    const Texts now(after.begin(), after.end());
    std::vector<const Property*> properties;
    for (const Property& property : before) {
        if (!now.contains(property)) properties.push_back(&property);
    }
    for (const Property& property : after) {
        if (!old.contains(property)) properties.push_back(&property);
    }
    return properties;
}

// Whether a property says what is so without it, too.
bool isDefault(const stored::Row& row, const std::string& text) {
    if (row.holds<stored::LinkedProvider>() && text == stored::LinkedProviderNotStored) return true;
    if (const auto* number = std::get_if<std::int16_t>(&row.fallback))
        return text == std::to_string(*number);
    const auto* words = std::get_if<std::string_view>(&row.fallback);
    return text == (words ? *words : "0");
}

// What a control holds, part by part, in words.
using Things = std::map<ControlPart, std::multiset<QString>>;

// The rows of a grid, and the texts of each by column.
using Rows = std::map<int, std::map<int, QString>>;

std::map<ControlPart, Rows> rowsOf(const StoredProperties& properties) {
    std::map<ControlPart, int> counts;
    std::map<ControlPart, Rows> rows;
    for (const stored::Row& row : stored::Table) {
        if (row.holds<stored::RowCount>())
            counts[{row.part, row.family()}] = std::get<std::int16_t>(row.fallback);
    }
    for (const auto& [name, text] : properties) {
        const auto parsed = parseStoredName(name);
        if (!parsed || isScriptButton(name)) continue;
        const ControlPart part{parsed->row.part, parsed->row.family()};
        if (parsed->row.holds<stored::RowCount>()) {
            counts[part] = toQt(text).toInt();
        } else if (parsed->row.holds<stored::Cells>()) {
            rows[part][parsed->number][parsed->column] = toQt(text).trimmed();
        } else if (part.part == StoredPart::Links) {
            const bool isFrom = parsed->row.holds<stored::LinkRows>();
            rows[part][parsed->number][isFrom ? 0 : 1] = toQt(text).trimmed();
        }
    }
    // The header counts, too.
    for (const auto& [part, count] : counts) {
        for (int row = 1; row < count; ++row)
            rows[part].try_emplace(row);
    }
    return rows;
}

Things thingsOf(const StoredProperties& properties) {
    Things things;
    for (const auto& [part, rows] : rowsOf(properties)) {
        const QString between = QLatin1String(part.part == StoredPart::Links ? " = " : " ");
        for (const auto& [_, cells] : rows) {
            QStringList texts;
            for (const auto& [column, text] : cells)
                texts += text;
            texts.removeAll(QString());
            things[part].insert(texts.isEmpty() ? StepName::tr("an empty row")
                                                : texts.join(between));
        }
    }
    for (const auto& [name, text] : properties) {
        const auto parsed = parseStoredName(name);
        if (!parsed || parsed->row.type != StoredType::String || isDefault(parsed->row, text))
            continue;
        const ControlPart part{parsed->row.part, parsed->row.family()};
        if (part.part == StoredPart::Criteria || part.part == StoredPart::Links) continue;
        if (part.part != StoredPart::Scripts) {
            things[part].insert(toQt(text).trimmed());
        } else if (!parsed->entry.empty()) {
            // By its name; what it says is too long.
            things[part].insert(toQt(parsed->entry));
        }
    }
    return things;
}

// What of a part the one has and the other has not.
QStringList missing(const Things& from, const Things& without, const ControlPart& part) {
    static const std::multiset<QString> nothing;
    const auto of = [&](const Things& things) -> const std::multiset<QString>& {
        const auto found = things.find(part);
        return found == things.end() ? nothing : found->second;
    };
    QStringList left;
    std::set_difference(of(from).begin(), of(from).end(), of(without).begin(), of(without).end(),
                        std::back_inserter(left));
    left.removeAll(QString());
    return left;
}

// For a menu: one thing by its name, several by their number.
QString brief(const QStringList& texts) {
    constexpr qsizetype Longest = 32;
    if (texts.size() > 1) return QString::number(texts.size());
    const QString& text = texts.front();
    return text.size() <= Longest ? text : text.left(Longest - 1) + QChar(0x2026);
}

}  // namespace

std::set<ControlPart> differingParts(const StoredProperties& before,
                                     const StoredProperties& after) {
    std::set<ControlPart> parts;
    if (before == after) return parts;
    for (const Property* property : differing(before, after)) {
        const auto parsed = parseStoredName(property->first);
        if (!parsed || parsed->column == criteria_column::Script) continue;
        if (!isDefault(parsed->row, property->second))
            parts.insert({parsed->row.part, parsed->row.family()});
    }
    return parts;
}

std::vector<ChangedPart> changedParts(const StoredProperties& before,
                                      const StoredProperties& after) {
    std::vector<ChangedPart> parts;
    const auto differ = differingParts(before, after);
    if (differ.empty()) return parts;
    const Things old = thingsOf(before);
    const Things now = thingsOf(after);
    for (const ControlPart& part : differ) {
        // What follows is told where nothing else has changed.
        if (part.followsFromAChoice() && !parts.empty()) continue;
        parts.push_back({part, missing(now, old, part), missing(old, now, part)});
    }
    return parts;
}

QString describeChange(const StoredProperties& before, const StoredProperties& after) {
    const auto parts = changedParts(before, after);
    if (parts.empty()) return StepName::tr("change the control");
    const QStringList& added = parts.front().added;
    const QStringList& removed = parts.front().removed;
    const QString caption = parts.front().caption();
    switch (parts.front().part.part) {
        case StoredPart::DataProvider:
        case StoredPart::LinkedDataProvider:
        case StoredPart::Stylesheet:
            return added.isEmpty() ? StepName::tr("clear the %1").arg(caption)
                                   : StepName::tr("choose %1 as %2").arg(brief(added), caption);
        case StoredPart::ExtraFilters:
            return StepName::tr("switch %1").arg(caption);
        default:
            break;
    }
    if (added.isEmpty() && removed.isEmpty()) return StepName::tr("change %1").arg(caption);
    if (removed.isEmpty()) return StepName::tr("add %1 to %2").arg(brief(added), caption);
    if (added.isEmpty()) return StepName::tr("remove %1 from %2").arg(brief(removed), caption);
    return StepName::tr("replace %1 by %2 in %3").arg(brief(removed), brief(added), caption);
}

bool isSameConfiguration(const StoredProperties& left, const StoredProperties& right) {
    if (left == right) return true;
    const auto properties = differing(left, right);
    // Properties in another order are another configuration: a list was sorted, say.
    return !properties.empty() &&
           std::all_of(properties.begin(), properties.end(),
                       [](const Property* each) { return isScriptButton(each->first); });
}

QString changedNames(const StoredProperties& before, const StoredProperties& after) {
    std::set<std::string_view> names;
    for (const Property* property : differing(before, after))
        names.insert(property->first);
    std::string joined;
    for (const std::string_view name : names) {
        joined += name;
        joined += ' ';
    }
    return QString::fromStdString(joined);
}

}  // namespace headerdtc::qt
