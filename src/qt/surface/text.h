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

// A number with what it counts: "1 line", "12 lines".
inline QString counted(int number, const char* one, const char* many) {
    return QString::number(number) + QLatin1Char(' ') + QLatin1String(number == 1 ? one : many);
}

}  // namespace headerdtc::qt
