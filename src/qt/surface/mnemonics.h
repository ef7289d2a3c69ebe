#pragma once

#include <QString>
#include <QStringList>

namespace headerdtc::qt {

// A letter of each text to press with Alt, each one once; a null character for a text that goes
// without, because all its letters belong to others. The captions of the models know no mnemonics;
// these are found for what is on the screen together. Letters of `taken` belong to others already.
//
// As many texts as can be get one. Those with the fewest letters choose first, and beginnings of
// words before other letters.
QString mnemonicsOf(const QStringList& texts, const QString& taken);

// The text as Qt's widgets want it: "&" before the letter, where the text has it, and every "&" of
// the text itself doubled.
QString withMnemonic(const QString& text, QChar letter);

}  // namespace headerdtc::qt
