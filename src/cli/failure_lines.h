#pragma once

#include "host/inspection/page_failure.h"

#include <set>
#include <string>

namespace headerdtc::cli {

// Failures of pages on standard error. What is wrong with a whole site is said once, not for each
// of its pages.
class FailureLines {
  public:
    void print(const std::string& page, const PageFailure& failure);

  private:
    std::set<std::string> said_;
};

}  // namespace headerdtc::cli
