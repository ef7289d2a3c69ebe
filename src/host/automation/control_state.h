#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace headerdtc {

class Control;

// A control as automation names it: "IncludeASPText", or "SpecifyCriteriumDialog.NameText" where it
// belongs to a dialog.
std::string controlName(const Control& control);

// A control's name and kind, and the "tab" that it stands on or else the "form".
nlohmann::ordered_json controlEntry(Control& control);

// The state of a control as automation returns it: the members that its kind has, then "enabled"
// and "visible".
nlohmann::ordered_json controlState(Control& control);

}  // namespace headerdtc
