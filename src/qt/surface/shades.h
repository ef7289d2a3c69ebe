#pragma once

#include <QColor>
#include <QPalette>

namespace headerdtc::qt {

// Of one colour the share (0 to 1), of the other the rest.
QColor mixed(const QColor& one, const QColor& other, double share);

// How well an ink is read on a ground, from 1 to 21, as the guidelines for the web count it.
double contrast(const QColor& ink, const QColor& ground);

// The palette with a grey for what is said by the way that can be read on windows and in lists.
// Some desktops leave that colour out, and what Qt puts there hardly shows on a dark window.
QPalette withReadableGrey(QPalette palette);

}  // namespace headerdtc::qt
