#include "qt/editor/source/source_view.h"

#include "qt/editor/base/words.h"
#include "qt/editor/source/asp_highlighter.h"
#include "qt/editor/source/source_gutter.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <algorithm>

namespace headerdtc::qt {
namespace {

// Lays out only the lines that show: a folded control may have thousands of others.
class FoldingLayout : public QPlainTextDocumentLayout {
  public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    QRectF blockBoundingRect(const QTextBlock& block) const override {
        return block.isVisible() ? QPlainTextDocumentLayout::blockBoundingRect(block) : QRectF();
    }
};

constexpr const char* MarkupBegin = "<!--METADATA";
constexpr int SpanTint = 28;  // of 255: how strongly a control's span is coloured

// The document's text as it is; toPlainText() would make blanks of no-break spaces.
QString rawText(const QTextDocument& document, int begin, int end) {
    QTextCursor cursor(const_cast<QTextDocument*>(&document));
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    QString text = cursor.selectedText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

}  // namespace

SourceView::SourceView(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("SourceView"));
    setAccessibleName(tr("Page source"));
    auto* folding = new QTextDocument(this);
    folding->setDocumentLayout(new FoldingLayout(folding));
    setDocument(folding);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabStopDistance(4 * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    // Undo is the page's, for changes of the source and of the controls alike.
    document()->setUndoRedoEnabled(false);
    highlighter_ = new AspHighlighter(document());
    gutter_ = new SourceGutter(*this);
    connect(document(), &QTextDocument::contentsChange, this, &SourceView::documentChanged);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &SourceView::placeGutter);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int scrolled) {
        if (scrolled != 0) {
            gutter_->scroll(0, scrolled);
        } else {
            gutter_->update(0, area.y(), gutter_->width(), area.height());
        }
    });
    connect(this, &QPlainTextEdit::cursorPositionChanged, gutter_, qOverload<>(&QWidget::update));
    connect(this, &QPlainTextEdit::cursorPositionChanged, this,
            [this] { caretIsPlaced_ = caretIsPlaced_ || !showing_; });
    setStatusTip(tr("F6 goes to the control; Tab goes on, once something is written it indents"));
    placeGutter();
}

SourceView::~SourceView() = default;

// ---- page to document ---------------------------------------------------------------------------

void SourceView::showPage(const PageContentPtr& page) {
    lines_ = std::make_unique<SourceLines>(page);
    // The document must not change while it is signalling a change. What it does not show yet, such
    // as a character that is stored as a reference, is put in afterwards.
    if (!outOfStep_) synchronize();
}

void SourceView::synchronize() {
    outOfStep_ = false;
    if (!lines_) return;
    showing_ = true;
    replaceDifference(lines_->text());
    markSpans();
    showing_ = false;
}

void SourceView::replaceDifference(const QString& text) {
    const QString old = rawText(*document(), 0, document()->characterCount() - 1);
    if (old == text) return;
    if (old.isEmpty()) {
        setPlainText(text);
        return;
    }
    qsizetype begin = 0;
    const qsizetype shorter = std::min(old.size(), text.size());
    while (begin < shorter && old[begin] == text[begin])
        ++begin;
    qsizetype end = 0;
    while (end < shorter - begin && old[old.size() - 1 - end] == text[text.size() - 1 - end])
        ++end;
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(begin));
    cursor.setPosition(static_cast<int>(old.size() - end), QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(begin, text.size() - begin - end));
}

// ---- document to page ---------------------------------------------------------------------------

void SourceView::documentChanged(int position, int removed, int added) {
    if (showing_ || outOfStep_ || !lines_) return;
    // Qt counts the end of the last paragraph in when everything is replaced.
    const int length = document()->characterCount() - 1;
    removed = std::min(removed, static_cast<int>(lines_->text().size()) - position);
    added = std::min(added, length - position);
    const QString inserted = rawText(*document(), position, position + added);
    if (QStringView(lines_->text()).mid(position, removed) == inserted) return;

    setTabChangesFocus(false);
    outOfStep_ = true;
    QMetaObject::invokeMethod(this, &SourceView::synchronize, Qt::QueuedConnection);
    const auto edit = lines_->editOf(position, removed, inserted);
    if (!edit || lines_->touchesControl(edit->range)) {
        Q_EMIT editRefused();
        return;
    }
    const bool isLetter = edit->range.size() <= 1 && edit->bytes.size() <= 1 && edit->bytes != "\n";
    const QString kind = !isLetter             ? QString()
                         : edit->bytes.empty() ? QStringLiteral("erase")
                                               : QStringLiteral("write");
    Q_EMIT edited(edit->range, edit->bytes, kind);
    // The next letter may be typed before the view shows the new page.
    if (rawText(*document(), 0, length) == lines_->text()) outOfStep_ = false;
}

