#pragma once

#include <clocale>
#include <ctime>
#include <string>
#include <string_view>

namespace headerdtc {

// A date in a locale's short form, by the locale's strftime pattern for dates (D_FMT): the year
// always in four digits, and month/day/year without leading zeros, as it is written where that
// order is usual (4/26/2000). Names of months are the locale's.
std::string shortDate(const std::tm& date, std::string_view pattern, locale_t locale);

}  // namespace headerdtc
