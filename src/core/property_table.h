#pragma once

#include "core/header_dtc.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace headerdtc {

// The public properties of HeaderDTC, reached by name: for scripts and other callers that know a
// property only when they run.

// The value of a public property. Numbers are wide here so that one too big for a property is
// refused by the property (6) and not bent by its caller.
using PublicValue = std::variant<std::string, std::int64_t, std::shared_ptr<ScriptDictionary>>;

enum class PropertyType { Text, Integer, Scripts };

struct PropertyInfo {
    std::string_view name;
    PropertyType type;
    bool indexed;  // takes an index: a 0-based item position or flat cell index
    bool writable;
};

// All of them, in their established order.
std::span<const PropertyInfo> publicProperties();

// Reads a property. Raises 438 for an unknown name (names compare exactly), 450 for an index that
// is missing or too much, 381 for an index that is not there.
PublicValue getProperty(const HeaderDTC& dtc, std::string_view name,
                        std::optional<int> index = std::nullopt);

// Writes a property and so gives the property-changed notice. Raises what reading does, 383 for a
// read-only property, 13 for a value of another type, 6 for a number beyond 16 bits, 380 for a
// text or row count that the control cannot hold; nothing is changed then.
void setProperty(HeaderDTC& dtc, std::string_view name, std::optional<int> index,
                 const PublicValue& value);

}  // namespace headerdtc
