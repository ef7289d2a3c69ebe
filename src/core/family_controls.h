#pragma once

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/text_box.h"
#include "core/family.h"
#include "platform/dictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace headerdtc {

// The marked row of a grid and the row that was marked before it; -1 for none yet.
struct RowTracker {
    std::int16_t current = -1;
    std::int16_t previous = -1;

    void moveTo(int row) { previous = std::exchange(current, static_cast<std::int16_t>(row)); }
};

// Columns of a criteria grid.
namespace criteria_column {
inline constexpr int Marker = 0, Key = 1, Operator = 2, Value = 3, Script = 4, Count = 5;
}
// Columns of a links grid.
namespace links_column {
inline constexpr int Marker = 0, From = 1, To = 2, Count = 3;
}

// The operators of a criterion, by the numbers that the generated script has for them.
inline constexpr std::string_view CriteriumOperators[] = {"==", "<=", ">="};

// The kinds of a criterion's value.
enum CriteriumValueType : std::int32_t { CONSTANT = 0, INCLUDEFUNCTION = 1, USERSCRIPT = 2 };

// Everything that exists once for each query family: the controls of its tab, its half of the
// I18N tab and its link tab, and the state kept beside them. A member's name is the control's
// role; the control's full name carries the family's prefix before it.
struct FamilyControls {
    FamilyControls(Form& surface, Family family);

    const Family family;
    const FamilyTraits& traits;

    // ---- the family's tab ------------------------------------------------------------------
    TextBox DataProviderText;  // read-only copy of the data provider
    ListBox FieldsList;
    Button AddField, RemoveField;
    ListBox SelectedFieldsList;
    Button MoveUpCommand, MoveDownCommand;
    Grid CriteriaGrid;
    // In-place editors of the criteria grid, hidden at rest.
    ComboBox KeyFieldsCombo, OperatorsCombo;
    TextBox KeyFieldValueText;
    Button AddCriteriumCommand, RemoveCriteriumCommand;

    // ---- its half of the I18N tab ----------------------------------------------------------
    ListBox I18NFieldnamesList, I18NFieldValuesList;

    // ---- the link tab ----------------------------------------------------------------------
    ComboBox LinkedDataProvidersCombo;
    Button DeleteLinkCommand;
    ListBox LinkedFieldsList;
    Button AddLinkedField, RemoveLinkedField;
    ListBox SelectedLinkedFieldsList;
    Button MoveUpLinkedField, MoveDownLinkedField;  // named as the family's traits say
    Grid LinksGrid;
    // In-place editors of the links grid, hidden at rest.
    ComboBox FromLinkFieldsCombo, ToLinkFieldsCombo;
    Button AddLink, RemoveLink;

    // ---- state beside the controls ---------------------------------------------------------
    // Value type of each criterion, under the criterion's value text.
    Dictionary<std::int32_t> CriteriaType;
    RowTracker criteriaRows;
    RowTracker linkRows;
    // The warning about the Del key is still to be shown.
    bool warnAboutDeleteKey = true;
};

}  // namespace headerdtc
