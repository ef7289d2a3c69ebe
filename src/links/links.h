#pragma once

#include "core/handler.h"

namespace headerdtc {

// The behaviours of the link tabs, each in the source that its comment names.

// linked_provider.cpp: the linked data provider, one for both tabs. Fills in the control's
// PrepareLinkTab.
Behaviour chooseLinkedProvider(HeaderDTC& dtc);
// link_grids.cpp: adding, removing and editing links.
Behaviour editLinks(HeaderDTC& dtc);
// linked_fields.cpp: choosing and ordering the fields of the linked provider.
Behaviour chooseLinkedFields(HeaderDTC& dtc);

// Notes what there is to lose in a links grid that is about to be emptied.
void noteDiscardedLinks(const FamilyControls& family, ChangedProperties& changed);

// All of them, listening to one control. Make it before the control's UserControl_Initialize; the
// control outlives it.
struct Links {
    explicit Links(HeaderDTC& dtc)
        : provider(chooseLinkedProvider(dtc)),
          grids(editLinks(dtc)),
          fields(chooseLinkedFields(dtc)) {}

    Behaviour provider, grids, fields;
};

}  // namespace headerdtc
