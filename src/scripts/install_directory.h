#pragma once

#include "core/header_dtc.h"

#include <string>

namespace headerdtc {

// The root of the web site: the suite's install directory, as the registry has it.
class InstallDirectory {
  public:
    // Fills in the control's GetInstallDir.
    explicit InstallDirectory(HeaderDTC& dtc);
    InstallDirectory(const InstallDirectory&) = delete;
    InstallDirectory& operator=(const InstallDirectory&) = delete;

    // A Windows path in capitals with a backslash at its end. Read anew by every call; when it
    // cannot be read, a message says so and the path is empty.
    std::string GetInstallDir();

  private:
    HeaderDTC& dtc_;
};

}  // namespace headerdtc
