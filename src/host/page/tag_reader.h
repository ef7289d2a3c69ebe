#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace headerdtc {

bool isMarkupSpace(char c);

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
    bool sees(std::string_view word) const;
    bool atEnd() const { return at_ >= bytes_.size(); }
    // Passes over something that stands here; false when it does not.
    bool take(std::string_view word);
    // Passes over "<NAME" or "</NAME" with nothing more in the name.
    bool takeTag(std::string_view opening);
    void skipSpace();

  private:
    std::string_view takeName();
    std::optional<std::string_view> takeValue();

    std::string_view bytes_;
    std::size_t at_;
};

}  // namespace headerdtc
