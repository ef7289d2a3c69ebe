#pragma once

#include "host/page/page_markup.h"

#include <nlohmann/json_fwd.hpp>

namespace headerdtc {

// Stored properties as JSON, one object each in their order: "name", "type" ("boolean", "integer"
// or "string") and "value" in that type. A text that is no value of its type stays a text.
nlohmann::ordered_json propertiesJson(const StoredProperties& properties);

}  // namespace headerdtc
