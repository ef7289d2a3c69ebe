#pragma once

#include "platform/file_dialog.h"

#include <string>

namespace headerdtc {

// The common file dialog as a control of the surface: its settings and the last chosen file
// survive from one showing to the next; cancelling leaves FileName as it was.
class CommonDialog {
  public:
    CommonDialog(FileDialog& dialog, std::string title)
        : dialog_(dialog), DialogTitle(std::move(title)) {}

    void ShowOpen() {
        const std::string chosen = dialog_.open({DialogTitle, InitDir, Filter});
        if (!chosen.empty()) FileName = chosen;
    }

  private:
    FileDialog& dialog_;

  public:
    std::string DialogTitle;
    std::string InitDir;   // a Windows path
    std::string Filter;    // "description|pattern"
    std::string FileName;  // full Windows path, empty until a file was chosen
};

}  // namespace headerdtc
