#include "qt/surface/focus_outline.h"

#include <QEvent>
#include <QPainter>

namespace headerdtc::qt {

FocusOutline::FocusOutline(QWidget& outlined) : QWidget(&outlined) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setVisible(outlined.hasFocus());
    outlined.installEventFilter(this);
}

bool FocusOutline::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            resize(parentWidget()->size());
            raise();
            show();
            break;
        case QEvent::FocusOut:
            hide();
            break;
        case QEvent::Resize:
            resize(parentWidget()->size());
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusOutline::paintEvent(QPaintEvent*) {
    constexpr int Width = 2;
    QPainter painter(this);
    QPen pen(palette().color(QPalette::Highlight), Width);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(rect().adjusted(Width / 2, Width / 2, -Width / 2, -Width / 2));
}

}  // namespace headerdtc::qt
