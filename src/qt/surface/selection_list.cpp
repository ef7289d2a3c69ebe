#include "qt/surface/selection_list.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <utility>

namespace headerdtc::qt {

SelectionList::SelectionList(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
}

void SelectionList::setEmptyText(const QString& text) {
    if (text == emptyText_) return;
    emptyText_ = text;
    viewport()->update();
}

void SelectionList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (emptyText_.isEmpty() || !model() || model()->rowCount() > 0) return;
    constexpr int Margin = 8;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(Margin, Margin, -Margin, -Margin),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

bool SelectionList::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QModelIndex item = indexAt(help.pos());
    if (!item.data(Qt::ToolTipRole).toString().isEmpty()) return QListView::viewportEvent(event);
    const QString text = item.data().toString();
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    if (fontMetrics().horizontalAdvance(text) + margins <= viewport()->width())
        return QListView::viewportEvent(event);
    QToolTip::showText(help.globalPos(), text, viewport());
    return true;
}

void SelectionList::changed() {
    if (showing_ > 0) return;
    changed_ = true;
    // Neither key nor mouse: assistive technology has selected.
    if (!acting_) endAction();
}

void SelectionList::endAction() {
    acting_ = false;
    if (std::exchange(changed_, false)) Q_EMIT selected();
}

// Presses beside the items leave the selection alone.
void SelectionList::mousePressEvent(QMouseEvent* event) {
    dragging_ = false;
    if (event->button() != Qt::LeftButton || !indexAt(event->position().toPoint()).isValid())
        return;
    Q_EMIT actionBegins();
    dragging_ = acting_ = changed_ = true;
    QListView::mousePressEvent(event);
    endAction();
}

// A selection drawn with the mouse is one action, over when the button is let go of.
void SelectionList::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_ || !(event->buttons() & Qt::LeftButton)) return;
    acting_ = true;
    QListView::mouseMoveEvent(event);
}

void SelectionList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    dragging_ = false;
    endAction();
}

void SelectionList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT pressedTwice();
}

void SelectionList::keyPressEvent(QKeyEvent* event) {
    Q_EMIT actionBegins();
    acting_ = true;
    QListView::keyPressEvent(event);
    endAction();
}

// Qt makes the first item current when the focus comes; no person did.
void SelectionList::focusInEvent(QFocusEvent* event) {
    const Showing showing(*this);
    const QModelIndex before = currentIndex();
    QListView::focusInEvent(event);
    if (currentIndex() != before)
        selectionModel()->setCurrentIndex(before, QItemSelectionModel::NoUpdate);
}

void SelectionList::selectionChanged(const QItemSelection& selected, const QItemSelection& left) {
    QListView::selectionChanged(selected, left);
    changed();
}

void SelectionList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    changed();
}

}  // namespace headerdtc::qt
