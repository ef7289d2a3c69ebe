#include "scripts/script_criteria.h"

#include "scripts/specify_criterium_dialog.h"

namespace headerdtc {

ScriptCriteria::ScriptCriteria(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.ShowSpecifyCriteriumDialog = [this](int tab, int row, const std::string& name,
                                                        const std::string& script,
                                                        std::int32_t valueType) {
        ShowSpecifyCriteriumDialog(tab, row, name, script, valueType);
    };
}

void ScriptCriteria::ShowSpecifyCriteriumDialog(int tab, int row, const std::string& name,
                                                const std::string& script, std::int32_t valueType) {
    SpecifyCriteriumDialog dialog(dtc_);
    dialog.TabValue = tab;
    dialog.RowValue = row;
    dialog.ValueType(valueType);
    dialog.NameValue(name);
    dialog.TextValue(name.empty() ? std::string() : script);
    dialog.form.ShowModal();
}

}  // namespace headerdtc
