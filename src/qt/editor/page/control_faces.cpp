#include "qt/editor/page/control_faces.h"

#include "platform/runtime_error.h"

#include <QFile>

namespace headerdtc::qt {

ControlFaces::ControlFaces(QWidget* window, const std::function<const WindowsPaths&()>& drives)
    : messages_(window),
      fileDialog_(
          [drives](const std::string& windowsPath) -> QString {
              try {
                  return QFile::decodeName(drives().toLocal(windowsPath).c_str());
              } catch (const RuntimeError&) {
                  return {};  // A drive that the site lacks: the dialog begins anywhere.
              }
          },
          [drives](const QString& localPath) {
              return drives().toWindows(QFile::encodeName(localPath).toStdString());
          },
          window),
      modalLoop_(window) {}

}  // namespace headerdtc::qt
