#pragma once

#include "core/header_dtc.h"

#include <cstdint>
#include <string>

namespace headerdtc {

// Criteria whose value comes from a script: opens the dialog for one row of a criteria grid.
class ScriptCriteria {
  public:
    // Fills in the control's ShowSpecifyCriteriumDialog.
    explicit ScriptCriteria(HeaderDTC& dtc);
    ScriptCriteria(const ScriptCriteria&) = delete;
    ScriptCriteria& operator=(const ScriptCriteria&) = delete;

    // tab: 1 = EAI, 2 = ZEKO; the row's value name, the script stored under it and its value type.
    // Returns when the dialog is closed; OK has then stored the value. Traps nothing.
    void ShowSpecifyCriteriumDialog(int tab, int row, const std::string& name,
                                    const std::string& script, std::int32_t valueType);

  private:
    HeaderDTC& dtc_;
};

}  // namespace headerdtc
