#pragma once

#include "core/family.h"
#include "host/site/catalogue.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace headerdtc {

// What a provider of the catalogue offers to one family, prepared for look-ups by field entry, the
// text in which the lists show a field.
class ProviderFields {
  public:
    ProviderFields() = default;
    // The provider outlives this.
    ProviderFields(const Catalogue::Provider& provider, Family family);

    // Nothing at all: no field, no key field.
    bool empty() const { return fields_.empty() && keyFields_.empty(); }
    bool hasEntry(std::string_view entry) const;
    bool hasName(std::string_view name) const { return names_.contains(name); }
    bool hasKeyField(std::string_view name) const { return keyFields_.contains(name); }
    // The entry under which a field of that name stands now, of all that have it the first.
    std::optional<std::string> entryOfName(std::string_view name) const;
    // The entry that is meant by one that is not offered: the one of its number, as a renamed field
    // keeps that, else the one whose name is nearest; empty when none is near.
    std::string entryLike(std::string_view entry, Family family) const;

  private:
    std::unordered_set<std::string> fields_;                   // entries without padding
    std::unordered_map<std::string_view, std::string> names_;  // name to entry
    std::vector<std::string_view> namesInOrder_;
    std::unordered_set<std::string_view> keyFields_;
};

// The field name in an entry, the piece after the family's separator; nothing where there is none.
std::optional<std::string_view> fieldNameIn(std::string_view entry, Family family);

}  // namespace headerdtc
