#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A tag is a text that begins with '<', ends in '>' and has neither in between. So two tags never
// overlap in a text, and at any '<' at most one tag of a set can stand.
bool isTag(std::string_view text);

// The beginning of a tag, '<' included, that a text breaks off in; 0 when it breaks off in none.
using OpenTag = std::uint32_t;

// What came of reading a text against a set of tags.
struct TagReading {
    static constexpr int None = -1;

    std::size_t length = 0;  // bytes read
    int tag = None;          // the tag that the last of them completed
    OpenTag open = 0;        // the tag begun but cut short, by the end of the text or by a '<'
};

// Recognises a set of tags without regard to the case of ASCII letters.
class TagMatcher {
  public:
    // Every text must be a tag; they are numbered from 0 in the order given, and none is given
    // twice.
    explicit TagMatcher(std::vector<std::string> tags);

    int count() const { return static_cast<int>(tags_.size()); }
    std::size_t lengthOf(int tag) const { return tags_[static_cast<std::size_t>(tag)].text.size(); }
    std::size_t longest() const { return longest_; }

    // Reads a text that begins with '<'. The guess is a tag that is tried first, or None: whoever
    // meets the same tag line after line finds it at the price of one comparison.
    TagReading read(std::string_view text, int guess = TagReading::None) const;
    // Reads a text on from a tag begun before it.
    TagReading readOn(OpenTag open, std::string_view text) const;

  private:
    struct Tag {
        std::string text;        // letters in lower case
        std::string letterBits;  // 0x20 under every letter: the bit that its two cases differ in
    };

    // Compares eight bytes at a time; shorter tags are left to the tree.
    static bool quicklyBegins(std::string_view text, const Tag& tag);

    std::vector<Tag> tags_;
    std::size_t longest_ = 0;
    // The tags as a tree: row after row of `width_` entries, one for each kind of character.
    // An OpenTag is where a row starts; an entry is the row of the tag so continued, or 0. In the
    // column of '>' stands the number of the tag completed, counted from 1.
    std::vector<OpenTag> tree_;
    std::array<std::uint8_t, 256> column_{};
    std::size_t width_ = 1;
};

}  // namespace headerdtc
