#include "runtime/tag_matcher.h"

#include "platform/ascii.h"

#include <algorithm>
#include <cstring>

namespace headerdtc {
namespace {

constexpr std::uint8_t LetterBit = 0x20;

std::uint64_t eightBytes(const char* at) {
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

}  // namespace

bool isTag(std::string_view text) {
    return text.size() >= 2 && text.front() == '<' && text.back() == '>' &&
           text.substr(1, text.size() - 2).find_first_of("<>") == std::string_view::npos;
}

TagMatcher::TagMatcher(std::vector<std::string> tags) {
    for (std::string& text : tags) {
        Tag tag;
        for (char& c : text) {
            tag.letterBits += ascii::isLetter(c) ? static_cast<char>(LetterBit) : '\0';
            c = ascii::lower(c);
            auto& column = column_[static_cast<std::uint8_t>(c)];
            if (column == 0) column = static_cast<std::uint8_t>(width_++);
        }
        longest_ = std::max(longest_, text.size());
        tag.text = std::move(text);
        tags_.push_back(std::move(tag));
    }
    for (int c = 'A'; c <= 'Z'; ++c)
        column_[static_cast<std::size_t>(c)] = column_[static_cast<std::size_t>(c | LetterBit)];

    tree_.resize(2 * width_);  // row 0 is "no tag", row 1 the lone '<'
    for (std::size_t number = 0; number < tags_.size(); ++number) {
        std::size_t row = width_;
        for (const char c : std::string_view(tags_[number].text).substr(1)) {
            const std::size_t entry = row + column_[static_cast<std::uint8_t>(c)];
            if (c == '>') {
                tree_[entry] = static_cast<OpenTag>(number + 1);
            } else if (tree_[entry] == 0) {
                tree_[entry] = static_cast<OpenTag>(tree_.size());
                tree_.resize(tree_.size() + width_);
            }
            row = tree_[entry];
        }
    }
}

TagReading TagMatcher::read(std::string_view text, int guess) const {
    if (guess != TagReading::None) {
        const Tag& tag = tags_[static_cast<std::size_t>(guess)];
        if (quicklyBegins(text, tag)) return {tag.text.size(), guess, 0};
    }
    TagReading reading = readOn(static_cast<OpenTag>(width_), text.substr(1));
    ++reading.length;
    return reading;
}

TagReading TagMatcher::readOn(OpenTag open, std::string_view text) const {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const OpenTag next = tree_[open + column_[static_cast<std::uint8_t>(text[i])]];
        if (next == 0) return {i, TagReading::None, text[i] == '<' ? open : 0};
        if (text[i] == '>') return {i + 1, static_cast<int>(next) - 1, 0};
        open = next;
    }
    return {text.size(), TagReading::None, open};
}

bool TagMatcher::quicklyBegins(std::string_view text, const Tag& tag) {
    constexpr std::size_t Step = sizeof(std::uint64_t);
    const std::size_t length = tag.text.size();
    if (length < Step || text.size() < length) return false;
    const auto differs = [&](std::size_t at) {
        return (eightBytes(text.data() + at) | eightBytes(tag.letterBits.data() + at)) !=
               eightBytes(tag.text.data() + at);
    };
    for (std::size_t at = 0; at + Step <= length; at += Step) {
        if (differs(at)) return false;
    }
    return !differs(length - Step);
}

}  // namespace headerdtc
