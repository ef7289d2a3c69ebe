#pragma once

#include "host/site/catalogue.h"

#include <string>

namespace headerdtc {

// A catalogue as its file has it, for people to read and to compare: several fields a line.
std::string catalogueText(const Catalogue& catalogue);

}  // namespace headerdtc
