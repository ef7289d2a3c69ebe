#include "qt/surface/mnemonics.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace headerdtc::qt {
namespace {

bool beginsWord(const QString& text, qsizetype at) {
    return at == 0 || !text.at(at - 1).isLetterOrNumber();
}

// Capitals, the first letters of words before others.
QString lettersOf(const QString& text) {
    QString letters;
    for (const bool wordsOnly : {true, false}) {
        for (qsizetype at = 0; at < text.size(); ++at) {
            const QChar letter = text.at(at).toUpper();
            if (letter.isLetter() && beginsWord(text, at) == wordsOnly) letters += letter;
        }
    }
    return letters;
}

// Texts and letters as the two sides of a matching, which grows text by text: where no letter is
// free, a text that has one goes over to another.
class Matching {
  public:
    Matching(const QStringList& texts, const QString& taken) : letters_(texts.size(), QChar()) {
        for (const QString& text : texts)
            wanted_.append(lettersOf(text));
        std::vector<int> order(static_cast<std::size_t>(texts.size()));
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [this](int one, int other) {
            return wanted_.at(one).size() < wanted_.at(other).size();
        });
        for (const int text : order) {
            QString tried = taken.toUpper();
            give(text, tried);
        }
    }
    QString letters() const { return letters_; }

  private:
    bool give(int text, QString& tried) {
        for (const bool ofOthers : {false, true}) {
            for (const QChar letter : wanted_.at(text)) {
                const auto owner = static_cast<int>(letters_.indexOf(letter));
                if (tried.contains(letter) || (owner >= 0) != ofOthers) continue;
                tried += letter;
                if (ofOthers && !give(owner, tried)) continue;
                letters_[text] = letter;
                return true;
            }
        }
        return false;
    }

    QStringList wanted_;
    QString letters_;
};

}  // namespace

QString mnemonicsOf(const QStringList& texts, const QString& taken) {
    return Matching(texts, taken).letters();
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
