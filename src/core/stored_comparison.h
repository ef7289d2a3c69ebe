#pragma once

#include "platform/property_bag.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

// A stored property that would not survive being read and written again.
struct LostProperty {
    std::string name;
    std::string stored;  // as the page has it
    // What would be stored instead; nothing when the property would be gone.
    std::optional<std::string> rewritten;
};

// The stored properties that come back changed or not at all when a control that has read them
// writes anew. `stored` is what the page has, name and text, in order; `written` what the control
// writes, defaults left out.
//
// Values compare by the property's type and meaning, not by their text: "True" is -1, and a value
// that equals its default may be left out. A name that the control does not know is lost. A
// property that appears anew is no loss.
std::vector<LostProperty> findLosses(
    const std::vector<std::pair<std::string, std::string>>& stored,
    const std::vector<std::pair<std::string, PropertyValue>>& written);

// Those of the losses that stand: what came to be something else since, as `stored` has it now, has
// been dealt with.
std::vector<LostProperty> remainingLosses(
    const std::vector<LostProperty>& losses,
    const std::vector<std::pair<std::string, std::string>>& stored);

// Whether two states of a page's properties are the same to the control that reads them: in other
// words, another order, or with a default that one of them leaves out. `written` is as the control
// writes it.
bool sayTheSame(const std::vector<std::pair<std::string, std::string>>& stored,
                const std::vector<std::pair<std::string, std::string>>& written);

}  // namespace headerdtc
