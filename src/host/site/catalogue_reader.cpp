#include "host/files/file_error.h"
#include "host/site/catalogue.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>

namespace headerdtc {
namespace {

using Json = nlohmann::json;

// What can stand at a place of a catalogue.
enum class Shape {
    Catalogue,
    Providers,
    Provider,
    Zeko,
    NumberedFields,
    NumberedField,
    Number,
    Eai,
    Groups,
    Group,
    Names,
    Name,
};

enum class JsonType { Object, List, Text, Integer };

struct ShapeTraits {
    Shape shape;
    JsonType type;
    const char* description;
    Shape element;  // of a list
};

constexpr ShapeTraits Shapes[] = {
    {Shape::Catalogue, JsonType::Object, "the catalogue, an object {\"providers\": [...]}", {}},
    {Shape::Providers, JsonType::List, "a list of providers", Shape::Provider},
    {Shape::Provider, JsonType::Object, "a provider such as {\"name\": \"Orders\"}", {}},
    {Shape::Zeko, JsonType::Object, "an object with ZEKO fields", {}},
    {Shape::NumberedFields, JsonType::List, "a list of numbered fields", Shape::NumberedField},
    {Shape::NumberedField,
     JsonType::Object,
     "a field such as {\"number\": 1, \"name\": \"CUSTNO\"}",
     {}},
    {Shape::Number, JsonType::Integer, "an integer", {}},
    {Shape::Eai, JsonType::Object, "an object with EAI record groups", {}},
    {Shape::Groups, JsonType::List, "a list of record groups", Shape::Group},
    {Shape::Group,
     JsonType::Object,
     "a record group such as {\"name\": \"ORDERS\", \"fields\": [\"ORDNO\"]}",
     {}},
    {Shape::Names, JsonType::List, "a list of names", Shape::Name},
    {Shape::Name, JsonType::Text, "a name in quotes", {}},
};

struct Member {
    Shape owner;
    std::string_view key;
    Shape shape;
    bool required;
};

constexpr Member Members[] = {
    {Shape::Catalogue, "providers", Shape::Providers, true},
    {Shape::Provider, "name", Shape::Name, true},
    {Shape::Provider, "zeko", Shape::Zeko, false},
    {Shape::Provider, "eai", Shape::Eai, false},
    {Shape::Zeko, "fields", Shape::NumberedFields, true},
    {Shape::Zeko, "keyFields", Shape::Names, true},
    {Shape::NumberedField, "number", Shape::Number, true},
    {Shape::NumberedField, "name", Shape::Name, true},
    {Shape::Eai, "groups", Shape::Groups, true},
    {Shape::Eai, "keyFields", Shape::Names, true},
    {Shape::Group, "name", Shape::Name, true},
    {Shape::Group, "fields", Shape::Names, true},
};

const ShapeTraits& traitsOf(Shape shape) {
    return *std::find_if(std::begin(Shapes), std::end(Shapes),
                         [shape](const ShapeTraits& traits) { return traits.shape == shape; });
}

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

// The library puts an identifier and the place before what it has to say, and text behind it.
std::string inShort(std::string_view text) {
    for (const std::string_view before : {"] ", ": "}) {
        if (const auto at = text.find(before); at != std::string_view::npos)
            text.remove_prefix(at + before.size());
    }
    return std::string(text.substr(0, text.find("; last read")));
}

// Reads a catalogue piece by piece, as the library tells of them, and puts a place (a byte of the
// text) to each, where the piece begins.
class CatalogueReader : public nlohmann::json_sax<Json> {
  public:
    CatalogueReader(const std::string& file, std::string_view text) : file_(file), text_(text) {}

    Catalogue read() {
        Json::sax_parse(CountingIterator(text_, 0, reached_),
                        CountingIterator(text_, text_.size(), reached_), this);
        return std::move(catalogue_);
    }

    bool start_object(std::size_t) override {
        open(JsonType::Object, "an object", nextPlace());
        return true;
    }
    bool start_array(std::size_t) override {
        open(JsonType::List, "a list", nextPlace());
        return true;
    }
    bool end_array() override {
        nextPlace();
        open_.pop_back();
        return true;
    }

    bool key(std::string& name) override {
        const std::size_t place = nextPlace();
        auto& object = open_.back();
        const auto* const member = std::find_if(
            std::begin(Members), std::end(Members),
            [&](const Member& known) { return known.owner == object.shape && known.key == name; });
        if (member == std::end(Members))
            fail(place, "unknown key \"" + name + "\" in " + traitsOf(object.shape).description);
        if (std::find(object.keys.begin(), object.keys.end(), member->key) != object.keys.end())
            fail(place, "the key \"" + name + "\" is there twice; remove one of them");
        object.keys.push_back(member->key);
        object.next = member->shape;
        return true;
    }

    bool end_object() override {
        nextPlace();
        const auto& object = open_.back();
        for (const auto& member : Members) {
            if (member.owner == object.shape && member.required &&
                std::find(object.keys.begin(), object.keys.end(), member.key) == object.keys.end())
                fail(object.place, "\"" + std::string(member.key) + "\" (" +
                                       traitsOf(member.shape).description + ") is missing here");
        }
        open_.pop_back();
        return true;
    }

