#pragma once

#include <string>

namespace headerdtc {

class Clock {
  public:
    virtual ~Clock() = default;
    // Today's date without time of day, in the short form of the current user's locale.
    virtual std::string shortDate() = 0;
};

}  // namespace headerdtc
