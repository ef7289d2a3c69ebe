#pragma once

#include "controls/button.h"
#include "controls/list_box.h"

#include <vector>

namespace headerdtc::qt {

enum class FieldMove { Up, Down, ToTop, ToBottom };

// Moves the marked items of a list, or the one with the focus where none is marked, by what a
// person does: each is marked alone and the button pressed as often as it takes. In the end the
// same items are marked again. They keep their order; what stands at the end already stays there.
// Throws what the operations throw.
void moveItems(ListBox& list, Button& up, Button& down, FieldMove move);

// How often the buttons would be pressed.
long pressesFor(const ListBox& list, FieldMove move);

}  // namespace headerdtc::qt
