#pragma once

#include "controls/keys.h"

#include <optional>
#include <string>

namespace headerdtc {

// A key as automation names it: "Enter", "Up", or one character. Nothing for a name that is none.
std::optional<Key> keyNamed(const std::string& name);
// The other way; whether shift is held is not part of the name.
std::string nameOfKey(const Key& key);

}  // namespace headerdtc
