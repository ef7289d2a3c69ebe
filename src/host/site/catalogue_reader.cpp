#include "host/site/catalogue.h"
#include "host/site/json_reader.h"
#include "platform/utf8.h"

#include <algorithm>
#include <set>

namespace headerdtc {
namespace {

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

class CatalogueReader : public JsonHandler {
  public:
    CatalogueReader(const std::string& file, std::string_view text) : file_(file), text_(text) {}

    Catalogue read() {
        readJson(file_, text_, *this);
        return std::move(catalogue_);
    }

    void beginObject(std::size_t place) override { open(JsonType::Object, "an object", place); }
    void beginArray(std::size_t place) override { open(JsonType::List, "a list", place); }
    void endArray() override { open_.pop_back(); }

    void key(const std::string& name, std::size_t place) override {
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
    }

    void endObject() override {
        const auto& object = open_.back();
        for (const auto& member : Members) {
            if (member.owner == object.shape && member.required &&
                std::find(object.keys.begin(), object.keys.end(), member.key) == object.keys.end())
                fail(object.place, "\"" + std::string(member.key) + "\" (" +
                                       traitsOf(member.shape).description + ") is missing here");
        }
        open_.pop_back();
    }

    void string(std::string text, std::size_t place) override {
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
    }

    void integer(long long number, std::size_t place) override {
        expect(JsonType::Integer, "a number", place);
        if (!fieldNumbers_.insert(number).second) {
            fail(place, "the provider has two fields with the number " + std::to_string(number) +
                            "; give each its own");
        }
        provider().zeko->fields.back().number = number;
    }

    void other(const std::string& what, std::size_t place) override {
        fail(place,
             "expected " + std::string(traitsOf(expected()).description) + ", found " + what);
    }

  private:
    // An object or list that is not closed yet.
    struct Open {
        Shape shape;
        std::size_t place;
        Shape next;                          // what the next value is
        std::vector<std::string_view> keys;  // those seen
    };

    Shape expected() const { return open_.empty() ? Shape::Catalogue : open_.back().next; }

    Shape expect(JsonType type, const char* what, std::size_t place) {
        if (traitsOf(expected()).type != type) other(what, place);
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

    [[noreturn]] void fail(std::size_t place, const std::string& problem) const {
        failAtPlace(file_, text_, place, problem);
    }

    const std::string& file_;
    const std::string_view text_;
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
