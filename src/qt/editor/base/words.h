#pragma once

#include "qt/surface/text.h"

#include <QFile>
#include <QString>
#include <algorithm>
#include <filesystem>

namespace headerdtc::qt {

// Names of files as Qt has them, and the file system's bytes.

inline std::filesystem::path toPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

inline QString toName(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

inline bool isBelow(const std::filesystem::path& file, const std::filesystem::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first ==
           folder.end();
}

}  // namespace headerdtc::qt
