#pragma once

#include "core/handler.h"
#include "scripts/install_directory.h"

namespace headerdtc {

// specify_criterium_dialog.cpp: fills in the control's ShowSpecifyCriteriumDialog.
void provideScriptDialog(HeaderDTC& dtc);
// page_files.cpp: the General tab's include files and stylesheet.
Behaviour namePageFiles(HeaderDTC& dtc);

// All of these, and the install directory, for one control. Make it before the control's
// UserControl_Initialize; the control outlives it.
struct Scripts {
    explicit Scripts(HeaderDTC& dtc) : files(namePageFiles(dtc)) {
        provideInstallDirectory(dtc);
        provideScriptDialog(dtc);
    }

    Behaviour files;
};

}  // namespace headerdtc
