#include "host/page/tag_reader.h"

#include "platform/text.h"

#include <array>

namespace headerdtc {
namespace {

// Every byte of a page's tags is asked about.
constexpr auto NameCharacters = [] {
    std::array<bool, 256> table{};
    table.fill(true);
    for (const unsigned char c : std::string_view(" \t\n\v\f\r<>=\"'/"))
        table[c] = false;
    return table;
}();

bool isNameCharacter(char c) {
    return NameCharacters[static_cast<unsigned char>(c)];
}

}  // namespace

bool TagReader::seesMore(std::string_view word) const {
    return equalIgnoringCase(bytes_.substr(at_, word.size()), word);
}

bool TagReader::takeTag(std::string_view opening) {
    if (!sees(opening)) return false;
    const auto behind = at_ + opening.size();
    if (behind < bytes_.size() && isNameCharacter(bytes_[behind])) return false;
    at_ = behind;
    return true;
}

std::string_view TagReader::takeName() {
    const auto begin = at_;
    while (!atEnd() && isNameCharacter(bytes_[at_]) && !seesCommentEnd())
        ++at_;
    return bytes_.substr(begin, at_ - begin);
}

std::optional<std::string_view> TagReader::takeValue() {
    if (atEnd()) return std::nullopt;
    if (const char quote = bytes_[at_]; quote == '"' || quote == '\'') {
        const auto closing = bytes_.find(quote, at_ + 1);
        if (closing == std::string_view::npos) return std::nullopt;
        const auto value = bytes_.substr(at_ + 1, closing - at_ - 1);
        at_ = closing + 1;
        return value;
    }
    const auto begin = at_;
    while (!atEnd() && (isNameCharacter(bytes_[at_]) || bytes_[at_] == '/' || bytes_[at_] == '=') &&
           !seesCommentEnd())
        ++at_;
    return bytes_.substr(begin, at_ - begin);
}

std::optional<TagReader::Attribute> TagReader::next() {
    skipSpace();
    while (take("/"))
        skipSpace();
    const auto name = takeName();
    if (name.empty()) return std::nullopt;
    const auto behindName = at_;
    skipSpace();
    if (!take("=")) {
        at_ = behindName;
        return Attribute{name, {}};
    }
    skipSpace();
    const auto value = takeValue();
    if (!value) return std::nullopt;
    return Attribute{name, *value};
}

}  // namespace headerdtc
