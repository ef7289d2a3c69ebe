#include "core/handler.h"

#include "platform/error_trap.h"

#include <algorithm>
#include <utility>

namespace headerdtc {

void ChangedProperties::add(std::string property) {
    if (std::find(names_.begin(), names_.end(), property) == names_.end())
        names_.push_back(std::move(property));
}

void runHandler(HeaderDTC& dtc, std::string_view name,
                const std::function<void(ChangedProperties&)>& body) {
    ChangedProperties changed;
    trapErrors(dtc.surroundings.messages, name, [&] { body(changed); });
    trapErrors(dtc.surroundings.messages, name, [&] {
        for (const std::string& property : changed.names())
            dtc.PropertyChanged(property);
    });
}

}  // namespace headerdtc
