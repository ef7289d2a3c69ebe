#pragma once

#include "controls/list_box.h"

#include <string>
#include <vector>

namespace headerdtc::qt {

// The items of a list in which something is found, the best first: those whose number or name is
// just that, then those that begin with it, then those that hold it anywhere; equally good ones in
// the order of the list. Case does not matter. "#12" is the twelfth item, whatever it says; an
// empty text finds nothing.
std::vector<int> findInList(const ListBox& list, const std::string& sought);

}  // namespace headerdtc::qt