    bool string(std::string& text) override {
        const std::size_t place = nextPlace();
        expect(JsonType::Text, "a text", place);
        const auto owner = open_.back().shape;
        if (owner == Shape::Names) {
            names_->push_back(std::move(text));
        } else if (owner == Shape::NumberedField) {
            provider().zeko->fields.back().name = std::move(text);
        } else if (owner == Shape::Group) {
            setUnique(groupNames_, text, "record group", place);
            provider().eai->groups.back().name = std::move(text);
        } else {
            setUnique(providerNames_, text, "provider", place);
            provider().name = std::move(text);
        }
        return true;
    }

    bool number_integer(std::int64_t number) override {
        const std::size_t place = nextPlace();
        expect(JsonType::Integer, "a number", place);
        if (!fieldNumbers_.insert(number).second) {
            fail(place, "the provider has two fields with the number " + std::to_string(number) +
                            "; give each its own");
        }
        provider().zeko->fields.back().number = number;
        return true;
    }
    bool number_unsigned(std::uint64_t number) override {
        if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
            failOther("a number that is too large", nextPlace());
        return number_integer(static_cast<std::int64_t>(number));
    }

    bool number_float(double, const std::string&) override {
        failOther("a number with a fraction", nextPlace());
    }
    bool boolean(bool value) override { failOther(value ? "true" : "false", nextPlace()); }
    bool null() override { failOther("null", nextPlace()); }
    bool binary(Json::binary_t&) override { return false; }  // not in texts

    bool parse_error(std::size_t charactersRead, const std::string&,
                     const nlohmann::detail::exception& error) override {
        const auto problem = inShort(error.what());
        const auto last = std::min(std::max<std::size_t>(charactersRead, 1) - 1, text_.size());
        // Inside a string the very character is at fault, otherwise the piece as a whole.
        const bool inString = problem.find("invalid string") != std::string::npos;
        fail(inString ? last : std::min(nextPlace(), last), "this is no JSON: " + problem);
    }

  private:
    // An object or list that is not closed yet.
    struct Open {
        Shape shape;
        std::size_t place;
        Shape next;                          // what the next value is
        std::vector<std::string_view> keys;  // those seen
    };

    // Where the piece begins that has just been read: behind what was read before, which may have
    // looked one character ahead, and the punctuation. Asked for once for each piece.
    std::size_t nextPlace() {
        const auto begin = std::min(text_.find_first_not_of(" \t\r\n,:", behind_), text_.size());
        behind_ = reached_;
        return begin;
    }

    Shape expected() const { return open_.empty() ? Shape::Catalogue : open_.back().next; }

    Shape expect(JsonType type, const char* what, std::size_t place) {
        if (traitsOf(expected()).type != type) failOther(what, place);
        return expected();
    }

    void open(JsonType type, const char* what, std::size_t place) {
        const auto shape = expect(type, what, place);
        if (shape == Shape::Names) names_ = &namesOf(open_.back());
        open_.push_back({shape, place, traitsOf(shape).element, {}});
        switch (shape) {
            case Shape::Provider:
                catalogue_.providers.emplace_back();
                break;
            case Shape::Zeko:
                provider().zeko.emplace();
                fieldNumbers_.clear();
                break;
            case Shape::NumberedField:
                provider().zeko->fields.emplace_back();
                break;
            case Shape::Eai:
                provider().eai.emplace();
                groupNames_.clear();
                break;
            case Shape::Group:
                provider().eai->groups.emplace_back();
                break;
            default:
                break;
        }
    }

    Catalogue::Provider& provider() { return catalogue_.providers.back(); }

    // The list of names that the last key of an object is for.
    std::vector<std::string>& namesOf(const Open& object) {
        if (object.shape == Shape::Zeko) return provider().zeko->keyFields;
        if (object.shape == Shape::Eai) return provider().eai->keyFields;
        return provider().eai->groups.back().fields;
    }

    void setUnique(std::set<std::string>& names, const std::string& name, const char* what,
                   std::size_t place) {
        if (!names.insert(name).second) {
            fail(place, std::string("two entries are called \"") + name + "\"; give each " + what +
                            " its own name");
        }
    }

    // `what` stands here in words: "true", "a list".
    [[noreturn]] void failOther(const std::string& what, std::size_t place) const {
        fail(place,
             "expected " + std::string(traitsOf(expected()).description) + ", found " + what);
    }

    [[noreturn]] void fail(std::size_t place, const std::string& problem) const {
        throw FileError::at(file_, text_, place, problem);
    }

    const std::string& file_;
    const std::string_view text_;
    std::size_t reached_ = 0;  // what the library has read
    std::size_t behind_ = 0;   // the last piece
    Catalogue catalogue_;
    std::vector<Open> open_;
    std::vector<std::string>* names_ = nullptr;  // that are being read
    std::set<std::string> providerNames_;
    std::set<std::string> groupNames_;
    std::set<long long> fieldNumbers_;
};

}  // namespace

Catalogue Catalogue::parse(const std::string& file, std::string_view bytes) {
    return CatalogueReader(file, utf8::withoutMark(bytes)).read();
}

}  // namespace headerdtc
