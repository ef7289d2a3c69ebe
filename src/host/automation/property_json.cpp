#include "host/automation/property_json.h"

#include "core/stored_keys.h"
#include "core/stored_values.h"
#include "platform/runtime_error.h"

#include <nlohmann/json.hpp>

namespace headerdtc {
namespace {

nlohmann::ordered_json valueOf(const std::string& text, StoredType type) {
    try {
        switch (type) {
            case StoredType::Boolean:
                return toBoolean(text);
            case StoredType::Integer:
                return toInteger(text);
            case StoredType::String:
                break;
        }
    } catch (const RuntimeError&) {
        // Whatever the page has is shown as it is.
    }
    return text;
}

const char* nameOf(StoredType type) {
    switch (type) {
        case StoredType::Boolean:
            return "boolean";
        case StoredType::Integer:
            return "integer";
        case StoredType::String:
            break;
    }
    return "string";
}

}  // namespace

nlohmann::ordered_json propertiesJson(const StoredProperties& properties) {
    auto list = nlohmann::ordered_json::array();
    for (const auto& [name, value] : properties) {
        const StoredType type = storedTypeOf(name).value_or(StoredType::String);
        auto property = nlohmann::ordered_json::object();
        property["name"] = name;
        property["type"] = nameOf(type);
        property["value"] = valueOf(value, type);
        list.push_back(std::move(property));
    }
    return list;
}

}  // namespace headerdtc
