#pragma once

#include <string>

namespace headerdtc {

// Read access to the system registry.
class Registry {
  public:
    virtual ~Registry() = default;
    // The string value at a full path such as "HKLM\SOFTWARE\...\InstallDir"; the last piece is
    // the value's name. Key and value names compare without regard to case. Raises RuntimeError
    // when there is no registry or no such value.
    virtual std::string RegRead(const std::string& path) = 0;
};

}  // namespace headerdtc
