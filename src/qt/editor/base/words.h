#pragma once

#include <QFile>
#include <QString>
#include <filesystem>

namespace headerdtc::qt {

// A number with what it counts: "1 line", "12 lines".
inline QString counted(int number, const char* one, const char* many) {
    return QString::number(number) + QLatin1Char(' ') + QLatin1String(number == 1 ? one : many);
}

// Names of files as Qt has them, and the file system's bytes.

inline std::filesystem::path toPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

inline QString toName(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

}  // namespace headerdtc::qt
