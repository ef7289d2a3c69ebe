#include "host/page/property_index.h"

#include <bit>
#include <functional>

namespace headerdtc {

// At most half of the slots are taken, so that few names meet.
PropertyIndex::PropertyIndex(const StoredProperties& properties)
    : properties_(properties), slots_(std::bit_ceil(2 * properties.size() + 1), Free) {
    for (std::size_t place = 0; place < properties.size(); ++place) {
        auto& slot = slots_[slotOf(properties[place].first)];
        if (slot == Free) {
            slot = static_cast<std::uint32_t>(place);
        } else if (!repeated_) {
            repeated_ = place;
        }
    }
}

std::optional<std::size_t> PropertyIndex::find(std::string_view name) const {
    const auto place = slots_[slotOf(name)];
    return place == Free ? std::nullopt : std::optional<std::size_t>(place);
}

std::size_t PropertyIndex::slotOf(std::string_view name) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(name) & mask;
    while (slots_[slot] != Free && properties_[slots_[slot]].first != name)
        slot = (slot + 1) & mask;
    return slot;
}

}  // namespace headerdtc
