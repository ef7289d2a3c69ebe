#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// The stored text of a local script is a whole function; the author writes its body only.

// The function of that name around a body: a header line, an empty line, the body, and a closing
// line that repeats the name. A "<BODY>" in the name is replaced by the body too.
std::string scriptFunction(std::string_view name, std::string_view body);

// The body of a stored function: its lines without the first and the last one, whatever these
// are, and without the blank ones; each ends in CR LF. A lone CR ends a line like CR LF, a lone LF
// does not. Fewer than three lines have no body.
std::string scriptBody(std::string_view function);

}  // namespace headerdtc
