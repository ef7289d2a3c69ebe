#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace headerdtc {

// A code page of files: UTF-8, or a single-byte one whose lower half is ASCII. Inside the program
// text is UTF-8; here it is converted where a file is read or written.
//
// Every byte survives the round trip: a byte that the code page does not define, or that is no
// UTF-8, becomes a pair of noncharacters that stands for that byte alone and turns back into it.
class CodePage {
  public:
    // By the name that the C library knows it under, in any case ("windows-1252", "utf-8").
    // Throws std::invalid_argument, whose text says what is wrong, for an unknown one and for one
    // of more bytes a character.
    explicit CodePage(const std::string& name);
    static const CodePage& utf8();

    const std::string& name() const { return name_; }
    bool isUtf8() const { return table_ == nullptr; }

    std::string decode(std::string_view bytes) const;
    // Characters that the code page lacks: as '?' ...
    std::string encode(std::string_view text) const;
    // ... or as numeric character references, "&#8364;".
    std::string encodeWithReferences(std::string_view text) const;
    // The characters (code points) of a text that the code page lacks, each once.
    std::u32string lacking(std::string_view text) const;
    // The same in words, "Ω (U+03A9), α (U+03B1)"; empty where it lacks none.
    std::string lackingInWords(std::string_view text) const;

    // Whether these two characters of a decoded text stand for one such byte.
    static constexpr bool standsForByte(char32_t first, char32_t second) {
        return (first & ~7U) == 0xFDE0 && (second & ~15U) == 0xFDD0;
    }

    bool operator==(const CodePage& other) const { return name_ == other.name_; }

  private:
    struct Table;
    CodePage() = default;
    template <class Lacking>
    std::string encodeByTable(std::string_view text, Lacking lacking) const;

    std::string name_ = "utf-8";
    std::shared_ptr<const Table> table_;  // empty: UTF-8
};

}  // namespace headerdtc
