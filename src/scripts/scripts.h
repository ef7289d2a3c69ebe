#pragma once

#include "core/handler.h"
#include "core/header_dtc.h"

#include <string>
#include <string_view>

namespace headerdtc {

// Where the suite's install directory is recorded.
inline constexpr std::string_view InstallDirValue =
    R"(HKLM\SOFTWARE\Zarvik\Zarvik Velmora\InstallDir)";

// The install directory of a registry, a Windows path in capitals with a backslash at its end;
// empty when it cannot be read.
std::string installDirectoryOf(Registry& registry);

// Fills in the control's GetInstallDir, the root of the web site: installDirectoryOf the control's
// registry, read anew by every call. When it is empty, a message says so.
void provideInstallDirectory(HeaderDTC& dtc);

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
