#pragma once

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

}  // namespace headerdtc
