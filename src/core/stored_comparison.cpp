#include "core/stored_comparison.h"

#include "core/header_dtc.h"
#include "core/stored_key_table.h"
#include "core/stored_keys.h"
#include "core/stored_values.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>

namespace headerdtc {
namespace {

using What = StoredLoss::What;
using stored::Row;

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

// Whether two texts mean the same; a text that is no value of the type at all means nothing.
bool meanTheSame(const PropertyValue& a, const PropertyValue& b, StoredType type) {
    try {
        return converted(a, type) == converted(b, type);
    } catch (const RuntimeError&) {
        return false;
    }
}

int countIn(const std::string& text) {
    try {
        return toInteger(text);
    } catch (const RuntimeError&) {
        return 0;
    }
}

// The grids have a header and at least one row, whatever a page says.
constexpr int FewestRows = 2;

// A page's properties, to be asked by name and by what stands under them.
class StoredState {
  public:
    explicit StoredState(const StoredTexts& texts) {
        values_.reserve(texts.size());
        for (const auto& [name, text] : texts) {
            values_.emplace(name, &text);
            // Only names with one of these words can be of a mark or a criterion. Looking for the
            // words first saves taking all other names apart.
            if (name.find("I18N") == std::string::npos &&
                name.find("Criteria") == std::string::npos)
                continue;
            const auto parsed = parseStoredName(name);
            if (!parsed) continue;
            const bool isValue = parsed->column == criteria_column::Value;
            if (isValue || parsed->row.holds<stored::Selection>())
                entries_.emplace(parsed->row.key, text);
        }
    }

    const std::string* find(std::string_view name) const {
        const auto found = values_.find(name);
        return found == values_.end() ? nullptr : found->second;
    }
    // Whether a translation list marks this field, or a family's criteria have this value.
    bool has(std::string_view key, const std::string& text) const {
        return entries_.contains({key, text});
    }

  private:
    std::unordered_map<std::string_view, const std::string*> values_;
    std::set<std::pair<std::string_view, std::string>> entries_;
};

bool isUsed(const StoredState& page, Family family, const std::string& value) {
    return !value.empty() && page.has(familyName(family, "Criteria"), value);
}

// What would be lost with a stored property that does not come back as it is; nothing when that
// says nothing.
std::optional<What> whatIsLost(const StoredName& name, const std::string& text,
                               const std::string* rewritten, const StoredState& before,
                               const StoredState& after) {
    const Row& row = name.row;
    if (row.holds<stored::SelectionCount, stored::ScriptCount>()) return std::nullopt;
    if (row.holds<stored::RowCount, stored::ItemCount>()) {
        const int fewest = row.holds<stored::RowCount>() ? FewestRows : 0;
        const int rows = std::max(rewritten ? countIn(*rewritten) : 0, fewest);
        return countIn(text) > rows ? std::optional(What::Row) : std::nullopt;
    }
    if (row.holds<stored::Selection>())
        return text.empty() || after.has(row.key, text) ? std::nullopt
                                                        : std::optional(What::MarkedItem);
    const bool isEntryName = row.holds<stored::Scripts, stored::CriteriaTypes>();
    if (isEntryName) return std::nullopt;
    const PropertyValue fallback = stored::readingDefault(row);
    if (meanTheSame(text, rewritten ? PropertyValue(*rewritten) : fallback, row.type))
        return std::nullopt;
    if (row.name != stored::Name::Suffixed)
        return row.name == stored::Name::Alone ? What::Value : What::Item;
    if (row.type == StoredType::String) return What::Script;
    const auto family = row.family();
    const bool matters = family && isUsed(before, *family, std::string(name.entry));
    return matters ? std::optional(What::Kind) : std::nullopt;
}

// The highest number that a key has in a state, and one more.
int nextNumber(const StoredTexts& texts, std::string_view key, int first) {
    int next = first;
    for (const auto& [name, text] : texts) {
        if (!name.starts_with(key)) continue;
        const auto parsed = parseStoredName(name);
        if (parsed && parsed->row.key == key && parsed->row.name == stored::Name::Numbered)
            next = std::max(next, parsed->number + 1);
    }
    return next;
}

void put(StoredTexts& texts, const std::string& name, std::string text) {
    const auto found = std::find_if(texts.begin(), texts.end(),
                                    [&](const auto& property) { return property.first == name; });
    if (found == texts.end()) {
        texts.emplace_back(name, std::move(text));
    } else {
        found->second = std::move(text);
    }
}

}  // namespace

std::vector<StoredLoss> findLosses(const StoredTexts& stored, const StoredTexts& written) {
    // A page that the control wrote itself comes back like this.
    if (stored == written) return {};
    const StoredState before(stored);
    const StoredState after(written);
    std::vector<StoredLoss> losses;
    for (const auto& [name, text] : stored) {
        const std::string* rewritten = after.find(name);
        if (rewritten && *rewritten == text) continue;
        const auto parsed = parseStoredName(name);
        if (!parsed) continue;
        const auto lost = whatIsLost(*parsed, text, rewritten, before, after);
        if (!lost) continue;
        const bool isEntry = lost == What::Kind || lost == What::Script;
        losses.push_back({*lost, name, isEntry ? std::string(parsed->entry) : text, text,
                          rewritten ? std::optional(*rewritten) : std::nullopt,
                          parsed->row.family()});
    }
    return losses;
}

std::vector<StoredLoss> remainingLosses(const std::vector<StoredLoss>& losses,
                                        const StoredTexts& now) {
    if (losses.empty()) return {};
    const StoredState state(now);
    std::vector<StoredLoss> remaining;
    for (const StoredLoss& loss : losses) {
        const auto isDealtWith = [&] {
            const std::string* text = state.find(loss.name);
            switch (loss.what) {
                // Only the lost mark itself counts, whatever is marked in its place.
                case What::MarkedItem:
                    return state.has(parseStoredName(loss.name)->row.key, loss.stored);
                // A kind is of no use without its value.
                case What::Kind:
                    return (text && *text != loss.rewritten) ||
                           !isUsed(state, *loss.family, loss.text);
                default:
                    return text ? loss.rewritten != *text : loss.rewritten.has_value();
            }
        };
        if (!isDealtWith()) remaining.push_back(loss);
    }
    return remaining;
}

StoredTexts withLosses(StoredTexts now, const std::vector<StoredLoss>& losses) {
    for (const StoredLoss& loss : losses) {
        const auto parsed = parseStoredName(loss.name);
        if (!parsed) continue;
        const std::string key(parsed->row.key);
        if (loss.what == What::MarkedItem) {
            // The lost mark goes behind the others, and the count includes it.
            const int number = nextNumber(now, key, 0);
            put(now, key + std::to_string(number), loss.stored);
            put(now, "NrOf" + key, std::to_string(number + 1));
        } else if (loss.what == What::Kind) {
            put(now, key + std::to_string(nextNumber(now, key, 1)), loss.text);
            put(now, loss.name, loss.stored);
        } else if (loss.what == What::Script) {
            const int number = nextNumber(now, key, 1);
            put(now, key + std::to_string(number), loss.text);
            put(now, "NrOfUserDefinedScripts", std::to_string(number));
            put(now, loss.name, loss.stored);
        } else {
            put(now, loss.name, loss.stored);
        }
    }
    return now;
}

}  // namespace headerdtc
