#include "qt/editor/base/icons.h"

#include <QAbstractButton>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <utility>

namespace headerdtc::qt {
namespace {

// A colour of the drawings, and the one that takes its place on a dark window.
struct Ink {
    const char* onLight;
    const char* onDark;
};

constexpr const char* Line = "currentColor";  // the text's
constexpr Ink Inks[] = {
    {"#2a8a3c", "#6cc67a"},  // good
    {"#c27a00", "#f0b44c"},  // attention
    {"#c0392b", "#f07c70"},  // bad
    {"#1f62b4", "#7fb2f0"},  // accent
    {"#ffffff", "#ffffff"},  // paper
};

// A drawing in the colours of the palette; a disabled one is in one colour throughout.
QByteArray inPalette(QByteArray drawing, QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    const bool disabled = mode == QIcon::Disabled;
    const bool dark = palette.color(QPalette::Window).lightnessF() < 0.5;
    const QByteArray line =
        palette
            .color(disabled ? QPalette::Disabled : QPalette::Active,
                   mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText)
            .name()
            .toLatin1();
    drawing.replace(Line, line);
    for (const Ink& ink : Inks)
        drawing.replace(ink.onLight, disabled ? line : QByteArray(dark ? ink.onDark : ink.onLight));
    return drawing;
}

class PaletteIcon : public QIconEngine {
  public:
    explicit PaletteIcon(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QSvgRenderer(inPalette(drawing_, mode)).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new PaletteIcon(drawing_); }

  private:
    QByteArray drawing_;
};

QIcon drawn(const QString& name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? QIcon(new PaletteIcon(file.readAll())) : QIcon();
}

}  // namespace

QIcon editorIcon(const QString& name) {
    return QIcon::fromTheme(name, drawn(name));
}

QIcon editorIcon(const char* name) {
    return editorIcon(QString::fromLatin1(name));
}

void setIcons(const QWidget& form) {
    for (auto* button : form.findChildren<QAbstractButton*>()) {
        const QString name = button->property("iconName").toString();
        if (!name.isEmpty()) button->setIcon(editorIcon(name));
    }
}

QIcon applicationIcon() {
    return editorIcon("headerdtc-editor");
}

}  // namespace headerdtc::qt
