#pragma once

#include <string>

namespace headerdtc {

// What a file-open dialog is asked to show. Paths are Windows paths; a filter reads
// "description|pattern".
struct FileDialogRequest {
    std::string title;
    std::string initialDirectory;
    std::string filter;
};

// The common file-open dialog of the surroundings.
class FileDialog {
  public:
    virtual ~FileDialog() = default;
    // The chosen file as a full Windows path, or empty when the author cancelled.
    virtual std::string open(const FileDialogRequest& request) = 0;
};

}  // namespace headerdtc
