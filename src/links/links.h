#pragma once

#include "links/link_grids.h"
#include "links/linked_fields.h"
#include "links/linked_provider.h"

namespace headerdtc {

// All behaviours of the link tabs, listening to one control. Make it before the control's
// UserControl_Initialize; the control outlives it.
struct Links {
    explicit Links(HeaderDTC& dtc) : provider(dtc), grids(dtc), fields(dtc) {}

    LinkedProvider provider;
    LinkGrids grids;
    LinkedFields fields;
};

}  // namespace headerdtc
