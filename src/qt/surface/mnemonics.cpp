#include "qt/surface/mnemonics.h"

namespace headerdtc::qt {
namespace {

bool beginsWord(const QString& text, qsizetype at) {
    return at == 0 || !text.at(at - 1).isLetterOrNumber();
}

}  // namespace

Mnemonics::Mnemonics(const QString& taken) {
    for (const QChar c : taken)
        taken_.insert(c.toUpper());
}

QChar Mnemonics::take(const QString& text) {
    for (const bool wordsOnly : {true, false}) {
        for (qsizetype at = 0; at < text.size(); ++at) {
            const QChar letter = text.at(at).toUpper();
            if (!letter.isLetter() || taken_.contains(letter)) continue;
            if (wordsOnly && !beginsWord(text, at)) continue;
            taken_.insert(letter);
            return letter;
        }
    }
    return {};
}

QString withMnemonic(const QString& text, QChar letter) {
    QString marked;
    bool open = !letter.isNull();
    // The letter was taken from a word's beginning when there was one.
    bool wordsOnly = false;
    for (qsizetype at = 0; at < text.size() && !wordsOnly; ++at)
        wordsOnly = beginsWord(text, at) && text.at(at).toUpper() == letter;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text.at(at);
        if (open && c.toUpper() == letter && (!wordsOnly || beginsWord(text, at))) {
            marked += '&';
            open = false;
        }
        if (c == '&') marked += '&';
        marked += c;
    }
    return marked;
}

}  // namespace headerdtc::qt
