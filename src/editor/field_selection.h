#pragma once

#include "core/handler.h"

namespace headerdtc {

// Choosing and ordering the return fields on the families' tabs. A field that is added is offered
// for translation and as the from side of a link too; one that is removed is no longer offered for
// translation, but stays a from side until the data provider changes.
class FieldSelection {
  public:
    explicit FieldSelection(HeaderDTC& dtc);
    FieldSelection(const FieldSelection&) = delete;
    FieldSelection& operator=(const FieldSelection&) = delete;

  private:
    void AddField_Click(FamilyControls& family, ChangedProperties& changed);
    void FieldsList_DblClick(FamilyControls& family, ChangedProperties& changed);
    void RemoveField_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveUpCommand_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveDownCommand_Click(FamilyControls& family, ChangedProperties& changed);

    Subscriptions subscriptions_;
};

}  // namespace headerdtc
