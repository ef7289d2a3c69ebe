#pragma once

#include "platform/runtime_error.h"

namespace headerdtc {

// The number of the run-time failure that an action raises, 0 for none.
template <class Action>
int numberOf(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace headerdtc
