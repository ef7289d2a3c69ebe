#include "qt/editor/page/page_marks.h"

#include "core/header_dtc.h"
#include "qt/editor/base/icons.h"
#include "qt/editor/base/step_name.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/grid_model.h"
#include "qt/surface/text.h"

#include <QCoreApplication>
#include <QTableView>
#include <algorithm>

namespace headerdtc::qt {
namespace {

// In the order of CriteriumValueType.
struct KindLook {
    const char* words;
    const char* icon;
};
constexpr KindLook KindLooks[] = {
    {QT_TRANSLATE_NOOP("PageMarks", "a constant"), "value-constant"},
    {QT_TRANSLATE_NOOP("PageMarks", "a function of an included file"), "value-include"},
    {QT_TRANSLATE_NOOP("PageMarks", "a local script"), "value-script"},
};

// Where a part is edited; nullptr for one that only follows from others.
const Control* controlOf(const HeaderDTC& dtc, const FamilyControls& family, StoredPart part) {
    switch (part) {
        case StoredPart::DataProvider:
            return &dtc.DataProvidersCombo;
        case StoredPart::ExtraFilters:
            return &dtc.EnableExtraFiltersCheck;
        case StoredPart::Includes:
            return &dtc.IncludeASPList;
        case StoredPart::Stylesheet:
            return &dtc.XSLFilenameText;
        case StoredPart::Scripts:
        case StoredPart::Criteria:
            return &family.CriteriaGrid;
        case StoredPart::ReturnFields:
            return &family.SelectedFieldsList;
        case StoredPart::TranslatedNames:
            return &family.I18NFieldnamesList;
        case StoredPart::TranslatedValues:
            return &family.I18NFieldValuesList;
        case StoredPart::LinkedDataProvider:
            return &family.LinkedDataProvidersCombo;
        case StoredPart::LinkedFields:
            return &family.SelectedLinkedFieldsList;
        case StoredPart::Links:
            return &family.LinksGrid;
        default:
            return nullptr;
    }
}

std::string textOf(const StoredProperties& properties, const std::string& name) {
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const auto& property) { return property.first == name; });
    return found == properties.end() ? std::string() : found->second;
}

// Scripts belong to no family, but to the criteria that they supply.
bool usesOtherScripts(const FamilyControls& family, const StoredProperties& saved,
                      const StoredProperties& now) {
    for (int row = 1; row < family.CriteriaGrid.Rows(); ++row) {
        const std::string script =
            family.CriteriaGrid.TextMatrix(row, criteria_column::Value) + "UserDefinedScript";
        if (textOf(saved, script) != textOf(now, script)) return true;
    }
    return false;
}

}  // namespace

void showKinds(HeaderDTC& dtc, ControlSurface& surface) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        auto* table = surface.findChild<QTableView*>(toQt(family.CriteriaGrid.name()));
        auto* cells = table ? dynamic_cast<GridModel*>(table->model()) : nullptr;
        if (!cells) continue;
        cells->setRemarks(
            criteria_column::Value, {[&family](const QModelIndex& index) {
                const std::string value = fromQt(index.data().toString());
                if (value.empty()) return ItemRemark();
                const std::int32_t kind =
                    family.CriteriaType.Exists(value) ? family.CriteriaType.item(value) : CONSTANT;
                if (kind < CONSTANT || kind > USERSCRIPT) return ItemRemark();
                const KindLook& look = KindLooks[kind];
                return ItemRemark{QCoreApplication::translate("PageMarks", look.words),
                                  editorIcon(look.icon)};
            }});
    }
}

void showChanges(const HeaderDTC& dtc, ControlSurface& surface, const StoredProperties& saved,
                 const StoredProperties& now) {
    std::set<const Control*> changed;
    for (const ControlPart& part : differingParts(saved, now)) {
        for (const Family which : BothFamilies) {
            const FamilyControls& family = dtc.family(which);
            if (part.family.value_or(which) != which) continue;
            const bool isScripts = part.part == StoredPart::Scripts;
            if (isScripts && !usesOtherScripts(family, saved, now)) continue;
            if (const Control* control = controlOf(dtc, family, part.part)) changed.insert(control);
        }
    }
    surface.markChanged(changed);
}

}  // namespace headerdtc::qt
