#include "host/inspection/provider_fields.h"

#include "platform/nearest_name.h"
#include "platform/text.h"

namespace headerdtc {

ProviderFields::ProviderFields(const Catalogue::Provider& provider, Family family) {
    const auto add = [this](const std::string& before, std::string_view separator,
                            const std::string& name) {
        const std::string entry = before + std::string(separator) + name;
        if (names_.emplace(name, entry).second) namesInOrder_.push_back(name);
        fields_.insert(entry);
    };
    const std::string_view separator = traitsOf(family).separator;
    if (family == Family::ZEKO && provider.zeko) {
        for (const auto& field : provider.zeko->fields)
            add(std::to_string(field.number), separator, field.name);
        keyFields_.insert(provider.zeko->keyFields.begin(), provider.zeko->keyFields.end());
    }
    if (family == Family::EAI && provider.eai) {
        for (const auto& group : provider.eai->groups) {
            for (const std::string& field : group.fields)
                add(group.name, separator, field);
        }
        keyFields_.insert(provider.eai->keyFields.begin(), provider.eai->keyFields.end());
    }
}

// The padding before a number depends on how many fields there were when the page was made.
bool ProviderFields::hasEntry(std::string_view entry) const {
    return fields_.contains(std::string(trimBlanks(entry)));
}

std::optional<std::string> ProviderFields::entryOfName(std::string_view name) const {
    const auto found = names_.find(name);
    return found == names_.end() ? std::nullopt : std::optional(found->second);
}

std::string ProviderFields::entryLike(std::string_view entry, Family family) const {
    const auto name = fieldNameIn(entry, family);
    if (!name) return {};
    if (family == Family::ZEKO) {
        const std::string_view separator = traitsOf(family).separator;
        const auto numberOf = [&](std::string_view text) {
            return trimBlanks(text.substr(0, text.find(separator)));
        };
        for (const std::string_view offered : namesInOrder_) {
            const std::string& candidate = names_.at(offered);
            if (numberOf(candidate) == numberOf(entry)) return candidate;
        }
    }
    NearestName nearest(*name);
    for (const std::string_view offered : namesInOrder_)
        nearest.offer(offered);
    return entryOfName(nearest.found()).value_or("");
}

std::optional<std::string_view> fieldNameIn(std::string_view entry, Family family) {
    const std::string_view separator = traitsOf(family).separator;
    const auto place = entry.find(separator);
    if (place == std::string_view::npos) return std::nullopt;
    return splitText(entry, separator)[1];
}

}  // namespace headerdtc
