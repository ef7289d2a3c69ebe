#include "host/automation/command.h"

#include "platform/utf8.h"

#include <algorithm>
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

void Automation::Command::wrong(const char* field, const std::string& what) const {
    const std::string of = verb.empty() ? "" : " of \"" + verb + "\"";
    throw CommandError("field \"" + std::string(field) + "\"" + of + " " + what);
}

bool Automation::Command::has(const char* field) const {
    const auto found = fields.find(field);
    return found != fields.end() && !found->is_null();
}

std::string_view Automation::Command::oneOf(const char* first, const char* second) const {
    if (has(first) == has(second))
        throw CommandError("\"" + verb + "\" takes either \"" + first + "\" or \"" + second + "\"");
    return has(first) ? first : second;
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
    return has(field) ? std::optional(integer(field)) : std::nullopt;
}

std::vector<int> Automation::Command::integers(const char* field) const {
    return listOf<int>(field, isInt, "must be a list of integers");
}

std::vector<std::string> Automation::Command::texts(const char* field) const {
    const auto isText = [](const nlohmann::ordered_json& item) { return item.is_string(); };
    return listOf<std::string>(field, isText, "must be a list of texts");
}

template <class Item, class Test>
std::vector<Item> Automation::Command::listOf(const char* field, Test isItem,
                                              const char* wanted) const {
    const auto& found = value(field);
    if (!found.is_array() || !std::all_of(found.begin(), found.end(), isItem)) wrong(field, wanted);
    return found.template get<std::vector<Item>>();
}

bool Automation::Command::flag(const char* field) const {
    if (!has(field)) return false;
    const auto& found = value(field);
    if (!found.is_boolean()) wrong(field, "must be true or false");
    return found.get<bool>();
}

Key Automation::Command::key() const {
    const std::string name = text("key");
    const auto key = keyNamed(name);
    if (!key) wrong("key", "must be one character or the name of a key");
    return *key;
}

// ---- names of keys ------------------------------------------------------------------------------

namespace {

struct NamedKey {
    const char* name;
    Key::Kind kind;
};

constexpr NamedKey NamedKeys[] = {
    {"Enter", Key::Kind::Enter},   {"Escape", Key::Kind::Escape},       {"Up", Key::Kind::Up},
    {"Down", Key::Kind::Down},     {"Left", Key::Kind::Left},           {"Right", Key::Kind::Right},
    {"Delete", Key::Kind::Delete}, {"Backspace", Key::Kind::Backspace}, {"Tab", Key::Kind::Tab},
};

}  // namespace

std::optional<Key> keyNamed(const std::string& name) {
    for (const auto& [keyName, kind] : NamedKeys) {
        if (name == keyName) return Key::of(kind);
    }
    if (utf8::length(name) != 1) return std::nullopt;
    return Key::of(utf8::first(name));
}

std::string nameOfKey(const Key& key) {
    for (const auto& [name, kind] : NamedKeys) {
        if (key.kind == kind) return name;
    }
    return utf8::encode(key.character);
}

}  // namespace headerdtc
