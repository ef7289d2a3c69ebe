#pragma once

#include "runtime/tag_matcher.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// The placeholders of a sequence of replacement steps, prepared for finding them; made once for
// any number of expansions. A placeholder may serve several steps.
class ExpansionSteps {
  public:
    explicit ExpansionSteps(std::span<const std::string_view> placeholders);

    std::size_t count() const { return placeholders_.size(); }
    const std::string& placeholder(std::size_t step) const { return placeholders_[step]; }
    // The tag that a step replaces, as the matcher numbers it.
    int tagOf(std::size_t step) const { return tagOfStep_[step]; }
    // Empty unless every placeholder is a tag.
    const std::optional<TagMatcher>& matcher() const { return matcher_; }

  private:
    std::vector<std::string> placeholders_;
    std::vector<int> tagOfStep_;
    std::optional<TagMatcher> matcher_;
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
//
// Where some placeholder is not a tag, occurrences could overlap; such steps are done one by one
// over the whole text.
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
    // The template and everything put in since; pieces are views of these. Where the placeholders
    // are no tags, only the first is used, and it is the text itself.
    std::deque<std::string> sources_;
    // The chain is a ring closed by piece 0, its end.
    std::vector<Piece> pieces_;
    std::size_t size_ = 0;                              // bytes of the whole text
    std::vector<std::vector<PieceIndex>> occurrences_;  // by tag
    std::vector<int> stepsLeft_;                        // by tag
    std::vector<Piece> scanned_;                        // the pieces of the text scanned last
};

// One replacement step.
struct ReplacementStep {
    std::string_view placeholder;
    std::string_view value;
};

// The template after all the steps.
std::string expandSteps(std::string_view text, std::span<const ReplacementStep> steps);

}  // namespace headerdtc
