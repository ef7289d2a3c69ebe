#include "qt/editor/source/find_bar.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/source/source_view.h"
#include "ui_find_bar.h"

#include <QKeyEvent>
#include <QTextBlock>

namespace headerdtc::qt {

FindBar::FindBar(SourceView& view, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::FindBar>()), view_(view) {
    ui_->setupUi(this);
    setIcons(*this);
    connect(ui_->FindText, &QLineEdit::textEdited, this, [this] { find(false, true); });
    connect(ui_->FindPrevious, &QToolButton::clicked, this, [this] { find(true, false); });
    connect(ui_->FindNext, &QToolButton::clicked, this, [this] { find(false, false); });
    connect(ui_->CloseFindBar, &QToolButton::clicked, this, &FindBar::close);
    setVisible(false);
}

FindBar::~FindBar() = default;

void FindBar::open() {
    const QString selected = view_.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        ui_->FindText->setText(selected);
    show();
    ui_->FindText->setFocus();
    ui_->FindText->selectAll();
}

void FindBar::close() {
    hide();
    view_.setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            close();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            find(event->modifiers().testFlag(Qt::ShiftModifier), false);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void FindBar::find(bool backwards, bool fromSelectionStart) {
    ui_->FindResult->clear();
    if (ui_->FindText->text().isEmpty()) return;
    QTextDocument::FindFlags flags;
    if (backwards) flags |= QTextDocument::FindBackward;
    if (ui_->MatchCase->isChecked()) flags |= QTextDocument::FindCaseSensitively;
    QTextCursor from = view_.textCursor();
    if (fromSelectionStart) from.setPosition(from.selectionStart());
    QTextDocument* document = view_.document();
    QTextCursor found = document->find(ui_->FindText->text(), from, flags);
    if (found.isNull()) {
        // Around the end, or the start.
        QTextCursor edge(document);
        if (backwards) edge.movePosition(QTextCursor::End);
        found = document->find(ui_->FindText->text(), edge, flags);
    }
    if (found.isNull()) {
        ui_->FindResult->setText(tr("Not found"));
        return;
    }
    if (!found.block().isVisible()) view_.goToLine(found.blockNumber() + 1);
    view_.setTextCursor(found);
    view_.centerCursor();
}

}  // namespace headerdtc::qt
