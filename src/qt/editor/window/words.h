#pragma once

#include <QString>

namespace headerdtc::qt {

// A number with what it counts: "1 line", "12 lines".
inline QString counted(int number, const char* one, const char* many) {
    return QString::number(number) + QLatin1Char(' ') + QLatin1String(number == 1 ? one : many);
}

}  // namespace headerdtc::qt
