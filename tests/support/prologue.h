#pragma once

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "support/cases.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <thread>

// What a test writes without saying where it comes from. Each test file is a namespace of its own.
namespace headerdtc::testing {}
namespace headerdtc {
namespace fs = std::filesystem;
using namespace ::testing;
using namespace headerdtc::testing;

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
