#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace headerdtc::cli {

// Machine output: one JSON object a line on standard output, each with a "type", beginning with
// one of type "run". What is no UTF-8 (a file's name can be anything) is replaced in it.
class JsonLines {
  public:
    using Json = nlohmann::ordered_json;

    // The version of a command's schema is raised when a field changes its meaning or goes away;
    // new fields and types may come without that.
    void begin(const std::string& command, int schema = 1);
    void write(const Json& object);
};

}  // namespace headerdtc::cli
