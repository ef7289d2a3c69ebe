#include "qt/surface/line_selection.h"

#include <QLineEdit>

namespace headerdtc::qt {
namespace {

int charactersIn(QStringView text) {
    int count = 0;
    for (const QChar c : text)
        count += c.isLowSurrogate() ? 0 : 1;
    return count;
}

int unitsOf(const QString& text, int start, int characters) {
    int units = 0;
    while (characters > 0 && start + units < text.size()) {
        const bool pair = text.at(start + units).isHighSurrogate();
        units += pair ? 2 : 1;
        --characters;
    }
    return units;
}

}  // namespace

LineSelection LineSelection::of(const QLineEdit& edit) {
    const QString text = edit.text();
    const int start = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
    return {charactersIn(QStringView(text).left(start)), charactersIn(edit.selectedText())};
}

void LineSelection::applyTo(QLineEdit& edit) const {
    if (of(edit) == *this) return;
    const QString text = edit.text();
    const int from = unitsOf(text, 0, start);
    if (length > 0) {
        edit.setSelection(from, unitsOf(text, from, length));
    } else {
        edit.deselect();
        edit.setCursorPosition(from);
    }
}

}  // namespace headerdtc::qt
