#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace headerdtc {

// A stored value: Boolean, 16-bit integer or string (UTF-8).
using PropertyValue = std::variant<bool, std::int16_t, std::string>;

// The host's property bag: an ordered store of names and typed values inside the page.
class PropertyBag {
  public:
    virtual ~PropertyBag() = default;
    // The stored value, or the default when the name is not stored. A bag kept as text returns
    // the stored value as a string; the caller converts.
    virtual PropertyValue ReadProperty(std::string_view name, const PropertyValue& fallback) = 0;
    // Stores a value, unless it equals the default in type and value (integer 0 is not the
    // string "0").
    virtual void WriteProperty(std::string_view name, const PropertyValue& value,
                               const PropertyValue& fallback) = 0;
};

}  // namespace headerdtc
