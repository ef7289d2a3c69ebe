#include "runtime/expansion.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace headerdtc {

ExpansionSteps::ExpansionSteps(std::span<const std::string_view> placeholders)
    : placeholders_(placeholders.begin(), placeholders.end()) {
    std::vector<std::string> tags;
    for (const std::string& placeholder : placeholders_) {
        const auto same = std::find_if(tags.begin(), tags.end(), [&](const std::string& tag) {
            return equalIgnoringCase(tag, placeholder);
        });
        tagOfStep_.push_back(static_cast<int>(same - tags.begin()));
        if (same == tags.end()) tags.push_back(placeholder);
    }
    if (std::all_of(tags.begin(), tags.end(), isTag)) matcher_.emplace(std::move(tags));
}

Expansion::Expansion(std::string text, const ExpansionSteps& steps) : steps_(steps) {
    sources_.push_back(std::move(text));
    if (!steps_.matcher()) return;
    const auto tags = static_cast<std::size_t>(steps_.matcher()->count());
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
    const std::size_t step = step_++;
    if (!steps_.matcher()) {
        std::string& text = sources_.front();
        text = replaceAllIgnoringCase(text, steps_.placeholder(step), value);
        return;
    }
    const auto tag = static_cast<std::size_t>(steps_.tagOf(step));
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
    if (!steps_.matcher()) return sources_.front();
    std::string text;
    text.reserve(size_);
    for (PieceIndex at = pieces_[0].next; at != 0; at = pieces_[at].next)
        text += pieces_[at].text;
    return text;
}

// Cuts a text into pieces. Nothing is known of its surroundings yet: `open` is what each piece
// breaks off in by itself.
void Expansion::scan(std::string_view text) {
    const TagMatcher& matcher = *steps_.matcher();
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
    // In this order: what the text before breaks off in may run on through all of the new pieces.
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
        const TagReading reading = steps_.matcher()->readOn(open, pieces_[at].text);
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
    const std::size_t length = steps_.matcher()->lengthOf(tag);
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
    const TagMatcher& matcher = *steps_.matcher();
    const std::string_view text = pieces_[piece].text;
    const std::string_view tail =
        text.substr(text.size() - std::min(text.size(), matcher.longest()));
    const auto start = tail.rfind('<');
    if (start != std::string_view::npos) return matcher.read(tail.substr(start)).open;
    if (tail.size() < text.size()) return 0;
    return matcher.readOn(pieces_[pieces_[piece].previous].open, text).open;
}

std::string expandSteps(std::string_view text, std::span<const ReplacementStep> steps) {
    std::vector<std::string_view> placeholders;
    for (const ReplacementStep& step : steps)
        placeholders.push_back(step.placeholder);
    const ExpansionSteps prepared(placeholders);
    Expansion expansion(std::string(text), prepared);
    for (const ReplacementStep& step : steps)
        expansion.replace(std::string(step.value));
    return expansion.text();
}

}  // namespace headerdtc
