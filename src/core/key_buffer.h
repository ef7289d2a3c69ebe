#pragma once

#include <charconv>
#include <string>
#include <string_view>

namespace headerdtc {

// Forms the names of stored properties, one after another in the same storage: pages hold tens of
// thousands of them. A name stays valid until the next one is formed.
class KeyBuffer {
  public:
    // prefix + number
    std::string_view numbered(std::string_view prefix, int number) {
        text_.assign(prefix);
        append(number);
        return text_;
    }
    // prefix + row + "_" + column
    std::string_view cell(std::string_view prefix, int row, int column) {
        text_.assign(prefix);
        append(row);
        text_ += '_';
        append(column);
        return text_;
    }
    // A dictionary's key, then the suffix.
    std::string_view suffixed(std::string_view name, std::string_view suffix) {
        return text_.assign(name).append(suffix);
    }

  private:
    void append(int number) {
        char digits[12];
        const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
        text_.append(digits, end);
    }

    std::string text_;
};

}  // namespace headerdtc
