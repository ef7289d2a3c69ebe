#include "core/stored_comparison.h"

#include "core/stored_keys.h"
#include "core/stored_values.h"
#include "platform/runtime_error.h"

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

}  // namespace

std::vector<LostProperty> findLosses(
    const std::vector<std::pair<std::string, std::string>>& stored,
    const std::vector<std::pair<std::string, PropertyValue>>& written) {
    std::unordered_map<std::string_view, const PropertyValue*> rewritten;
    rewritten.reserve(written.size());
    for (const auto& [name, value] : written)
        rewritten.emplace(name, &value);

    std::vector<LostProperty> losses;
    for (const auto& [name, text] : stored) {
        const auto kind = storedKindOf(name);
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

}  // namespace headerdtc
