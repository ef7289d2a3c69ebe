#include "host/automation/key_names.h"

#include "platform/utf8.h"

namespace headerdtc {
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