void SourceView::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    // Another window or a menu was in front for a while.
    const bool isBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                        reason == Qt::MenuBarFocusReason;
    if (!isBack)
        setTabChangesFocus(reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason);
    QPlainTextEdit::focusInEvent(event);
}

QMimeData* SourceView::createMimeDataFromSelection() const {
    auto* data = new QMimeData;
    const QTextCursor cursor = textCursor();
    data->setText(rawText(*document(), cursor.selectionStart(), cursor.selectionEnd()));
    return data;
}

QColor SourceView::spanTint() const {
    QColor tint = palette().color(QPalette::Highlight);
    tint.setAlpha(SpanTint);
    return tint;
}

// ---- controls' spans ----------------------------------------------------------------------------

void SourceView::markSpans() {
    regions_.clear();
    const std::string& bytes = lines_->page().bytes();
    for (const ControlSpan& span : lines_->page().controls()) {
        const int first = lines_->lineOfByte(span.whole.begin);
        const int last = lines_->lineOfByte(span.whole.end > 0 ? span.whole.end - 1 : 0);
        // What the author wrote behind the span stays in view.
        const ByteRange lastLine = lines_->bytesOfLine(last);
        const bool sharesLine = bytes.find_first_not_of(" \t", span.whole.end) < lastLine.end;
        regions_.push_back({span.id, first, last, sharesLine ? last : last + 1});
        if (known_.insert(span.id).second) folded_.insert(span.id);
    }
    fold();
    viewport()->update();
}

void SourceView::fold() {
    bool changed = false;
    std::size_t region = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int line = block.blockNumber();
        while (region < regions_.size() && line >= regions_[region].hiddenEnd)
            ++region;
        const bool hidden = region < regions_.size() && line > regions_[region].first &&
                            folded_.contains(regions_[region].controlId);
        if (block.isVisible() != hidden) continue;
        block.setVisible(!hidden);
        block.setLineCount(hidden ? 0 : 1);
        changed = true;
    }
    if (!changed) return;
    if (!textCursor().block().isVisible()) {
        const Region* around = regionAt(textCursor().blockNumber());
        QTextCursor cursor(document()->findBlockByNumber(around ? around->first : 0));
        setTextCursor(cursor);
    }
    document()->markContentsDirty(0, document()->characterCount());
    auto* layout = static_cast<QPlainTextDocumentLayout*>(document()->documentLayout());
    Q_EMIT layout->documentSizeChanged(layout->documentSize());
    viewport()->update();
    gutter_->update();
}

const SourceView::Region* SourceView::regionAt(int line) const {
    for (const Region& region : regions_) {
        if (line >= region.first && line < std::max(region.hiddenEnd, region.first + 1))
            return &region;
    }
    return nullptr;
}

void SourceView::toggleFoldAt(int line) {
    if (const Region* region = regionAt(line))
        setFolded(region->controlId, !isFolded(region->controlId));
}

void SourceView::setFolded(const std::string& controlId, bool folded) {
    if (folded) {
        folded_.insert(controlId);
    } else {
        folded_.erase(controlId);
    }
    fold();
}

std::optional<int> SourceView::chosenLine() const {
    if (!caretIsPlaced_) return std::nullopt;
    return textCursor().blockNumber() + 1;
}

void SourceView::goToLine(int line) {
    const QTextBlock block = document()->findBlockByNumber(std::max(0, line - 1));
    if (!block.isValid()) return;
    if (!block.isVisible()) toggleFoldAt(block.blockNumber());
    setTextCursor(QTextCursor(block));
    caretIsPlaced_ = true;
    centerCursor();
}

