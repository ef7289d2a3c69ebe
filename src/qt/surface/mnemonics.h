#pragma once

#include <QSet>
#include <QString>

namespace headerdtc::qt {

// Hands out the letters that are pressed with Alt, each one once. The captions of the models know
// no mnemonics; they are chosen for the controls that are on the screen together.
class Mnemonics {
  public:
    // Letters of `taken` belong to others.
    explicit Mnemonics(const QString& taken = {});

    // A letter of the text, the first ones of its words before others; a null character when all
    // of them are taken.
    QChar take(const QString& text);

  private:
    QSet<QChar> taken_;
};

// The text as Qt's widgets want it: "&" before the letter, where the text has it, and every "&" of
// the text itself doubled.
QString withMnemonic(const QString& text, QChar letter);

}  // namespace headerdtc::qt
