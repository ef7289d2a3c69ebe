#include "qt/surface/text_box_view.h"

#include "qt/surface/edited_text.h"
#include "qt/surface/text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <limits>

namespace headerdtc::qt {

TextBoxView::TextBoxView(TextBox& model, QWidget& widget, FormFace face)
    : ControlView(model, widget, face), model_(model) {
    subscriptions_ += model_.contentChanged.subscribe([this] { show(); });
    subscriptions_ += model_.appearanceChanged.subscribe([this] { show(); });
}

bool TextBoxView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || key->kind == Key::Kind::Tab) return false;
    if (isModelKey(*key)) {
        act([&] { model_.press(*key); });
        return true;
    }
    bool goesOn = false;
    act([&] { goesOn = model_.keyDown(*key) && model_.keyPress(*key); });
    return !goesOn || applyKey(*key);
}

void TextBoxView::edited(const std::optional<std::string>& text, int selStart, int selLength) {
    // Leaving the box takes the selection away in Qt; the model keeps it. A dialog that opens marks
    // the text of its first box before it has the keys.
    if (!text && widget().window()->focusWidget() != &widget()) return;
    act([&] {
        // A text can be dropped into a box that does not have the focus.
        if (!model_.hasFocus()) model_.focus();
        model_.edited(text.value_or(model_.Text()), selStart, selLength);
    });
}

void TextBoxView::showGround() {
    const QScopedValueRollback colouring(colouring_, true);
    QPalette palette;
    if (!isEditable()) {
        const QPalette& around = widget().parentWidget()->palette();
        palette.setBrush(QPalette::Base, around.brush(QPalette::Window));
        // Text that cannot be changed still has to be readable.
        palette.setBrush(QPalette::Disabled, QPalette::Text,
                         around.brush(QPalette::Active, QPalette::WindowText));
    }
    widget().setPalette(palette);
}

// Light and dark themes may change at any time.
bool TextBoxView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &widget() && event->type() == QEvent::PaletteChange && !colouring_) showGround();
    return ControlView::eventFilter(watched, event);
}

LineView::LineView(TextBox& model, QLineEdit& widget, FormFace face)
    : TextBoxView(model, widget, face), edit_(widget) {
    edit_.setMaxLength(std::numeric_limits<int>::max());
    connect(&edit_, &QLineEdit::textChanged, this, [this] { report(); });
    connect(&edit_, &QLineEdit::cursorPositionChanged, this, [this] { report(); });
    connect(&edit_, &QLineEdit::selectionChanged, this, [this] { report(); });
}

void LineView::show() {
    const QScopedValueRollback showing(showing_, true);
    edit_.setReadOnly(!isEditable());
    showGround();
    if (const QString text = toQt(model_.Text()); edit_.text() != text) edit_.setText(text);
    LineSelection{model_.SelStart(), model_.SelLength()}.applyTo(edit_);
}

bool LineView::isModelKey(const Key& key) const {
    return isDialogKey(key) || key.kind == Key::Kind::Up || key.kind == Key::Kind::Down;
}

void LineView::report() {
    if (showing_) return;
    const LineSelection selection = LineSelection::of(edit_);
    std::optional<std::string> text;
    if (edit_.text() != toQt(model_.Text())) text = fromQt(edit_.text());
    edited(text, selection.start, selection.length);
}

LinesView::LinesView(TextBox& model, QPlainTextEdit& widget, FormFace face)
    : TextBoxView(model, widget, face), edit_(widget) {
    // A box that Tab could not leave would be a trap.
    edit_.setTabChangesFocus(true);
    // Scripts are indented with tabs, as the source beside them shows.
    edit_.setTabStopDistance(4 * edit_.fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    connect(&edit_, &QPlainTextEdit::textChanged, this, [this] { report(); });
    connect(&edit_, &QPlainTextEdit::cursorPositionChanged, this, [this] { report(); });
    connect(&edit_, &QPlainTextEdit::selectionChanged, this, [this] { report(); });
}

void LinesView::show() {
    const QScopedValueRollback showing(showing_, true);
    edit_.setReadOnly(!isEditable());
    showGround();
    const QString text = toDocument(model_.Text());
    if (edit_.document()->toRawText() != text) edit_.setPlainText(text);
    const int start = documentPosition(text, model_.SelStart());
    const int end = documentPosition(text, model_.SelStart() + model_.SelLength());
    QTextCursor cursor = edit_.textCursor();
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    edit_.setTextCursor(cursor);
}

void LinesView::showEnabled(bool enabled) {
    edit_.setFocusPolicy(enabled ? Qt::StrongFocus : Qt::NoFocus);
}

bool LinesView::isModelKey(const Key& key) const {
    return key.kind == Key::Kind::Escape;
}

// Qt would make another kind of line end of Shift and Enter.
bool LinesView::applyKey(const Key& key) {
    if (key.kind != Key::Kind::Enter) return false;
    if (!model_.Locked()) {
        QTextCursor cursor = edit_.textCursor();
        cursor.insertBlock();
        edit_.setTextCursor(cursor);
    }
    return true;
}

void LinesView::report() {
    if (showing_) return;
    const QTextCursor cursor = edit_.textCursor();
    const QString raw = edit_.document()->toRawText();
    std::optional<std::string> text;
    if (raw != toDocument(model_.Text())) text = fromDocument(raw);
    const int start = characterPosition(raw, cursor.selectionStart());
    edited(text, start, characterPosition(raw, cursor.selectionEnd()) - start);
}

}  // namespace headerdtc::qt
