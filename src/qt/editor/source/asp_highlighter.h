#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>
#include <array>

namespace headerdtc::qt {

// Colours an ASP page: HTML with its tags, attribute values and comments, and VBScript between
// "<%" and "%>" and in server-side script elements.
class AspHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    enum Colour { Tag, Value, Comment, Delimiter, Keyword, String, Number, ColourCount };

    explicit AspHighlighter(QTextDocument* document);
    // Colours that can be read on the palette's background.
    void usePalette(const QPalette& palette);

  protected:
    void highlightBlock(const QString& text) override;

  private:
    // The state in which a line begins; stored as the state of the block before.
    enum State : int {
        Html,
        InTag,
        InValue,
        InSingleQuotedValue,
        InComment,
        InScript,
        InScriptElement
    };

    int html(const QString& text, int at, int& state);
    int tag(const QString& text, int at, int& state);
    int value(const QString& text, int at, int& state);
    int comment(const QString& text, int at, int& state);
    int script(const QString& text, int at, int& state);
    void paint(int begin, int end, Colour colour);

    std::array<QTextCharFormat, ColourCount> formats_;
    // The state to return to after a script block, stored in the bits above the script's own state.
    static constexpr int Outer = 16;
};

}  // namespace headerdtc::qt
