#include "qt/surface/edited_text.h"

#include "qt/surface/text.h"

#include <QLineEdit>

namespace headerdtc::qt {
namespace {

constexpr QChar Paragraph(QChar::ParagraphSeparator);
constexpr QChar Line(QChar::LineSeparator);

// How many characters of the model one UTF-16 unit of the document begins.
int charactersBegunBy(QChar unit) {
    return unit == Paragraph ? 2 : unit.isLowSurrogate() ? 0 : 1;
}

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

QString toDocument(const std::string& text) {
    QString document = toQt(text);
    document.replace(QLatin1String("\r\n"), Paragraph);
    document.replace('\r', Paragraph);
    document.replace('\n', Line);
    return document;
}

std::string fromDocument(const QString& rawText) {
    QString text = rawText;
    text.replace(Line, '\n');
    text.replace(Paragraph, QLatin1String("\r\n"));
    return fromQt(text);
}

int characterPosition(const QString& rawText, int position) {
    int characters = 0;
    for (const QChar unit : QStringView(rawText).left(position))
        characters += charactersBegunBy(unit);
    return characters;
}

int documentPosition(const QString& rawText, int characters) {
    int position = 0;
    while (position < rawText.size() && characters > 0)
        characters -= charactersBegunBy(rawText.at(position++));
    // Not between the two units of one character.
    if (position < rawText.size() && rawText.at(position).isLowSurrogate()) ++position;
    return position;
}

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