// ---- looks --------------------------------------------------------------------------------------

void SourceView::placeGutter() {
    const int width = gutter_->sizeHint().width();
    setViewportMargins(width, 0, 0, 0);
    const QRect inside = contentsRect();
    gutter_->setGeometry(inside.left(), inside.top(), width, inside.height());
}

// Undo and redo are the page's, not those of the text document, which has none.
bool SourceView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) return false;
    }
    return QPlainTextEdit::event(event);
}

void SourceView::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    if (gutter_) placeGutter();
}

// Adds up the heights of the visible lines: asking the document for the position of each line would
// visit all hidden lines every time.
void SourceView::forShownLines(
    const QRect& area, const std::function<void(const QTextBlock&, const QRectF&)>& visit) const {
    double top = contentOffset().y();
    QTextBlock block = firstVisibleBlock();
    while (block.isValid() && top <= area.bottom()) {
        if (block.isVisible()) {
            const QRectF place(0, top, viewport()->width(), blockBoundingRect(block).height());
            visit(block, place);
            top += place.height();
        } else if (const Region* region = regionAt(block.blockNumber())) {
            block = document()->findBlockByNumber(region->hiddenEnd);
            continue;
        }
        block = block.next();
    }
}

// Paints below the text: marks in the document would make every change of a long span slow.
void SourceView::tintSpans(const QRect& area) {
    QPainter painter(viewport());
    forShownLines(area, [&](const QTextBlock& block, const QRectF& place) {
        const int line = block.blockNumber();
        const bool tinted = std::any_of(regions_.begin(), regions_.end(), [&](const Region& span) {
            return line >= span.first && line <= span.last;
        });
        if (tinted) painter.fillRect(place, spanTint());
    });
}

// Paints over the end of a folded span's first line: whose span it is, and how many lines it has.
void SourceView::paintEvent(QPaintEvent* event) {
    tintSpans(event->rect());
    QPlainTextEdit::paintEvent(event);
    QPainter painter(viewport());
    painter.setFont(font());
    painter.setRenderHint(QPainter::Antialiasing);
    forShownLines(event->rect(), [&](const QTextBlock& block, const QRectF& place) {
        const Region* found = regionAt(block.blockNumber());
        if (!found || found->first != block.blockNumber() || !isFolded(found->controlId)) return;
        const Region& region = *found;
        const QString shown = block.text();
        const auto open = shown.lastIndexOf(QLatin1String(MarkupBegin), -1, Qt::CaseInsensitive);
        const QString before =
            open < 0 ? shown
                     : shown.left(open + static_cast<qsizetype>(qstrlen(MarkupBegin))) +
                           QLatin1Char(' ');
        const QString text = QStringLiteral(" %1, %2 ")
                                 .arg(QString::fromStdString(region.controlId),
                                      counted(region.hiddenEnd - region.first, "line", "lines"));
        const double left = contentOffset().x() + document()->documentMargin() +
                            fontMetrics().horizontalAdvance(before);
        const double textWidth = fontMetrics().horizontalAdvance(text);
        const double hidden = fontMetrics().horizontalAdvance(shown.mid(before.size()));
        painter.fillRect(QRectF(left, place.top(), std::max(textWidth, hidden), place.height()),
                         palette().color(QPalette::Base));
        painter.fillRect(QRectF(left, place.top(), std::max(textWidth, hidden), place.height()),
                         spanTint());
        const QRectF label(left, place.top() + 1, textWidth, place.height() - 2);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(label, 3, 3);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(label, Qt::AlignCenter, text);
    });
}

void SourceView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (!gutter_) return;  // still being made
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) placeGutter();
    if (event->type() == QEvent::PaletteChange) {
        highlighter_->usePalette(palette());
        if (lines_) markSpans();
    }
}

void SourceView::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu(event->pos()));
    if (const Region* region = regionAt(cursorForPosition(event->pos()).blockNumber())) {
        const std::string id = region->controlId;
        menu->addSeparator();
        menu->addAction(isFolded(id) ? tr("Unfold control") : tr("Fold control"), this,
                        [this, id] { setFolded(id, !isFolded(id)); });
    }
    menu->exec(event->globalPos());
}

}  // namespace headerdtc::qt
