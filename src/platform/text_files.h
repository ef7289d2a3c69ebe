#pragma once

#include <string>

namespace headerdtc {

// Sequential text files, addressed by Windows paths; text is UTF-8, the code page of the file is
// the implementation's business.
class TextFiles {
  public:
    virtual ~TextFiles() = default;
    // The whole text of a file, its line ends as they stand. Raises RuntimeError (53, 70, 75, 76).
    virtual std::string readText(const std::string& windowsPath) = 0;
    // Replaces or creates a file. Raises RuntimeError (61, 70, 75, 76).
    virtual void writeText(const std::string& windowsPath, const std::string& text) = 0;
};

}  // namespace headerdtc
