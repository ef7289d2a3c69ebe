#pragma once

#include "qt/editor/base/page_content.h"

#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc::qt {

// A page's bytes as lines of text, and the way from a place in the text back to its byte.
//
// The text shown is the decoded page, character for character; line ends of any kind are one line
// feed, and the few characters that a text document takes for its own structure are shown as
// U+FFFD. So an edit, wherever it is, is an exchange of some bytes, and all others stay as they
// are, undecodable ones and odd line ends too. Positions count UTF-16 units, lines count from 0.
class SourceLines {
  public:
    explicit SourceLines(PageContentPtr page);

    const PageContent& page() const { return *page_; }
    int count() const { return static_cast<int>(lines_.size()); }
    // A line as it is shown, without its end.
    QString shown(int line) const;
    // Everything, lines joined by line feeds.
    const QString& text() const { return text_; }
    // The byte at which a position of text() begins. Nothing for a place inside a character.
    std::optional<std::size_t> byteAt(int position) const;
    int lineOfByte(std::size_t byte) const;
    // Where a line begins and its content ends, in bytes.
    ByteRange bytesOfLine(int line) const;

    // An exchange of bytes that makes another text of text().
    struct Edit {
        ByteRange range;
        std::string bytes;
    };
    // The edit of the page that replaces `removed` units at a position by a text. Nothing
    // when the text is the same after all, or when the change cannot be told from the bytes (it
    // begins inside a character).
    std::optional<Edit> editOf(int position, int removed, const QString& inserted) const;
    // Whether an edit changes a control's span, which only the control may.
    bool touchesControl(const ByteRange& range) const;

  private:
    struct Line {
        std::size_t begin, end, next;  // bytes: content, and where the next line begins
        int position;
    };

    int lineAt(int position) const;
    std::string lineEndAt(int line) const;
    std::string encode(const QString& text, int line) const;

    PageContentPtr page_;
    std::vector<Line> lines_;
    QString text_;
};

}  // namespace headerdtc::qt
