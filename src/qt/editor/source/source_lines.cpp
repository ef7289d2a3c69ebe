#include "qt/editor/source/source_lines.h"

#include <algorithm>

namespace headerdtc::qt {
namespace {

constexpr std::string_view LineUtf8Mark = "\xEF\xBB\xBF";

// Characters that QTextDocument uses for ends of paragraphs, frames and embedded objects.
bool isStructure(QChar c) {
    switch (c.unicode()) {
        case 0x0000:
        case 0x2028:
        case 0x2029:
        case 0xFDD0:
        case 0xFDD1:
        case 0xFFFC:
            return true;
        default:
            return false;
    }
}

// One mark for each byte that is no character of the page, two of which stand for it in the text.
bool standsForByte(const QString& text, qsizetype at) {
    return at + 1 < text.size() &&
           CodePage::standsForByte(text[at].unicode(), text[at + 1].unicode());
}

bool splitsCharacter(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text[at].isLowSurrogate() &&
           text[at - 1].isHighSurrogate();
}

}  // namespace

SourceLines::SourceLines(PageContentPtr page) : page_(std::move(page)) {
    const std::string_view bytes = page_->bytes();
    // A byte-order mark says how the page is read; nobody writes before it.
    std::size_t begin =
        bytes.starts_with(LineUtf8Mark) && page_->codePage().isUtf8() ? LineUtf8Mark.size() : 0;
    for (;;) {
        const auto end = std::min(bytes.find_first_of("\r\n", begin), bytes.size());
        const std::size_t next =
            end == bytes.size() ? end : end + (bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        const bool isLast = next == end;
        if (!lines_.empty()) text_ += QLatin1Char('\n');
        lines_.push_back({begin, end, next, static_cast<int>(text_.size())});
        text_ += shown(count() - 1);
        if (isLast) return;
        begin = next;
    }
}

QString SourceLines::shown(int line) const {
    const ByteRange range = bytesOfLine(line);
    const std::string_view bytes =
        std::string_view(page_->bytes()).substr(range.begin, range.size());
    const QString decoded = QString::fromStdString(page_->codePage().decode(bytes));
    QString text;
    text.reserve(decoded.size());
    for (qsizetype i = 0; i < decoded.size(); ++i) {
        const bool isByte = standsForByte(decoded, i);
        const bool isMark = isByte || isStructure(decoded[i]);
        text += isMark ? QChar(QChar::ReplacementCharacter) : decoded[i];
        if (isByte) ++i;
    }
    return text;
}

ByteRange SourceLines::bytesOfLine(int line) const {
    const Line& found = lines_[static_cast<std::size_t>(line)];
    return {found.begin, found.end};
}

int SourceLines::lineAt(int position) const {
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), position,
                         [](int value, const Line& line) { return value < line.position; });
    return static_cast<int>(after - lines_.begin()) - 1;
}

int SourceLines::lineOfByte(std::size_t byte) const {
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), byte,
                         [](std::size_t value, const Line& line) { return value < line.begin; });
    return std::max(static_cast<int>(after - lines_.begin()) - 1, 0);
}

std::optional<std::size_t> SourceLines::byteAt(int position) const {
    if (splitsCharacter(text_, position)) return std::nullopt;
    const Line& line = lines_[static_cast<std::size_t>(lineAt(position))];
    const std::string_view bytes =
        std::string_view(page_->bytes()).substr(line.begin, line.end - line.begin);
    const auto units = position - line.position;
    if (!page_->codePage().isUtf8()) return line.begin + static_cast<std::size_t>(units);
    // Encoding gives back exactly what was decoded, so the text before a place has the length in
    // bytes that it came from. A run of bytes that is no UTF-8 may be cut anywhere.
    const QString decoded = QString::fromStdString(page_->codePage().decode(bytes));
    qsizetype end = 0;
    for (auto unit = 0; unit < units; ++unit)
        end += standsForByte(decoded, end) ? 2 : 1;
    const std::string before = page_->codePage().encode(decoded.left(end).toStdString());
    if (!bytes.starts_with(before)) return std::nullopt;
    return line.begin + before.size();
}

std::string SourceLines::lineEndAt(int line) const {
    // A last line has no end: it takes that of the line above.
    for (int i : {line, line - 1}) {
        if (i < 0) continue;
        const Line& found = lines_[static_cast<std::size_t>(i)];
        if (found.next > found.end) return page_->bytes().substr(found.end, found.next - found.end);
    }
    return page_->lineEnd();
}

std::string SourceLines::encode(const QString& text, int line) const {
    std::string bytes = page_->codePage().encodeWithReferences(text.toStdString());
    const std::string lineEnd = lineEndAt(line);
    if (lineEnd == "\n") return bytes;
    std::string result;
    for (const char c : bytes) {
        if (c == '\n') {
            result += lineEnd;
        } else {
            result += c;
        }
    }
    return result;
}

std::optional<SourceLines::Edit> SourceLines::editOf(int position, int removed,
                                                     const QString& inserted) const {
    const QStringView old = QStringView(text_).mid(position, removed);
    qsizetype same = 0;
    const qsizetype shorter = std::min(old.size(), inserted.size());
    while (same < shorter && old[same] == inserted[same])
        ++same;
    qsizetype sameAtEnd = 0;
    while (sameAtEnd < shorter - same &&
           old[old.size() - 1 - sameAtEnd] == inserted[inserted.size() - 1 - sameAtEnd])
        ++sameAtEnd;
    // Two characters may share one half of a surrogate pair and still differ.
    if (splitsCharacter(inserted, same) || splitsCharacter(text_, position + same)) --same;
    if (splitsCharacter(inserted, inserted.size() - sameAtEnd) ||
        splitsCharacter(text_, position + old.size() - sameAtEnd))
        --sameAtEnd;
    if (same + sameAtEnd == old.size() && old.size() == inserted.size()) return std::nullopt;

    const int begin = position + static_cast<int>(same);
    const auto firstByte = byteAt(begin);
    const auto lastByte = byteAt(position + static_cast<int>(old.size() - sameAtEnd));
    if (!firstByte || !lastByte || *lastByte < *firstByte) return std::nullopt;
    return Edit{{*firstByte, *lastByte},
                encode(inserted.mid(same, inserted.size() - same - sameAtEnd), lineAt(begin))};
}

bool SourceLines::touchesControl(const ByteRange& range) const {
    for (const ControlSpan& span : page_->controls()) {
        const ByteRange& whole = span.whole;
        const bool inside = range.begin > whole.begin && range.begin < whole.end;
        const bool covers = range.begin <= whole.begin && range.end > whole.begin;
        if (inside || covers) return true;
    }
    return false;
}

}  // namespace headerdtc::qt
