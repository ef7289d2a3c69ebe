#include "qt/editor/source/find_bar.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/source/source_view.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTextBlock>
#include <QToolButton>

namespace headerdtc::qt {

FindBar::FindBar(SourceView& view, QWidget* parent) : QWidget(parent), view_(view) {
    text_ = new QLineEdit;
    text_->setObjectName(QStringLiteral("FindText"));
    text_->setPlaceholderText(tr("Find in the source"));
    text_->setAccessibleName(tr("Text to find"));
    text_->setClearButtonEnabled(true);
    matchCase_ = new QCheckBox(tr("&Match case"));
    result_ = new QLabel;
    const auto button = [this](const char* icon, const QString& text, bool backwards) {
        auto* made = new QToolButton;
        made->setIcon(editorIcon(icon));
        made->setToolTip(text);
        made->setAccessibleName(text);
        made->setAutoRaise(true);
        connect(made, &QToolButton::clicked, this, [this, backwards] { find(backwards, false); });
        return made;
    };
    auto* close = new QToolButton;
    close->setIcon(editorIcon("window-close"));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close"));
    close->setAccessibleName(tr("Close the find bar"));
    connect(close, &QToolButton::clicked, this, &FindBar::close);
    connect(text_, &QLineEdit::textEdited, this, [this] { find(false, true); });

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 2, 2);
    layout->addWidget(text_, 1);
    layout->addWidget(button("go-up", tr("Previous (Shift+Enter)"), true));
    layout->addWidget(button("go-down", tr("Next (Enter)"), false));
    layout->addWidget(matchCase_);
    layout->addWidget(result_);
    layout->addWidget(close);
    setVisible(false);
}

void FindBar::open() {
    const QString selected = view_.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        text_->setText(selected);
    show();
    text_->setFocus();
    text_->selectAll();
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
    result_->clear();
    if (text_->text().isEmpty()) return;
    QTextDocument::FindFlags flags;
    if (backwards) flags |= QTextDocument::FindBackward;
    if (matchCase_->isChecked()) flags |= QTextDocument::FindCaseSensitively;
    QTextCursor from = view_.textCursor();
    if (fromSelectionStart) from.setPosition(from.selectionStart());
    QTextDocument* document = view_.document();
    QTextCursor found = document->find(text_->text(), from, flags);
    if (found.isNull()) {
        // Around the end, or the start.
        QTextCursor edge(document);
        if (backwards) edge.movePosition(QTextCursor::End);
        found = document->find(text_->text(), edge, flags);
    }
    if (found.isNull()) {
        result_->setText(tr("Not found"));
        return;
    }
    if (!found.block().isVisible()) view_.goToLine(found.blockNumber() + 1);
    view_.setTextCursor(found);
    view_.centerCursor();
}

}  // namespace headerdtc::qt
