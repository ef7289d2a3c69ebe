#pragma once

#include "core/handler.h"

namespace headerdtc {

// The behaviours of the editor, each in the source that its comment names.

// editor_tabs.cpp: moving between the tabs, the General tab's own controls, and the families' tabs
// following the data provider. Fills in the control's PrepareGeneralTab and PrepareFamilyTab.
Behaviour moveBetweenTabs(HeaderDTC& dtc);
// field_selection.cpp: choosing and ordering the return fields.
Behaviour chooseFields(HeaderDTC& dtc);
// criteria_grids.cpp: adding, removing and editing criteria.
Behaviour editCriteria(HeaderDTC& dtc);

// All of them, listening to one control. Make it before the control's UserControl_Initialize; the
// control outlives it.
struct Editor {
    explicit Editor(HeaderDTC& dtc)
        : tabs(moveBetweenTabs(dtc)), fields(chooseFields(dtc)), criteria(editCriteria(dtc)) {}

    Behaviour tabs, fields, criteria;
};

}  // namespace headerdtc
