#pragma once

#include <QColor>
#include <QPalette>
#include <QProxyStyle>

namespace headerdtc::qt {

// Of one colour the share (0 to 1), of the other the rest.
QColor mixed(const QColor& one, const QColor& other, double share);

// How well an ink is read on a ground, from 1 to 21, as the guidelines for the web count it.
double contrast(const QColor& ink, const QColor& ground);

// The ink, with as much of the text's in it as it needs for a contrast on windows and in lists.
QColor readable(const QColor& ink, const QPalette& palette, double contrast);

// What frames the widget with the focus, and marks what has changed.
QColor frameColor(const QPalette& palette);

// The palette with a grey for what is said by the way that can be read on windows and in lists.
// Some desktops leave that colour out, and what Qt puts there hardly shows on a dark window.
QPalette withReadableGrey(QPalette palette);

// A style whose boxes and options to be marked, and whose frames of the focus, show on every
// ground. It is made for Fusion, where they are darker than the window, which on a dark one hardly
// shows.
class ReadableStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
};

}  // namespace headerdtc::qt
