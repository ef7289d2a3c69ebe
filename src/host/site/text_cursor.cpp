#include "host/site/text_cursor.h"

#include <algorithm>

namespace headerdtc {

std::string_view TextCursor::takeLine() {
    auto line = rest().substr(0, rest().find('\n'));
    at_ = std::min(at_ + line.size() + 1, text_.size());
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

void TextCursor::failAt(std::size_t place, const std::string& problem) const {
    const auto before = text_.substr(0, place);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const auto lineEnd = before.rfind('\n');
    const auto column = lineEnd == std::string_view::npos ? place : place - lineEnd - 1;
    throw FileError(file_, static_cast<int>(line), static_cast<int>(column) + 1, problem);
}

}  // namespace headerdtc
