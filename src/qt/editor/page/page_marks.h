#pragma once

#include "host/page/page_markup.h"

namespace headerdtc {
class HeaderDTC;
}

namespace headerdtc::qt {

class ControlSurface;

// What a surface shows of its control besides the controls on it.

// Beside the value of each criterion, whether it is a constant or what function supplies it.
void showKinds(HeaderDTC& dtc, ControlSurface& surface);

// Where the control differs from what the page's file stores of it.
void showChanges(const HeaderDTC& dtc, ControlSurface& surface, const StoredProperties& saved,
                 const StoredProperties& now);

}  // namespace headerdtc::qt
