#include "core/field_entries.h"

#include "platform/surroundings.h"
#include "platform/utf8.h"

namespace headerdtc {
namespace {

// " 1 - ORDNO": numbers shorter than the longest are padded to its width. The padding is kept, and
// not taken back, for numbers that need none: after " 9" comes " 10".
std::vector<std::string> numberedFields(DataSource& source, const std::string& provider,
                                        const std::string& separator) {
    const Dictionary<std::string> fields = source.zekoFields(provider);
    const auto width = static_cast<int>(std::to_string(fields.Count()).size());
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(fields.Count()));
    std::string padding;
    for (const auto& [number, field] : fields) {
        const int length = utf8::length(number);
        if (length < width) padding.assign(static_cast<std::size_t>(width - length), ' ');
        std::string& entry = entries.emplace_back(padding);
        entry.append(number).append(separator).append(field);
    }
    return entries;
}

std::vector<std::string> groupedFields(DataSource& source, const std::string& provider,
                                       const std::string& separator) {
    std::vector<std::string> entries;
    for (const auto& [groupKey, group] : source.eaiGroups(provider)) {
        for (const auto& [fieldKey, field] : source.eaiGroupFields(provider, group))
            entries.emplace_back(group).append(separator).append(field);
    }
    return entries;
}

// What differs between the families' requests.
struct SourceTraits {
    Family family;
    std::vector<std::string> (*entries)(DataSource& source, const std::string& provider,
                                        const std::string& separator);
    Dictionary<std::string> (DataSource::*keyFields)(const std::string& provider);
};

constexpr SourceTraits SourceTable[] = {
    {Family::EAI, groupedFields, &DataSource::eaiKeyFields},
    {Family::ZEKO, numberedFields, &DataSource::zekoKeyFields},
};

const SourceTraits& sourceTraitsOf(Family family) {
    return SourceTable[family == Family::EAI ? 0 : 1];
}

}  // namespace

std::vector<std::string> fieldEntries(Family family, DataSource& source,
                                      const std::string& provider) {
    return sourceTraitsOf(family).entries(source, provider,
                                          std::string(traitsOf(family).separator));
}

std::vector<std::string> keyFieldNames(Family family, DataSource& source,
                                       const std::string& provider) {
    std::vector<std::string> names;
    for (const auto& [key, name] : (source.*sourceTraitsOf(family).keyFields)(provider))
        names.push_back(name);
    return names;
}

}  // namespace headerdtc
