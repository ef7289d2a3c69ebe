#pragma once

#include "host/files/file_error.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace headerdtc {

// What happens while a JSON text is read, each with the place (a byte of the text) where the piece
// begins.
class JsonHandler {
  public:
    virtual ~JsonHandler() = default;
    virtual void beginObject(std::size_t place) = 0;
    virtual void key(const std::string& name, std::size_t place) = 0;
    virtual void endObject() = 0;
    virtual void beginArray(std::size_t place) = 0;
    virtual void endArray() = 0;
    virtual void string(std::string text, std::size_t place) = 0;
    virtual void integer(long long number, std::size_t place) = 0;
    // Anything else, in words: "true", "null", "a number with a fraction".
    virtual void other(const std::string& what, std::size_t place) = 0;
};

// Reads a JSON text from its start to its end. Throws FileError with line and column for what is
// none; what the handler throws goes through.
void readJson(const std::string& file, std::string_view text, JsonHandler& handler);

// An error of a file whose text this is, at a place in it.
[[noreturn]] void failAtPlace(const std::string& file, std::string_view text, std::size_t place,
                              const std::string& problem);

}  // namespace headerdtc
