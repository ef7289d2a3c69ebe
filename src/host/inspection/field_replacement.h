#pragma once

#include "host/inspection/field_health.h"

#include <string>

namespace headerdtc {

class HeaderDTC;

// Puts another field into the place of a vanished one, as a program that has the control to itself:
// the field keeps its place, a return field also its translations and links, and a field that is
// chosen now is no longer among the available ones. Raises 381 when the control has another
// configuration than the one in which the field was found.
void replaceField(HeaderDTC& dtc, const VanishedField& vanished, const std::string& with);

}  // namespace headerdtc
