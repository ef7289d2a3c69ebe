#include "qt/editor/source/asp_highlighter.h"

#include <QSet>
#include <algorithm>

namespace headerdtc::qt {
namespace {

struct TokenLook {
    const char* onLight;
    const char* onDark;
    bool bold;
    bool italic;
};

// In the order of AspHighlighter::Colour.
constexpr TokenLook TokenLooks[] = {
    {"#7a1f6b", "#e3a1d6", false, false},  // Tag
    {"#1f5fa8", "#8fc1f7", false, false},  // Value
    {"#5c6f5c", "#93ac93", false, true},   // Comment
    {"#a15400", "#f2b36b", true, false},   // Delimiter
    {"#0b4f9e", "#86b8ff", true, false},   // Keyword
    {"#9c2b1b", "#f29b8b", false, false},  // String
    {"#00695c", "#74d0c2", false, false},  // Number
};

const QSet<QString>& keywords() {
    static const QSet<QString> words = [] {
        QSet<QString> set;
        const QString all = QStringLiteral(
            "and as byref byval call case class const default dim do each else elseif empty end "
            "erase error eqv execute executeglobal exit explicit false for function get if imp in "
            "is let loop me mod new next not nothing null on option or preserve private property "
            "public randomize redim rem resume select set step stop sub then to true until wend "
            "while with xor");
        for (const QString& word : all.split(QLatin1Char(' ')))
            set.insert(word);
        return set;
    }();
    return words;
}

bool isWordPart(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

int endOr(qsizetype found, const QString& text) {
    return static_cast<int>(found < 0 ? text.size() : found);
}

}  // namespace

AspHighlighter::AspHighlighter(QTextDocument* document) : QSyntaxHighlighter(document) {
    usePalette(QPalette());
}

void AspHighlighter::usePalette(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Base).lightnessF() < 0.5;
    bool changed = false;
    for (std::size_t i = 0; i < formats_.size(); ++i) {
        QTextCharFormat format;
        format.setForeground(
            QColor(QLatin1String(dark ? TokenLooks[i].onDark : TokenLooks[i].onLight)));
        if (TokenLooks[i].bold) format.setFontWeight(QFont::DemiBold);
        format.setFontItalic(TokenLooks[i].italic);
        changed = changed || formats_[i] != format;
        formats_[i] = format;
    }
    if (changed) rehighlight();
}

void AspHighlighter::paint(int begin, int end, Colour colour) {
    setFormat(begin, end - begin, formats_[colour]);
}

void AspHighlighter::highlightBlock(const QString& text) {
    int state = std::max(previousBlockState(), 0);
    int at = 0;
    const auto length = static_cast<int>(text.size());
    // A script block may stand anywhere, inside an attribute's value too.
    while (at < length) {
        switch (state % Outer) {
            case InTag:
                at = tag(text, at, state);
                break;
            case InValue:
            case InSingleQuotedValue:
                at = value(text, at, state);
                break;
            case InComment:
                at = comment(text, at, state);
                break;
            case InScript:
            case InScriptElement:
                at = script(text, at, state);
                break;
            default:
                at = html(text, at, state);
        }
    }
    setCurrentBlockState(state);
}

int AspHighlighter::html(const QString& text, int at, int& state) {
    at = endOr(text.indexOf(QLatin1Char('<'), at), text);
    const auto rest = QStringView(text).mid(at);
    if (rest.startsWith(QLatin1String("<%"))) {
        paint(at, at + 2, Delimiter);
        state = InScript + Outer * state;
        return at + 2;
    }
    if (rest.startsWith(QLatin1String("<!--"))) {
        state = InComment;
        return at;
    }
    if (!rest.isEmpty()) state = InTag;
    return at;
}

int AspHighlighter::tag(const QString& text, int at, int& state) {
    const int begin = at;
    const auto length = static_cast<int>(text.size());
    while (at < length) {
        const QChar c = text[at];
        if (QStringView(text).mid(at).startsWith(QLatin1String("<%"))) {
            paint(begin, at, Tag);
            paint(at, at + 2, Delimiter);
            state = InScript + Outer * state;
            return at + 2;
        }
        ++at;
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            paint(begin, at - 1, Tag);
            paint(at - 1, at, Value);
            state = c == QLatin1Char('"') ? InValue : InSingleQuotedValue;
            return at;
        }
        if (c == QLatin1Char('>')) {
            paint(begin, at, Tag);
            const QString element = text.left(at).mid(text.left(at).lastIndexOf(QLatin1Char('<')));
            const bool isServerScript =
                element.startsWith(QLatin1String("<script"), Qt::CaseInsensitive) &&
                element.contains(QLatin1String("server"), Qt::CaseInsensitive);
            state = isServerScript ? InScriptElement : Html;
            return at;
        }
    }
    paint(begin, at, Tag);
    return at;
}

int AspHighlighter::value(const QString& text, int at, int& state) {
    const QChar quote = QLatin1Char(state % Outer == InValue ? '"' : '\'');
    const int end = endOr(text.indexOf(quote, at), text);
    const int scriptBegin = endOr(text.indexOf(QLatin1String("<%"), at), text);
    if (scriptBegin < end) {
        paint(at, scriptBegin, Value);
        paint(scriptBegin, scriptBegin + 2, Delimiter);
        state = InScript + Outer * state;
        return scriptBegin + 2;
    }
    if (end == text.size()) {
        paint(at, end, Value);
        return end;
    }
    paint(at, end + 1, Value);
    state = InTag;
    return end + 1;
}

int AspHighlighter::comment(const QString& text, int at, int& state) {
    const auto end = text.indexOf(QLatin1String("-->"), at);
    if (end < 0) {
        paint(at, static_cast<int>(text.size()), Comment);
        return static_cast<int>(text.size());
    }
    paint(at, static_cast<int>(end) + 3, Comment);
    state = Html;
    return static_cast<int>(end) + 3;
}

int AspHighlighter::script(const QString& text, int at, int& state) {
    const bool inElement = state % Outer == InScriptElement;
    const QLatin1String closing(inElement ? "</script" : "%>");
    // What closes the block does so inside a comment and a string too.
    const int end = endOr(text.indexOf(closing, at, Qt::CaseInsensitive), text);
    while (at < end) {
        const QChar c = text[at];
        const int begin = at;
        if (c == QLatin1Char('\'')) {
            paint(at, end, Comment);
            at = end;
        } else if (c == QLatin1Char('"')) {
            const auto close = text.indexOf(QLatin1Char('"'), at + 1);
            at = close < 0 || close >= end ? end : static_cast<int>(close) + 1;
            paint(begin, at, String);
        } else if (c.isDigit()) {
            while (at < end && (text[at].isLetterOrNumber() || text[at] == QLatin1Char('.')))
                ++at;
            paint(begin, at, Number);
        } else if (isWordPart(c)) {
            while (at < end && isWordPart(text[at]))
                ++at;
            const QString word = text.mid(begin, at - begin).toLower();
            if (word == QLatin1String("rem")) {
                paint(begin, end, Comment);
                at = end;
            } else if (keywords().contains(word)) {
                paint(begin, at, Keyword);
            }
        } else {
            ++at;
        }
    }
    if (end == text.size()) return end;
    if (inElement) {
        state = Html;
        return end;
    }
    paint(end, end + 2, Delimiter);
    state /= Outer;
    return end + 2;
}

}  // namespace headerdtc::qt
