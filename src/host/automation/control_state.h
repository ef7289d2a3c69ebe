#pragma once

#include <nlohmann/json_fwd.hpp>

namespace headerdtc {

class Control;

// The state of a control as automation returns it: the members that its kind has, then "enabled"
// and "visible".
nlohmann::ordered_json controlState(Control& control);

}  // namespace headerdtc
