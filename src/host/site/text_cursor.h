#pragma once

#include "host/files/file_error.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace headerdtc {

// A place in a text that is being read, and errors that name it. Lines end in CR LF or LF.
class TextCursor {
  public:
    TextCursor(const std::string& file, std::string_view text) : file_(file), text_(text) {}

    bool atEnd() const { return at_ >= text_.size(); }
    bool atLineEnd() const { return atEnd() || peek() == '\r' || peek() == '\n'; }
    // The byte here, NUL at the end.
    char peek() const { return atEnd() ? '\0' : text_[at_]; }
    char next() { return text_[at_++]; }
    std::string_view rest() const { return text_.substr(at_); }
    // Passes over something that stands here; false when it does not.
    bool take(std::string_view word) {
        if (!rest().starts_with(word)) return false;
        at_ += word.size();
        return true;
    }
    void skipBlanks() {
        while (peek() == ' ' || peek() == '\t')
            ++at_;
    }
    // What is left of the line, its end passed over.
    std::string_view takeLine();

    // An error here, or at another place of the text.
    [[noreturn]] void fail(const std::string& problem) const { failAt(at_, problem); }
    [[noreturn]] void failAt(std::size_t place, const std::string& problem) const;
    std::size_t place() const { return at_; }

  private:
    const std::string& file_;
    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace headerdtc
