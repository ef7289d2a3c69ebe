#include "qt/editor/lists/list_finder.h"

#include "qt/editor/base/icons.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/shades.h"
#include "qt/surface/text.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

// What an entry is read as: "  7 - CITY", "ORDERS.CITY", or one text.
QStringList partsOf(const QString& entry) {
    for (const auto& separator : {QStringLiteral(" - "), QStringLiteral(".")}) {
        const qsizetype at = entry.indexOf(separator);
        if (at > 0) return {entry.left(at), entry.mid(at + separator.size())};
    }
    return {entry};
}

// Less is better; -1: not at all.
int rankOf(const QString& entry, const QString& sought) {
    if (!entry.contains(sought, Qt::CaseInsensitive)) return -1;
    int best = 2;
    for (const QString& part : partsOf(entry)) {
        if (part.compare(sought, Qt::CaseInsensitive) == 0) return 0;
        if (part.startsWith(sought, Qt::CaseInsensitive)) best = 1;
    }
    return entry.startsWith(sought, Qt::CaseInsensitive) ? std::min(best, 1) : best;
}

}  // namespace

std::vector<int> findInList(const ListBox& list, const std::string& sought) {
    const QString text = toQt(sought).trimmed();
    if (text.isEmpty()) return {};
    if (text.startsWith(QLatin1Char('#'))) {
        bool isNumber = false;
        const int position = text.mid(1).toInt(&isNumber);
        if (isNumber && position >= 1 && position <= list.ListCount()) return {position - 1};
    }
    std::vector<std::pair<int, int>> found;  // rank, item
    for (int i = 0; i < list.ListCount(); ++i) {
        const int rank = rankOf(toQt(list.List(i)).trimmed(), text);
        if (rank >= 0) found.emplace_back(rank, i);
    }
    std::sort(found.begin(), found.end());
    std::vector<int> items;
    items.reserve(found.size());
    for (const auto& [rank, item] : found)
        items.push_back(item);
    return items;
}

// A frame around the item that was found, where finding it marks nothing.
class ListFinder::Frame : public QWidget {
  public:
    explicit Frame(QWidget* viewport) : QWidget(viewport) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(QPen(frameColor(palette()), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
};

ListFinder::ListFinder(ListBox& list, SelectionList& view, Ways ways)
    : QFrame(view.parentWidget()), list_(list), view_(view), ways_(std::move(ways)) {
    setObjectName(toQt(list.name()) + QStringLiteral("Finder"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    edit_ = new QLineEdit;
    edit_->setObjectName(toQt(list.name()) + QStringLiteral("FindText"));
    edit_->setPlaceholderText(tr("Name, number or #position"));
    edit_->setAccessibleName(tr("Find in the list"));
    edit_->setToolTip(ways_.use ? tr("Up and Down: other matches; Enter: add; Escape: back")
                                : tr("Up and Down: other matches; Enter or Escape: back"));
    edit_->addAction(editorIcon("edit-find"), QLineEdit::LeadingPosition);
    count_ = new QLabel;
    count_->setObjectName(toQt(list.name()) + QStringLiteral("FindCount"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 4, 2);
    layout->addWidget(edit_, 1);
    layout->addWidget(count_);
    setFocusProxy(&view);
    QWidget::setTabOrder(&view, edit_);
    frame_ = new Frame(view.viewport());
    hide();
    edit_->installEventFilter(this);
    view_.installEventFilter(this);
    connect(edit_, &QLineEdit::textEdited, this, &ListFinder::find);
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, frame_, &QWidget::hide);
}

void ListFinder::open(const QString& text) {
    place();
    QFrame::show();
    raise();
    edit_->setText(text);
    edit_->setFocus();
    find();
}

void ListFinder::place() {
    // Beside the scroll bar, which would hide the count.
    const QRect inner = view_.viewport()->geometry().translated(view_.pos());
    const int height = sizeHint().height();
    setGeometry(inner.left(), inner.bottom() - height + 1, inner.width(), height);
}

void ListFinder::find() {
    matches_ = findInList(list_, fromQt(edit_->text()));
    current_ = -1;
    if (!matches_.empty()) return step(1);
    count_->setText(edit_->text().trimmed().isEmpty() ? QString() : tr("Not found"));
    frame_->hide();
}

void ListFinder::step(int by) {
    const auto count = static_cast<int>(matches_.size());
    if (count == 0) return;
    current_ = current_ < 0 ? 0 : (current_ + by + count) % count;
    show(current_);
}

void ListFinder::show(int match) {
    count_->setText(tr("%1 of %2").arg(match + 1).arg(matches_.size()));
    const int item = matches_[static_cast<std::size_t>(match)];
    const QModelIndex index = view_.model()->index(item, 0);
    const bool isMarked =
        list_.ListIndex() == item && list_.SelCount() == 1 && list_.Selected(item);
    if (ways_.marksAtOnce && !isMarked) ways_.act([&] { list_.select({item}, item); });
    // Centred, since the finder covers the lower edge.
    view_.scrollTo(index, QAbstractItemView::PositionAtCenter);
    frame_->setVisible(!ways_.marksAtOnce);
    if (!ways_.marksAtOnce) frame_->setGeometry(view_.visualRect(index));
}

void ListFinder::accept() {
    if (current_ < 0) return;
    if (!ways_.marksAtOnce) {
        const int item = matches_[static_cast<std::size_t>(current_)];
        close(true);
        std::vector<int> marked;
        for (int i = 0; i < list_.ListCount(); ++i) {
            if (i == item || list_.Selected(i)) marked.push_back(i);
        }
        ways_.act([&] { list_.select(marked, item); });
    } else if (ways_.use) {
        ways_.act(ways_.use);
        // The next one may follow at once.
        edit_->setFocus();
        edit_->selectAll();
        matches_.clear();
        current_ = -1;
        count_->clear();
    } else {
        close(true);
    }
}

void ListFinder::close(bool backToList) {
    if (!isVisible()) return;
    frame_->hide();
    if (backToList) view_.setFocus();
    hide();
}

bool ListFinder::keyPressed(int key) {
    switch (key) {
        case Qt::Key_Up:
            step(-1);
            return true;
        case Qt::Key_Down:
            step(1);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            accept();
            return true;
        case Qt::Key_Escape:
            close(true);
            return true;
        default:
            return false;
    }
}

bool ListFinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &view_) {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Move) place();
        return false;
    }
    if (watched == edit_ && event->type() == QEvent::KeyPress)
        return keyPressed(static_cast<QKeyEvent*>(event)->key());
    if (watched == edit_ && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        QMetaObject::invokeMethod(
            this,
            [this] {
                // An action of the finder may move the focus away and back.
                if (!edit_->hasFocus()) close(false);
            },
            Qt::QueuedConnection);
    return QFrame::eventFilter(watched, event);
}

}  // namespace headerdtc::qt
