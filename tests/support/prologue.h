#pragma once

#include "platform/text.h"
#include "support/cases.h"
#include "support/failures.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <random>

// What a test writes without saying where it comes from. Each test file is a namespace of its own.
namespace headerdtc::testing {}
namespace headerdtc {
namespace fs = std::filesystem;
using namespace ::testing;
using namespace headerdtc::testing;
}  // namespace headerdtc
