#pragma once

#include "controls/event.h"
#include "core/header_dtc.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// Something that a control does by itself: it listens to the control for as long as this is kept.
using Behaviour = std::shared_ptr<void>;

// The stored properties that one run of a handler has changed, by their public names.
class ChangedProperties {
  public:
    void add(std::string property);
    const std::vector<std::string>& names() const { return names_; }

  private:
    std::vector<std::string> names_;  // in the order of the first change, each once
};

// Runs a handler's body under the error trap, which reports a failure under the handler's name,
// and then gives the host a notice of each property that the body changed. The notices come last
// so that the host finds the controls as the handler leaves them, and they come after a failure
// too, because what was changed until then stays changed.
void runHandler(HeaderDTC& dtc, std::string_view name,
                const std::function<void(ChangedProperties&)>& body);

// Subscribes a member function as the handler of an event of one family's control. Its full name
// is the family's prefix and the role, such as "AddField_Click".
template <class Owner, class... Args>
[[nodiscard]] Subscription handle(Event<Args...>& event, HeaderDTC& dtc, FamilyControls& family,
                                  std::string_view role, Owner* owner,
                                  void (Owner::*body)(FamilyControls&, ChangedProperties&,
                                                      Args...)) {
    return event.subscribe([&dtc, &family, name = familyName(family.family, role), owner,
                            body](Args... args) {
        runHandler(dtc, name,
                   [&](ChangedProperties& changed) { (owner->*body)(family, changed, args...); });
    });
}

}  // namespace headerdtc
