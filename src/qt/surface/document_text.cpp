#include "qt/surface/document_text.h"

#include "qt/surface/text.h"

#include <algorithm>

namespace headerdtc::qt {
namespace {

constexpr QChar Paragraph(QChar::ParagraphSeparator);
constexpr QChar Line(QChar::LineSeparator);

// How many characters of the model one UTF-16 unit of the document begins.
int charactersBegunBy(QChar unit) {
    return unit == Paragraph ? 2 : unit.isLowSurrogate() ? 0 : 1;
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

}  // namespace headerdtc::qt
