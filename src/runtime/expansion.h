#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A tag is a text that begins with '<', ends in '>' and has neither in between. So two tags never
// overlap in a text, and at any '<' at most one tag of a set can stand.

// The beginning of a tag, '<' included, that a text breaks off in; 0 when it breaks off in none.
using OpenTag = std::uint32_t;

// The result of reading a text against a set of tags.
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

// The placeholders of a sequence of replacement steps, each a tag, prepared for finding them; made
// once for any number of expansions. A placeholder may serve several steps.
class ExpansionSteps {
  public:
    explicit ExpansionSteps(std::span<const std::string_view> placeholders);

    std::size_t count() const { return tagOfStep_.size(); }
    // The tag that a step replaces, as the matcher numbers it.
    int tagOf(std::size_t step) const { return tagOfStep_[step]; }
    const TagMatcher& matcher() const { return matcher_; }

  private:
    std::vector<int> tagOfStep_;
    TagMatcher matcher_;
};

// A text in which placeholders are replaced step by step. Each step replaces all occurrences of
// its placeholder in the result of the step before, scanning from the first character and without
// regard to the case of ASCII letters; what it puts in is not looked at again in the same step.
// Later steps do act on placeholders that a value brought in, and on those that came about where
// a value met the text around it.
//
// No step goes over the text. The text is a chain of pieces, views of the template and of the
// values, in which every placeholder that a step still to come replaces is a piece of its own.
// Template and values are searched for placeholders once; after that only the joints at which
// pieces newly meet need a look, and of those only the ones where a piece breaks off inside a
// possible placeholder. The whole takes time in proportion to the text put in.
class Expansion {
  public:
    // The steps must outlive the expansion.
    Expansion(std::string text, const ExpansionSteps& steps);
    Expansion(const Expansion&) = delete;
    Expansion& operator=(const Expansion&) = delete;

    // Does the next step; there must be one left. Raises 14 (Out of string space) before the text
    // gets larger than any page could be: values that bring in each other's placeholders, as a
    // page can hold them, multiply.
    void replace(std::string value);
    // The text as the steps done so far left it.
    std::string text() const;

  private:
    using PieceIndex = std::uint32_t;

    struct Piece {
        static constexpr int Literal = TagReading::None;
        static constexpr int End = -2;

        std::string_view text;  // never empty, but for the end
        int tag = Literal;      // the placeholder that this piece is
        // The tag that the whole text up to the end of this piece breaks off in. Always 0 for a
        // placeholder: whatever follows it starts afresh.
        OpenTag open = 0;
        PieceIndex previous = 0;
        PieceIndex next = 0;
    };

    void checkRoom(std::size_t places, std::size_t lengthNow, std::size_t lengthThen) const;
    bool stillReplaced(int tag) const { return stepsLeft_[static_cast<std::size_t>(tag)] > 0; }
    void scan(std::string_view text);
    void addScanned(std::string_view text, int tag, OpenTag open);
    void putScanned(PieceIndex place);
    void unlink(PieceIndex piece);
    void followOn(PieceIndex from);
    void form(int tag, PieceIndex last, std::size_t bytesOfLast);
    OpenTag openAtEnd(PieceIndex piece) const;

    const ExpansionSteps& steps_;
    std::size_t step_ = 0;
    // The template and everything put in since; pieces are views of these.
    std::deque<std::string> sources_;
    // The chain is a ring closed by piece 0, its end.
    std::vector<Piece> pieces_;
    std::size_t size_ = 0;                              // bytes of the whole text
    std::vector<std::vector<PieceIndex>> occurrences_;  // by tag
    std::vector<int> stepsLeft_;                        // by tag
    std::vector<Piece> scanned_;                        // the pieces of the text scanned last
};

}  // namespace headerdtc
