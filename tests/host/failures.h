#pragma once

#include "support/prologue.h"
#include "support/temp_folder.h"

namespace headerdtc::testing {

// The text of what an action throws, empty when it throws nothing.
template <class Error>
std::string errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

}  // namespace headerdtc::testing
