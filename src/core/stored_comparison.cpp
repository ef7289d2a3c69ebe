#include "core/stored_comparison.h"

#include "core/stored_keys.h"
#include "core/stored_values.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>
#include <unordered_map>

namespace headerdtc {
namespace {

PropertyValue converted(const PropertyValue& value, StoredType type) {
    switch (type) {
        case StoredType::Boolean:
            return toBoolean(value);
        case StoredType::Integer:
            return toInteger(value);
        case StoredType::String:
            break;
    }
    return toText(value);
}

// Whether a stored text and a value mean the same; a text that is no value of the type at all
// means nothing.
bool meansTheSame(const std::string& stored, const PropertyValue& value, StoredType type) {
    try {
        return converted(stored, type) == converted(value, type);
    } catch (const RuntimeError&) {
        return false;
    }
}

// As a page keeps it.
std::string pageText(const PropertyValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "-1" : "0";
    return toText(value);
}

// The entries of dictionaries and selections that are written, wherever they stand. A dictionary's
// entry without a name is not read back, and those behind it then get other numbers; a selection
// follows its list, whose items can have been moved since.
class WrittenEntries {
  public:
    void add(const std::string& name, const PropertyValue& value) {
        // Few names can be an entry's, and telling what a name is takes longer than this.
        constexpr std::string_view Parts[] = {"Type", "Script", "I18N"};
        if (std::none_of(std::begin(Parts), std::end(Parts), [&](std::string_view part) {
                return name.find(part) != std::string::npos;
            }))
            return;
        const auto kind = storedKindOf(name);
        if (kind && !kind->unordered.empty()) entries_.emplace(kind->unordered, toText(value));
    }
    bool has(const StoredKind& kind, const std::string& entry) const {
        return !kind.unordered.empty() && entries_.contains({kind.unordered, entry});
    }

  private:
    std::set<std::pair<std::string_view, std::string>> entries_;
};

// A page that the control wrote itself comes back like this.
bool isWrittenAsStored(const std::vector<std::pair<std::string, std::string>>& stored,
                       const std::vector<std::pair<std::string, PropertyValue>>& written) {
    return std::equal(stored.begin(), stored.end(), written.begin(), written.end(),
                      [](const auto& before, const auto& after) {
                          if (before.first != after.first) return false;
                          const auto* text = std::get_if<std::string>(&after.second);
                          return text ? *text == before.second
                                      : pageText(after.second) == before.second;
                      });
}

}  // namespace

std::vector<LostProperty> findLosses(
    const std::vector<std::pair<std::string, std::string>>& stored,
    const std::vector<std::pair<std::string, PropertyValue>>& written) {
    if (isWrittenAsStored(stored, written)) return {};
    std::unordered_map<std::string_view, const PropertyValue*> rewritten;
    rewritten.reserve(written.size());
    WrittenEntries entries;
    for (const auto& [name, value] : written) {
        rewritten.emplace(name, &value);
        entries.add(name, value);
    }

    std::vector<LostProperty> losses;
    for (const auto& [name, text] : stored) {
        const auto kind = storedKindOf(name);
        if (kind && entries.has(*kind, text)) continue;
        const auto found = rewritten.find(name);
        if (!kind || found == rewritten.end()) {
            if (!kind || !meansTheSame(text, kind->readingDefault, kind->type))
                losses.push_back({name, text, std::nullopt});
        } else if (!meansTheSame(text, *found->second, kind->type)) {
            losses.push_back({name, text, pageText(*found->second)});
        }
    }
    return losses;
}

std::vector<LostProperty> remainingLosses(
    const std::vector<LostProperty>& losses,
    const std::vector<std::pair<std::string, std::string>>& stored) {
    if (losses.empty()) return {};
    std::unordered_map<std::string_view, std::string_view> now;
    WrittenEntries entries;
    for (const auto& [name, text] : stored) {
        now.emplace(name, text);
        entries.add(name, text);
    }
    std::vector<LostProperty> remaining;
    for (const LostProperty& lost : losses) {
        const auto kind = storedKindOf(lost.name);
        const auto found = now.find(lost.name);
        // Another entry at the place of a lost one does not bring that one back.
        const bool isDealtWith = kind && !kind->unordered.empty() ? entries.has(*kind, lost.stored)
                                 : found == now.end()             ? lost.rewritten.has_value()
                                                                  : lost.rewritten != found->second;
        if (!isDealtWith) remaining.push_back(lost);
    }
    return remaining;
}

bool sayTheSame(const std::vector<std::pair<std::string, std::string>>& stored,
                const std::vector<std::pair<std::string, std::string>>& written) {
    if (stored == written) return true;
    std::unordered_map<std::string_view, std::string_view> rewritten(written.begin(),
                                                                     written.end());
    for (const auto& [name, text] : stored) {
        const auto found = rewritten.find(name);
        const auto kind = storedKindOf(name);
        if (!kind) return false;
        const PropertyValue value =
            found == rewritten.end() ? kind->readingDefault : std::string(found->second);
        if (!meansTheSame(text, value, kind->type)) return false;
        if (found != rewritten.end()) rewritten.erase(found);
    }
    // What the page lacks.
    return rewritten.empty();
}

}  // namespace headerdtc
