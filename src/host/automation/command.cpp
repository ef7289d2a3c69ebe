#include "host/automation/command.h"

#include "host/automation/key_names.h"

#include <limits>

namespace headerdtc {
namespace {

bool isInt(const nlohmann::ordered_json& value) {
    return value.is_number_integer() && value >= std::numeric_limits<int>::min() &&
           value <= std::numeric_limits<int>::max();
}

}  // namespace

Automation::Command::Command(const std::string& line)
    : fields(nlohmann::ordered_json::parse(line, nullptr, false)) {
    if (fields.is_discarded()) throw CommandError("the line is not JSON");
    if (!fields.is_object()) throw CommandError("the line is not a JSON object");
    verb = text("do");
}

void Automation::Command::wrong(const char* field, const char* what) const {
    const std::string of = verb.empty() ? "" : " of \"" + verb + "\"";
    throw CommandError("field \"" + std::string(field) + "\"" + of + " " + what);
}

const nlohmann::ordered_json& Automation::Command::value(const char* field) const {
    if (!has(field)) wrong(field, "is missing");
    return fields.at(field);
}

std::string Automation::Command::text(const char* field) const {
    const auto& found = value(field);
    if (!found.is_string()) wrong(field, "must be a text");
    return found.get<std::string>();
}

int Automation::Command::integer(const char* field) const {
    const auto& found = value(field);
    if (!isInt(found)) wrong(field, "must be an integer");
    return found.get<int>();
}

std::optional<int> Automation::Command::integerIfGiven(const char* field) const {
    if (!has(field) || value(field).is_null()) return std::nullopt;
    return integer(field);
}

std::vector<int> Automation::Command::integers(const char* field) const {
    const auto& found = value(field);
    if (!found.is_array()) wrong(field, "must be a list of integers");
    std::vector<int> numbers;
    for (const auto& item : found) {
        if (!isInt(item)) wrong(field, "must be a list of integers");
        numbers.push_back(item.get<int>());
    }
    return numbers;
}

Key Automation::Command::key() const {
    const std::string name = text("key");
    const auto key = keyNamed(name);
    if (!key) wrong("key", "must be one character or the name of a key");
    return *key;
}

}  // namespace headerdtc
