#pragma once

#include "qt/surface/text.h"

#include <QFile>
#include <QString>
#include <filesystem>

namespace headerdtc::qt {

// Names of files as Qt has them, and the file system's bytes.

inline std::filesystem::path toPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

inline QString toName(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

}  // namespace headerdtc::qt
