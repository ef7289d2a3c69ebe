#pragma once

#include "core/header_dtc.h"

namespace headerdtc {

// A family's tab follows the data provider: entering it after another provider was chosen offers
// the fields of that provider and discards the return fields, criteria and translation choices
// made for the one before.
class FamilyTab {
  public:
    // Fills in the control's PrepareFamilyTab.
    explicit FamilyTab(HeaderDTC& dtc);
    FamilyTab(const FamilyTab&) = delete;
    FamilyTab& operator=(const FamilyTab&) = delete;

    // Reports as "PrepareZEKOTab" or "PrepareEAITab". A data source that fails leaves the tab
    // without the fields that it did not give.
    void prepare(Family family);

  private:
    HeaderDTC& dtc_;
};

}  // namespace headerdtc
