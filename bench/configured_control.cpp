#include "bench/configured_control.h"

#include "host/page/text_property_bag.h"
#include "runtime/runtime_text.h"

#include <algorithm>

namespace headerdtc::bench {
namespace {

std::string entryOf(Family family, int number) {
    const std::string name = "FIELD" + std::to_string(number);
    return family == Family::EAI ? "ORDERS." + name : std::to_string(number) + " - " + name;
}

void fill(FamilyControls& family, int fields) {
    for (int i = 1; i <= fields; ++i) {
        const std::string entry = entryOf(family.family, i);
        family.FieldsList.AddItem(entry);
        family.SelectedFieldsList.AddItem(entry);
        family.KeyFieldsCombo.AddItem("FIELD" + std::to_string(i));
        family.I18NFieldnamesList.AddItem(entry);
        family.I18NFieldValuesList.AddItem(entry);
        family.I18NFieldnamesList.Selected(i - 1, true);
        family.I18NFieldValuesList.Selected(i - 1, true);
        family.LinkedFieldsList.AddItem(entry);
        family.SelectedLinkedFieldsList.AddItem(entry);
        family.ToLinkFieldsCombo.AddItem("FIELD" + std::to_string(i));
    }
    const int rows = std::clamp(fields, 1, 30);
    family.CriteriaGrid.Rows(rows + 1);
    family.LinksGrid.Rows(rows + 1);
    for (int row = 1; row <= std::min(fields, rows); ++row) {
        const std::string value = "value" + std::to_string(row);
        family.CriteriaGrid.TextMatrix(row, criteria_column::Key, "FIELD1");
        family.CriteriaGrid.TextMatrix(row, criteria_column::Operator, "==");
        family.CriteriaGrid.TextMatrix(row, criteria_column::Value, value);
        family.CriteriaType.Add(value, row % 3);
        family.LinksGrid.TextMatrix(row, links_column::From, entryOf(family.family, row));
        family.LinksGrid.TextMatrix(row, links_column::To, "FIELD1");
    }
}

}  // namespace

ConfiguredControl::ConfiguredControl(int fields) {
    outside.site.entries = {{2, "/site/"}, {6, "/site/a/page.asp"}};
    outside.dataSources.providers = {{.name = "Orders"}};
    dtc.procedures.PrepareGeneralTab = [this] {
        dtc.DataProvidersCombo.AddItem("Orders");
        dtc.ZEKO.LinkedDataProvidersCombo.AddItem("Orders");
        dtc.EAI.LinkedDataProvidersCombo.AddItem("Orders");
    };
    dtc.procedures.GetInstallDir = [] { return std::string("C:\\"); };
    dtc.site = &outside.site;
    provideRuntimeText(dtc);
    dtc.UserControl_Initialize();
    dtc.DataProvidersCombo.ListIndex(0);
    dtc.linkedDataProvider = "Orders";
    dtc.IncludeASPList.AddItem("Include/Dates.asp");
    dtc.userDefinedScripts->Add("value2", "Function value2()\r\n\r\n\tvalue2 = 1\r\nEnd Function");
    fill(dtc.EAI, fields);
    fill(dtc.ZEKO, fields);
}

StoredProperties storedPropertiesOf(int fields) {
    ConfiguredControl control(fields);
    CollectingPropertyBag bag;
    control.dtc.UserControl_WriteProperties(bag);
    return bag.asStored();
}

std::string templateOf(std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        for (const RuntimeTextStep& step : runtimeTextSteps()) {
            text += "\t\t\tmProvider.SomeSetting = ";
            // The long fragments once; what a header says again and again are the short ones.
            const bool fragment =
                step.placeholder.starts_with("<SPECIFY_") || step.placeholder.starts_with("<ADD_");
            if (!fragment || text.find(step.placeholder) == std::string::npos)
                text += step.placeholder;
            text += "\r\n\t' A remark of the template's author about the setting above.\r\n";
        }
    }
    return text;
}

}  // namespace headerdtc::bench
