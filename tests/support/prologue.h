#pragma once

#include "support/error_number.h"

#include <gmock/gmock.h>

// What a test writes without saying where it comes from. Each test file is a namespace of its own.
namespace headerdtc::testing {}
namespace headerdtc {
using namespace ::testing;
using namespace headerdtc::testing;
}  // namespace headerdtc
