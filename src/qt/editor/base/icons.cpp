#include "qt/editor/base/icons.h"

#include "qt/editor/base/icon_drawings.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace headerdtc::qt {
namespace {

// A path as the drawings write it: letters for what follows, numbers for where. M and L take a
// point, C three, O a centre and a radius, R a corner and a size, Z nothing.
QPainterPath pathOf(const char* drawing) {
    const QStringList words = QString::fromLatin1(drawing).split(QLatin1Char(' '));
    QPainterPath path;
    qsizetype at = 0;
    const auto number = [&] { return words.value(at++).toDouble(); };
    const auto point = [&] {
        const double x = number();
        return QPointF(x, number());
    };
    while (at < words.size()) {
        const QString letter = words.value(at++);
        if (letter == QLatin1String("M")) {
            path.moveTo(point());
        } else if (letter == QLatin1String("L")) {
            path.lineTo(point());
        } else if (letter == QLatin1String("C")) {
            const QPointF first = point();
            const QPointF second = point();
            path.cubicTo(first, second, point());
        } else if (letter == QLatin1String("O")) {
            const QPointF centre = point();
            const double radius = number();
            path.addEllipse(centre, radius, radius);
        } else if (letter == QLatin1String("R")) {
            const QPointF corner = point();
            const double width = number();
            path.addRoundedRect(QRectF(corner, QSizeF(width, number())), 1.5, 1.5);
        } else if (letter == QLatin1String("Z")) {
            path.closeSubpath();
        }
    }
    return path;
}

QColor colourOf(Ink ink, QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::WindowText);
    const bool dark = palette.color(QPalette::Window).lightnessF() < 0.5;
    switch (ink) {
        case Ink::Line:
            return mode == QIcon::Selected ? palette.color(QPalette::HighlightedText)
                                           : palette.color(QPalette::WindowText);
        case Ink::Good:
            return dark ? QColor(0x6c, 0xc6, 0x7a) : QColor(0x2a, 0x8a, 0x3c);
        case Ink::Attention:
            return dark ? QColor(0xf0, 0xb4, 0x4c) : QColor(0xc2, 0x7a, 0x00);
        case Ink::Bad:
            return dark ? QColor(0xf0, 0x7c, 0x70) : QColor(0xc0, 0x39, 0x2b);
        case Ink::Accent:
            return dark ? QColor(0x7f, 0xb2, 0xf0) : QColor(0x1f, 0x62, 0xb4);
        case Ink::Paper:
            return {0xff, 0xff, 0xff};
        case Ink::Brand:
            return {0x1d, 0x4f, 0x91};
        case Ink::BrandLight:
            return {0xf2, 0xa5, 0x3c};
    }
    return {};
}

class DrawnIcon : public QIconEngine {
  public:
    explicit DrawnIcon(const Drawing& drawing) : drawing_(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / DrawingSize, rect.height() / DrawingSize);
        for (const Stroke& stroke : drawing_.strokes) {
            if (!stroke.path) break;
            const QColor colour = colourOf(stroke.ink, mode);
            if (stroke.width == 0) {
                painter->fillPath(pathOf(stroke.path), colour);
            } else {
                painter->strokePath(pathOf(stroke.path), QPen(colour, stroke.width, Qt::SolidLine,
                                                              Qt::RoundCap, Qt::RoundJoin));
            }
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawnIcon(drawing_); }

  private:
    const Drawing& drawing_;
};

QIcon drawn(const QString& name) {
    for (const Drawing& drawing : Drawings) {
        if (name == QLatin1String(drawing.name)) return QIcon(new DrawnIcon(drawing));
    }
    return {};
}

}  // namespace

QIcon editorIcon(const QString& name) {
    return QIcon::fromTheme(name, drawn(name));
}

QIcon editorIcon(const char* name) {
    return editorIcon(QString::fromLatin1(name));
}

QIcon applicationIcon() {
    return editorIcon("headerdtc-editor");
}

}  // namespace headerdtc::qt
