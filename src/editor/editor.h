#pragma once

#include "editor/criteria_grids.h"
#include "editor/editor_tabs.h"
#include "editor/family_tab.h"
#include "editor/field_selection.h"

namespace headerdtc {

// All behaviours of the editor, listening to one control. Make it before the control's
// UserControl_Initialize; the control outlives it.
struct Editor {
    explicit Editor(HeaderDTC& dtc) : tabs(dtc), familyTab(dtc), fields(dtc), criteria(dtc) {}

    EditorTabs tabs;
    FamilyTab familyTab;
    FieldSelection fields;
    CriteriaGrids criteria;
};

}  // namespace headerdtc
