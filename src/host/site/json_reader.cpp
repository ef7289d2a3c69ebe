#include "host/site/json_reader.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>

namespace headerdtc {
namespace {

using Json = nlohmann::json;

// Tells how far the parser has read, which it does not tell its handler.
class CountingIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(std::string_view text, std::size_t at, std::size_t& reached)
        : text_(text.data()), at_(at), reached_(&reached) {}

    const char& operator*() const { return text_[at_]; }
    CountingIterator& operator++() {
        *reached_ = ++at_;
        return *this;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }

  private:
    const char* text_;
    std::size_t at_;
    std::size_t* reached_;
};

// Between the library's events and the handler: adds the places.
class PlacingHandler : public nlohmann::json_sax<Json> {
  public:
    PlacingHandler(const std::string& file, std::string_view text, const std::size_t& reached,
                   JsonHandler& handler)
        : file_(file), text_(text), reached_(reached), handler_(handler) {}

    bool null() override {
        handler_.other("null", place());
        return true;
    }
    bool boolean(bool value) override {
        handler_.other(value ? "true" : "false", place());
        return true;
    }
    bool number_integer(std::int64_t value) override {
        handler_.integer(value, place());
        return true;
    }
    bool number_unsigned(std::uint64_t value) override {
        if (value > static_cast<std::uint64_t>(std::numeric_limits<long long>::max())) {
            handler_.other("a number that is too large", place());
        } else {
            handler_.integer(static_cast<long long>(value), place());
        }
        return true;
    }
    bool number_float(double, const std::string&) override {
        handler_.other("a number with a fraction", place());
        return true;
    }
    bool string(std::string& value) override {
        handler_.string(std::move(value), place());
        return true;
    }
    bool binary(Json::binary_t&) override { return false; }  // not in texts
    bool start_object(std::size_t) override {
        handler_.beginObject(place());
        return true;
    }
    bool key(std::string& name) override {
        handler_.key(name, place());
        return true;
    }
    bool end_object() override {
        place();
        handler_.endObject();
        return true;
    }
    bool start_array(std::size_t) override {
        handler_.beginArray(place());
        return true;
    }
    bool end_array() override {
        place();
        handler_.endArray();
        return true;
    }
    bool parse_error(std::size_t charactersRead, const std::string&,
                     const nlohmann::detail::exception& error) override {
        const auto problem = inShort(error.what());
        const auto last = std::min(std::max<std::size_t>(charactersRead, 1) - 1, text_.size());
        // Inside a string the very character is at fault, otherwise the piece as a whole.
        const bool inString = problem.find("invalid string") != std::string::npos;
        failAtPlace(file_, text_, inString ? last : std::min(place(), last),
                    "this is no JSON: " + problem);
    }

  private:
    // Where the piece begins that has just been read: behind what was read before, which may have
    // looked one character ahead, and the punctuation.
    std::size_t place() {
        const auto begin = std::min(text_.find_first_not_of(" \t\r\n,:", behind_), text_.size());
        behind_ = reached_;
        return begin;
    }

    // The library puts an identifier and the place before what it has to say, and text behind it.
    static std::string inShort(std::string_view text) {
        for (const std::string_view before : {"] ", ": "}) {
            if (const auto at = text.find(before); at != std::string_view::npos)
                text.remove_prefix(at + before.size());
        }
        return std::string(text.substr(0, text.find("; last read")));
    }

    const std::string& file_;
    const std::string_view text_;
    const std::size_t& reached_;
    JsonHandler& handler_;
    std::size_t behind_ = 0;
};

}  // namespace

void readJson(const std::string& file, std::string_view text, JsonHandler& handler) {
    std::size_t reached = 0;
    PlacingHandler placing(file, text, reached, handler);
    Json::sax_parse(CountingIterator(text, 0, reached),
                    CountingIterator(text, text.size(), reached), &placing);
}

void failAtPlace(const std::string& file, std::string_view text, std::size_t place,
                 const std::string& problem) {
    throw FileError::at(file, text, place, problem);
}

}  // namespace headerdtc
