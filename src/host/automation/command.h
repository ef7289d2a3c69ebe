#pragma once

#include "controls/keys.h"
#include "host/automation/automation.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A line that is not a command, or a command that lacks a field: the text says which.
class CommandError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// One command line, with checked access to its fields.
struct Automation::Command {
    // Throws CommandError when the line is no JSON object with a text "do".
    explicit Command(const std::string& line);

    std::string verb;
    nlohmann::ordered_json fields;  // in the order in which they were given

    // A field that is null counts as left out.
    bool has(const char* field) const;
    // The one field given of two that exclude each other. Throws CommandError for both and for
    // neither.
    std::string_view oneOf(const char* first, const char* second) const;
    std::string text(const char* field) const;
    std::vector<std::string> texts(const char* field) const;
    int integer(const char* field) const;
    std::optional<int> integerIfGiven(const char* field) const;
    std::vector<int> integers(const char* field) const;
    // Left out: false.
    bool flag(const char* field) const;
    const nlohmann::ordered_json& value(const char* field) const;
    Key key() const;

  private:
    template <class Item, class Test>
    std::vector<Item> listOf(const char* field, Test isItem, const char* wanted) const;
    [[noreturn]] void wrong(const char* field, const std::string& what) const;
};

// A key as automation names it: "Enter", "Up", or one character. Nothing for a name that is none.
std::optional<Key> keyNamed(const std::string& name);
// The reverse of keyNamed(); shift is no part of the name.
std::string nameOfKey(const Key& key);

}  // namespace headerdtc
