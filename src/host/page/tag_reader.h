#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace headerdtc {

constexpr bool isMarkupSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Steps through the names and attributes inside one tag or comment: any white space, values in
// double quotes, single quotes or none, a '/' anywhere passed over. A '>' or '<' inside quotes is
// part of the value.
//
// A quote counts only where a value begins, so each byte of a page is looked at a limited number of
// times, whatever the page makes of its quotes.
class TagReader {
  public:
    TagReader(std::string_view bytes, std::size_t at) : bytes_(bytes), at_(at) {}

    struct Attribute {
        std::string_view name;
        std::string_view value;  // as it stands; empty where there is none
    };
    // The next one; nothing where there is no further one, or it is broken off.
    std::optional<Attribute> next();

    std::size_t at() const { return at_; }
    // Whether something stands here. Words compare without regard to case.
    bool sees(std::string_view word) const {
        // Mostly something else stands here, which the first character tells; the case of a letter
        // is one bit.
        constexpr int CaseBit = 'a' - 'A';
        return at_ < bytes_.size() && ((bytes_[at_] ^ word.front()) & ~CaseBit) == 0 &&
               seesMore(word);
    }
    bool atEnd() const { return at_ >= bytes_.size(); }
    // Passes over something that stands here; false when it does not.
    bool take(std::string_view word) {
        if (!sees(word)) return false;
        at_ += word.size();
        return true;
    }
    // Passes over "<NAME" or "</NAME" with nothing more in the name.
    bool takeTag(std::string_view opening);
    void skipSpace() {
        while (!atEnd() && isMarkupSpace(bytes_[at_]))
            ++at_;
    }

  private:
    bool seesMore(std::string_view word) const;
    bool seesCommentEnd() const {
        return bytes_[at_] == '-' && bytes_.substr(at_).starts_with("-->");
    }
    std::string_view takeName();
    std::optional<std::string_view> takeValue();

    std::string_view bytes_;
    std::size_t at_;
};

}  // namespace headerdtc
