#include "qt/editor/preview/preview_pane.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "qt/editor/source/asp_highlighter.h"
#include "qt/surface/text.h"

#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace headerdtc::qt {
PreviewPane::PreviewPane(QWidget* parent) : QWidget(parent) {
    summary_ = new QLabel;
    summary_->setObjectName(QStringLiteral("PreviewSummary"));
    const auto button = [](const char* icon, const QString& text) {
        auto* made = new QToolButton;
        made->setIcon(editorIcon(icon));
        made->setToolTip(text);
        made->setAccessibleName(text);
        made->setAutoRaise(true);
        return made;
    };
    previous_ = button("go-up", tr("Previous change"));
    next_ = button("go-down", tr("Next change"));
    connect(previous_, &QToolButton::clicked, this, &PreviewPane::goToPreviousChange);
    connect(next_, &QToolButton::clicked, this, &PreviewPane::goToNextChange);

    text_ = new QPlainTextEdit;
    text_->setObjectName(QStringLiteral("PreviewText"));
    text_->setAccessibleName(tr("Generated text"));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setUndoRedoEnabled(false);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setTabStopDistance(4 * text_->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    highlighter_ = new AspHighlighter(text_->document());

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(6, 2, 2, 2);
    bar->addWidget(summary_, 1);
    bar->addWidget(previous_);
    bar->addWidget(next_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(text_);
    showNothing(tr("No control is shown."));
}

void PreviewPane::append(QString& all, std::string_view line, Mark mark) {
    if (!marks_.empty()) all += QLatin1Char('\n');
    all += toQt(line);
    marks_.push_back(mark);
}

void PreviewPane::showPreview(const std::shared_ptr<const Preview>& preview) {
    if (!preview->problem.empty()) {
        showNothing(toQt(preview->problem));
        return;
    }
    // A page that cannot be generated keeps its text.
    const bool isKept = preview->expansion.failed();
    const auto savedLines = linesOf(preview->savedText, LineForm::Shown);
    const auto newLines =
        isKept ? savedLines : linesOf(preview->expansion.content.runtimeText, LineForm::Shown);
    marks_.clear();
    QString all;
    std::size_t added = 0;
    std::size_t removed = 0;
    const std::vector<DiffRun> whole{{true, 0, savedLines.size(), 0, newLines.size()}};
    for (const DiffRun& run : isKept ? whole : preview->changes) {
        if (!run.same) {
            for (std::size_t i = run.oldBegin; i < run.oldEnd; ++i)
                append(all, savedLines[i], Mark::Removed);
            removed += run.oldEnd - run.oldBegin;
            added += run.newEnd - run.newBegin;
        }
        for (std::size_t i = run.newBegin; i < run.newEnd; ++i)
            append(all, newLines[i], run.same ? Mark::None : Mark::Added);
    }

    const int scrolled = text_->verticalScrollBar()->value();
    if (text_->toPlainText() != all) text_->setPlainText(all);
    text_->verticalScrollBar()->setValue(scrolled);
    paintMarks();
    if (!showsChange()) goToNextChange();
    if (isKept) {
        summary_->setText(newLines.empty()
                              ? tr("This page cannot be generated.")
                              : tr("This page cannot be generated; it keeps this text."));
    } else if (added + removed == 0) {
        summary_->setText(newLines.empty() ? tr("Nothing would be generated.")
                                           : tr("The page already holds this text."));
    } else {
        summary_->setText(tr("Saving adds %1 and removes %2.")
                              .arg(counted(static_cast<int>(added), "line", "lines"),
                                   counted(static_cast<int>(removed), "line", "lines")));
    }
    const bool changes = added + removed > 0;
    previous_->setEnabled(changes);
    next_->setEnabled(changes);
}

void PreviewPane::showNothing(const QString& reason) {
    marks_.clear();
    text_->clear();
    text_->setExtraSelections({});
    summary_->setText(reason);
    previous_->setEnabled(false);
    next_->setEnabled(false);
}

void PreviewPane::paintMarks() {
    const bool dark = palette().color(QPalette::Base).lightnessF() < 0.5;
    const QColor addedColour = dark ? QColor(0x1f, 0x4a, 0x2c) : QColor(0xd8, 0xf3, 0xdc);
    const QColor removedColour = dark ? QColor(0x5a, 0x24, 0x24) : QColor(0xfb, 0xdd, 0xd9);
    QList<QTextEdit::ExtraSelection> selections;
    for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next()) {
        const auto line = static_cast<std::size_t>(block.blockNumber());
        if (line >= marks_.size() || marks_[line] == Mark::None) continue;
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(block);
        selection.format.setBackground(marks_[line] == Mark::Added ? addedColour : removedColour);
        selection.format.setProperty(QTextFormat::FullWidthSelection, true);
        selections.push_back(selection);
        if (marks_[line] == Mark::Removed) {
            selection.format = {};
            selection.format.setFontStrikeOut(true);
            selection.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            selections.push_back(selection);
        }
    }
    text_->setExtraSelections(selections);
}

// Whether a marked line is in view.
bool PreviewPane::showsChange() const {
    const int first = text_->cursorForPosition({0, 0}).blockNumber();
    const int last = text_->cursorForPosition({0, text_->viewport()->height()}).blockNumber();
    for (auto line = static_cast<std::size_t>(first);
         line <= static_cast<std::size_t>(last) && line < marks_.size(); ++line) {
        if (marks_[line] != Mark::None) return true;
    }
    return false;
}

void PreviewPane::goToNextChange() {
    goToChange(1);
}

void PreviewPane::goToPreviousChange() {
    goToChange(-1);
}

// The first line of the next run of marked lines, around the end if need be.
void PreviewPane::goToChange(int direction) {
    const auto count = static_cast<int>(marks_.size());
    const auto marked = [this](int line) {
        return marks_[static_cast<std::size_t>(line)] != Mark::None;
    };
    int line = text_->textCursor().blockNumber();
    for (int i = 0; i < count; ++i) {
        line = (line + direction + count) % count;
        if (!marked(line) || (line > 0 && marked(line - 1))) continue;
        text_->setTextCursor(QTextCursor(text_->document()->findBlockByNumber(line)));
        text_->centerCursor();
        return;
    }
}

void PreviewPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !highlighter_) return;
    highlighter_->usePalette(palette());
    paintMarks();
}

}  // namespace headerdtc::qt
