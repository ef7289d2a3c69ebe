#pragma once

#include "platform/runtime_error.h"

#include <string>

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

// The text of what an action throws, empty when it throws nothing.
template <class Error, class Action>
std::string errorOf(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

}  // namespace headerdtc
