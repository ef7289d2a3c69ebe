#include "runtime/expansion.h"

#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <utility>

namespace headerdtc {
namespace {

constexpr std::uint8_t LetterBit = 0x20;

std::uint64_t eightBytes(const char* at) {
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

// The placeholders each once, and for every one of them the number of its tag.
std::vector<std::string> numbered(std::span<const std::string_view> placeholders,
                                  std::vector<int>& tagOfStep) {
    std::vector<std::string> tags;
    for (const std::string_view placeholder : placeholders) {
        const auto same = std::ranges::find_if(
            tags, [&](const std::string& tag) { return equalIgnoringCase(tag, placeholder); });
        tagOfStep.push_back(static_cast<int>(same - tags.begin()));
        if (same == tags.end()) tags.emplace_back(placeholder);
    }
    return tags;
}

}  // namespace

TagMatcher::TagMatcher(std::vector<std::string> tags) {
    for (std::string& text : tags) {
        assert(text.size() >= 2 && text.front() == '<' &&
               text.find_first_of("<>", 1) == text.size() - 1 && text.back() == '>');
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

// ---- expansion ---------------------------------------------------------------------------------

ExpansionSteps::ExpansionSteps(std::span<const std::string_view> placeholders)
    : matcher_(numbered(placeholders, tagOfStep_)) {}

Expansion::Expansion(std::string text, const ExpansionSteps& steps) : steps_(steps) {
    sources_.push_back(std::move(text));
    const auto tags = static_cast<std::size_t>(steps_.matcher().count());
    occurrences_.resize(tags);
    stepsLeft_.resize(tags);
    for (std::size_t step = 0; step < steps_.count(); ++step)
        ++stepsLeft_[static_cast<std::size_t>(steps_.tagOf(step))];

    pieces_.push_back({.text = {}, .tag = Piece::End, .previous = 1, .next = 1});
    pieces_.push_back({});
    size_ = sources_.front().size();
    scan(sources_.front());
    putScanned(1);
}

void Expansion::replace(std::string value) {
    const auto tag = static_cast<std::size_t>(steps_.tagOf(step_++));
    --stepsLeft_[tag];
    // Taken out first: an occurrence that the values bring in belongs to a later step.
    const std::vector<PieceIndex> places = std::exchange(occurrences_[tag], {});
    if (places.empty()) return;

    const std::string& kept = sources_.emplace_back(std::move(value));
    scan(kept);
    checkRoom(places.size(), pieces_[places.front()].text.size(), kept.size());
    for (const PieceIndex place : places) {
        size_ += kept.size() - pieces_[place].text.size();
        putScanned(place);
    }
}

void Expansion::checkRoom(std::size_t places, std::size_t lengthNow, std::size_t lengthThen) const {
    constexpr std::size_t MostMebibytes = 64;
    constexpr std::size_t MostBytes = MostMebibytes * 1024 * 1024;
    constexpr std::size_t MostPieces = 4'000'000;
    const bool fits =
        pieces_.size() < MostPieces && size_ < MostBytes &&
        (scanned_.empty() || places < (MostPieces - pieces_.size()) / scanned_.size()) &&
        (lengthThen <= lengthNow || places < (MostBytes - size_) / (lengthThen - lengthNow));
    if (!fits) {
        constexpr int OutOfStringSpace = 14;
        throw RuntimeError(OutOfStringSpace,
                           "Out of string space: the text would become larger than " +
                               std::to_string(MostMebibytes) + " MiB");
    }
}

std::string Expansion::text() const {
    std::string text;
    text.reserve(size_);
    for (PieceIndex at = pieces_[0].next; at != 0; at = pieces_[at].next)
        text += pieces_[at].text;
    return text;
}

// Cuts a text into pieces, looking at the text alone: `open` is the tag that a piece by itself ends
// in the middle of.
void Expansion::scan(std::string_view text) {
    const TagMatcher& matcher = steps_.matcher();
    scanned_.clear();
    std::size_t literalStart = 0;
    std::size_t readEnd = 0;
    OpenTag open = 0;  // what the text up to readEnd breaks off in
    int lastTag = TagReading::None;
    for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', readEnd)) {
        const TagReading reading = matcher.read(text.substr(at), lastTag);
        if (reading.tag != TagReading::None && stillReplaced(reading.tag)) {
            addScanned(text.substr(literalStart, at - literalStart), Piece::Literal,
                       at == readEnd ? open : 0);
            addScanned(text.substr(at, reading.length), reading.tag, 0);
            literalStart = at + reading.length;
            lastTag = reading.tag;
        }
        readEnd = at + reading.length;
        open = reading.open;
    }
    addScanned(text.substr(literalStart), Piece::Literal, readEnd == text.size() ? open : 0);
}

void Expansion::addScanned(std::string_view text, int tag, OpenTag open) {
    if (!text.empty()) scanned_.push_back({.text = text, .tag = tag, .open = open});
}

// Puts the pieces scanned last in the place of one piece.
void Expansion::putScanned(PieceIndex place) {
    const PieceIndex before = pieces_[place].previous;
    if (scanned_.empty()) {
        unlink(place);
        followOn(before);
        return;
    }
    PieceIndex last = before;
    const PieceIndex after = pieces_[place].next;
    for (const Piece& piece : scanned_) {
        const bool first = last == before;
        const PieceIndex at = first ? place : static_cast<PieceIndex>(pieces_.size());
        if (first)
            pieces_[at] = piece;
        else
            pieces_.push_back(piece);
        pieces_[at].previous = last;
        pieces_[last].next = at;
        if (piece.tag != Piece::Literal)
            occurrences_[static_cast<std::size_t>(piece.tag)].push_back(at);
        last = at;
    }
    pieces_[last].next = after;
    pieces_[after].previous = last;
    // This order matters: a tag begun before the new pieces may run through all of them.
    followOn(last);
    followOn(before);
}

void Expansion::unlink(PieceIndex piece) {
    const auto [previous, next] = std::pair(pieces_[piece].previous, pieces_[piece].next);
    pieces_[previous].next = next;
    pieces_[next].previous = previous;
}

// Follows the tag that the text up to a piece breaks off in into the pieces after it.
void Expansion::followOn(PieceIndex from) {
    OpenTag open = pieces_[from].open;
    PieceIndex at = pieces_[from].next;
    while (open != 0 && pieces_[at].tag == Piece::Literal) {
        const TagReading reading = steps_.matcher().readOn(open, pieces_[at].text);
        if (reading.tag != TagReading::None) {
            if (stillReplaced(reading.tag)) form(reading.tag, at, reading.length);
            return;
        }
        if (reading.length < pieces_[at].text.size()) return;
        open = pieces_[at].open = reading.open;
        at = pieces_[at].next;
    }
}

// Makes one piece of a placeholder that is spread over several; it ends within piece `last`.
void Expansion::form(int tag, PieceIndex last, std::size_t bytesOfLast) {
    const std::size_t length = steps_.matcher().lengthOf(tag);
    std::string& spelling = sources_.emplace_back(length, '\0');
    std::size_t missing = length - bytesOfLast;
    pieces_[last].text.copy(spelling.data() + missing, bytesOfLast);
    pieces_[last].text.remove_prefix(bytesOfLast);

    PieceIndex before = pieces_[last].previous;
    if (pieces_[last].text.empty()) unlink(last);
    while (missing > 0) {
        std::string_view& text = pieces_[before].text;
        const std::size_t taken = std::min(missing, text.size());
        missing -= taken;
        text.copy(spelling.data() + missing, taken, text.size() - taken);
        text.remove_suffix(taken);
        if (!text.empty()) {
            pieces_[before].open = openAtEnd(before);
            break;
        }
        unlink(before);
        before = pieces_[before].previous;
    }

    const auto formed = static_cast<PieceIndex>(pieces_.size());
    const PieceIndex after = pieces_[before].next;
    pieces_.push_back({.text = spelling, .tag = tag, .previous = before, .next = after});
    pieces_[before].next = formed;
    pieces_[after].previous = formed;
    occurrences_[static_cast<std::size_t>(tag)].push_back(formed);
}

OpenTag Expansion::openAtEnd(PieceIndex piece) const {
    const TagMatcher& matcher = steps_.matcher();
    const std::string_view text = pieces_[piece].text;
    const std::string_view tail =
        text.substr(text.size() - std::min(text.size(), matcher.longest()));
    const auto start = tail.rfind('<');
    if (start != std::string_view::npos) return matcher.read(tail.substr(start)).open;
    if (tail.size() < text.size()) return 0;
    return matcher.readOn(pieces_[pieces_[piece].previous].open, text).open;
}

}  // namespace headerdtc
