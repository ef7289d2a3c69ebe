#pragma once

#include "controls/keys.h"

#include <optional>

class QKeyEvent;

namespace headerdtc::qt {

// The key as the models know it; nothing for keys that they do not know (Home, function keys) and
// for those held with Ctrl, Alt or Meta, which are commands to the window.
std::optional<Key> keyOf(const QKeyEvent& event);

// Enter and Escape, which dialogs have buttons for.
bool isDialogKey(const Key& key);
bool isArrowKey(const Key& key);

}  // namespace headerdtc::qt
