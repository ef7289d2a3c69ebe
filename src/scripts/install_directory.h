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

// The root of the web site: the suite's install directory, as the registry has it.
class InstallDirectory {
  public:
    // Fills in the control's GetInstallDir.
    explicit InstallDirectory(HeaderDTC& dtc);
    InstallDirectory(const InstallDirectory&) = delete;
    InstallDirectory& operator=(const InstallDirectory&) = delete;

    // installDirectoryOf the control's registry, read anew by every call; when it is empty, a
    // message says so.
    std::string GetInstallDir();

  private:
    HeaderDTC& dtc_;
};

}  // namespace headerdtc
