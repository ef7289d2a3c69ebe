#include "host/page/text_property_bag.h"

#include <bit>
#include <functional>

namespace headerdtc {
namespace {

std::string storedText(PropertyValue value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "-1" : "0";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    return std::get<std::string>(std::move(value));
}

}  // namespace

StoredPropertyBag::StoredPropertyBag(const StoredProperties& properties)
    : properties_(properties), index_(properties) {}

// Properties are stored in the order in which they are read, but for where their groups begin.
PropertyValue StoredPropertyBag::ReadProperty(std::string_view name,
                                              const PropertyValue& fallback) {
    if (next_ >= properties_.size() || properties_[next_].first != name) {
        const auto found = index_.find(name);
        if (!found) return fallback;
        next_ = *found;
    }
    return properties_[next_++].second;
}

void CollectingPropertyBag::WriteProperty(std::string_view name, const PropertyValue& value,
                                          const PropertyValue& fallback) {
    if (value != fallback) written_.emplace_back(name, value);
}

StoredProperties CollectingPropertyBag::asStored() const& {
    CollectingPropertyBag copy(*this);
    return std::move(copy).asStored();
}

StoredProperties CollectingPropertyBag::asStored() && {
    StoredProperties stored;
    stored.reserve(written_.size());
    for (auto& [name, value] : written_)
        stored.emplace_back(std::move(name), storedText(std::move(value)));
    written_.clear();
    return stored;
}

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
