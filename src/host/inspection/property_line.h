#pragma once

#include "host/page/page_markup.h"

#include <string_view>

namespace headerdtc {

// The line of a page, from 1, on which a control stores a property; the control's own line where
// the property is not found.
int lineOfProperty(const PageMarkup& page, const ControlSpan& control, std::string_view property);

}  // namespace headerdtc
