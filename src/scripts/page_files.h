#pragma once

#include "controls/event.h"
#include "core/header_dtc.h"

namespace headerdtc {

// The files of the site that a page names, by their paths from the site's root: the extra include
// files and the stylesheet. Both are typed or browsed for; the includes form a list.
class PageFiles {
  public:
    explicit PageFiles(HeaderDTC& dtc);
    PageFiles(const PageFiles&) = delete;
    PageFiles& operator=(const PageFiles&) = delete;

    // One of the browse buttons, as the table in the source file describes it.
    struct Browsing;

  private:
    void browse(const Browsing& browsing);
    void IncludeASPAddCommand_Click();
    void IncludeASPDeleteCommand_Click();
    void IncludeASPList_Click();

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
