#include "qt/editor/page/control_faces.h"

#include "platform/runtime_error.h"
#include "qt/editor/base/words.h"

namespace headerdtc::qt {

ControlFaces::ControlFaces(QWidget* window, const std::function<const WindowsPaths&()>& drives)
    : messages_(window),
      fileDialog_(
          [drives](const std::string& windowsPath) -> QString {
              try {
                  return toName(drives().toLocal(windowsPath));
              } catch (const RuntimeError&) {
                  return {};  // A drive that the site lacks: the dialog begins anywhere.
              }
          },
          [drives](const QString& localPath) { return drives().toWindows(toPath(localPath)); },
          window),
      modalLoop_(window) {}

}  // namespace headerdtc::qt
