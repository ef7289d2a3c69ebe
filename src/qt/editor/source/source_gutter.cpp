#include "qt/editor/source/source_gutter.h"

#include "qt/editor/source/source_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTextBlock>

namespace headerdtc::qt {
namespace {

constexpr int Margin = 6;

}  // namespace

SourceGutter::SourceGutter(SourceView& view) : QWidget(&view), view_(view) {
    setAccessibleName(tr("Line numbers"));
}

int SourceGutter::foldWidth() const {
    return fontMetrics().height();
}

QSize SourceGutter::sizeHint() const {
    const QString widest(QString::number(view_.blockCount()).size(), QLatin1Char('9'));
    return {view_.fontMetrics().horizontalAdvance(widest) + foldWidth() + 2 * Margin, 0};
}

void SourceGutter::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    painter.setFont(view_.font());
    const QColor faint = palette().color(QPalette::Disabled, QPalette::WindowText);
    const QColor strong = palette().color(QPalette::WindowText);
    const int caretLine = view_.textCursor().blockNumber();

    view_.forShownLines(event->rect(), [&](const QTextBlock& block, const QRectF& place) {
        const int line = block.blockNumber();
        painter.setPen(line == caretLine ? strong : faint);
        painter.drawText(
            QRectF(0, place.top(), width() - foldWidth() - Margin, view_.fontMetrics().height()),
            Qt::AlignRight, QString::number(line + 1));

        const SourceView::Region* region = view_.regionAt(line);
        if (!region || region->first != line) return;
        const double size = foldWidth() * 0.3;
        const QPointF middle(width() - foldWidth() * 0.5,
                             place.top() + view_.fontMetrics().height() * 0.5);
        QPainterPath triangle;
        if (view_.isFolded(region->controlId)) {
            triangle.moveTo(middle + QPointF(-size * 0.6, -size));
            triangle.lineTo(middle + QPointF(size * 0.6, 0));
            triangle.lineTo(middle + QPointF(-size * 0.6, size));
        } else {
            triangle.moveTo(middle + QPointF(-size, -size * 0.6));
            triangle.lineTo(middle + QPointF(size, -size * 0.6));
            triangle.lineTo(middle + QPointF(0, size * 0.6));
        }
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(triangle, strong);
    });
}

void SourceGutter::mousePressEvent(QMouseEvent* event) {
    const int line = view_.cursorForPosition({0, event->pos().y()}).blockNumber();
    const SourceView::Region* region = view_.regionAt(line);
    if (region && region->first == line) view_.toggleFoldAt(line);
}

}  // namespace headerdtc::qt
