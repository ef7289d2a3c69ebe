#pragma once

#include "scripts/install_directory.h"
#include "scripts/page_files.h"
#include "scripts/script_criteria.h"

namespace headerdtc {

// Script criteria, the General tab's include files and stylesheet, and the site's root, listening
// to one control. Make it before the control's UserControl_Initialize; the control outlives it.
struct Scripts {
    explicit Scripts(HeaderDTC& dtc) : installDirectory(dtc), criteria(dtc), files(dtc) {}

    InstallDirectory installDirectory;
    ScriptCriteria criteria;
    PageFiles files;
};

}  // namespace headerdtc
