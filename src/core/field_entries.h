#pragma once

#include "core/family.h"

#include <string>
#include <vector>

namespace headerdtc {

class DataSource;

// The fields that a data provider offers to a family, as its lists show them, in the order of the
// source: "  7 - CITY" for ZEKO, with the numbers right-aligned, "ORDERS.CITY" for EAI. Failures
// of the source come through.
std::vector<std::string> fieldEntries(Family family, DataSource& source,
                                      const std::string& provider);

// The names of the provider's key fields for a family, in the order of the source.
std::vector<std::string> keyFieldNames(Family family, DataSource& source,
                                       const std::string& provider);

}  // namespace headerdtc
