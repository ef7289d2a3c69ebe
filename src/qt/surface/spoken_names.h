#pragma once

#include <QString>
#include <string_view>

namespace headerdtc::qt {

// What a screen reader calls the control of a full name; empty where the control's own caption or
// label says all there is to say.
QString spokenName(std::string_view control);

}  // namespace headerdtc::qt
