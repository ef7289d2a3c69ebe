#pragma once

#include "core/handler.h"

namespace headerdtc {

// Choosing the fields of the linked provider that the page returns: moving them between the
// available and the selected list of each link tab, and ordering the selected ones.
class LinkedFields {
  public:
    explicit LinkedFields(HeaderDTC& dtc);
    LinkedFields(const LinkedFields&) = delete;
    LinkedFields& operator=(const LinkedFields&) = delete;

  private:
    void AddLinkedField_Click(FamilyControls& family, ChangedProperties& changed);
    void LinkedFieldsList_DblClick(FamilyControls& family, ChangedProperties& changed);
    void RemoveLinkedField_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveUpLinkedField_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveDownLinkedField_Click(FamilyControls& family, ChangedProperties& changed);

    Subscriptions subscriptions_;
};

}  // namespace headerdtc
