#include "host/page/text_property_bag.h"

namespace headerdtc {
namespace {

std::string storedText(const PropertyValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "-1" : "0";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    return std::get<std::string>(value);
}

}  // namespace

StoredPropertyBag::StoredPropertyBag(const StoredProperties& properties)
    : values_(properties.begin(), properties.end()) {}

PropertyValue StoredPropertyBag::ReadProperty(std::string_view name,
                                              const PropertyValue& fallback) {
    const auto found = values_.find(name);
    return found == values_.end() ? fallback : PropertyValue(std::string(found->second));
}

void CollectingPropertyBag::WriteProperty(std::string_view name, const PropertyValue& value,
                                          const PropertyValue& fallback) {
    if (value != fallback) written_.emplace_back(name, value);
}

StoredProperties CollectingPropertyBag::asStored() const {
    StoredProperties stored;
    stored.reserve(written_.size());
    for (const auto& [name, value] : written_)
        stored.emplace_back(name, storedText(value));
    return stored;
}

}  // namespace headerdtc
