#pragma once

#include <QString>
#include <string>

class QLineEdit;

namespace headerdtc::qt {

// A text of several lines on its way between a model and a Qt text document. In a model a line
// ends with CR LF; a lone LF, which stored scripts may hold, is kept apart from it. In a document
// (QTextDocument::toRawText) the one is a paragraph separator, the other a line separator.
QString toDocument(const std::string& text);
std::string fromDocument(const QString& rawText);

// A position in the text of a document, which counts UTF-16 units, as one in the model's text,
// which counts characters, CR and LF one by one; and back.
int characterPosition(const QString& rawText, int documentPosition);
int documentPosition(const QString& rawText, int characterPosition);

// The selection of a line edit in characters, as the models count: Qt counts UTF-16 units. With
// nothing selected the start is where the cursor stands.
struct LineSelection {
    int start = 0;
    int length = 0;

    static LineSelection of(const QLineEdit& edit);
    void applyTo(QLineEdit& edit) const;
    bool operator==(const LineSelection&) const = default;
};

}  // namespace headerdtc::qt
