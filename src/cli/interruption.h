#pragma once

#include "host/generation/site_pages.h"

#include <csignal>
#include <cstddef>

namespace headerdtc::cli {

// While one is there, the first Ctrl-C is only noted, so that the pages in work are finished or
// left as they are; a second one ends the program at once.
class Interruption {
  public:
    Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
    ~Interruption();

    static bool seen();

  private:
    struct sigaction before_ {};
};

// Says that a run was ended after the first `done` pages.
void tellOfPagesLeft(const SitePages& pages, std::size_t done);

}  // namespace headerdtc::cli
