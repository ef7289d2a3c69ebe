#pragma once

#include <QString>
#include <string>

namespace headerdtc::qt {

// The models speak UTF-8.
inline QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace headerdtc::qt
