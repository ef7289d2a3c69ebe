#pragma once

#include "core/handler.h"

namespace headerdtc {

// The linked data provider, one for both link tabs: choosing it on either tab, showing what it
// offers on both, and deleting the whole link.
class LinkedProvider {
  public:
    // Fills in the control's PrepareLinkTab.
    explicit LinkedProvider(HeaderDTC& dtc);
    LinkedProvider(const LinkedProvider&) = delete;
    LinkedProvider& operator=(const LinkedProvider&) = delete;

    // A link tab is entered: its combo takes over a provider that was chosen on the other tab.
    // Reports as "PrepareZEKOLinkTab" or "PrepareEAILinkTab".
    void prepare(Family family);

  private:
    void LinkedDataProvidersCombo_Click(FamilyControls& family, ChangedProperties& changed);
    void deleteLink(FamilyControls& family, ChangedProperties& changed);
    void updateLinkTab(Family family, ChangedProperties& changed);

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
