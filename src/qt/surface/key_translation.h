#pragma once

#include "controls/keys.h"

#include <optional>

class QKeyEvent;

namespace headerdtc::qt {

// The key as the models know it; nothing for keys that they do not know (Home, function keys) and
// for those held with Ctrl, Alt or Meta, which are commands to the window.
std::optional<Key> keyOf(const QKeyEvent& event);

// Whether the key belongs to the models' Enter and Escape.
bool isDialogKey(const Key& key);

}  // namespace headerdtc::qt
