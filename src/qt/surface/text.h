#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace headerdtc::qt {

// The models speak UTF-8.
inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace headerdtc::qt
