#include "scripts/script_text.h"

#include "platform/text.h"

namespace headerdtc {
namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view FunctionTemplate =
    "Function <NAME>()\r\n\r\n<BODY>\r\nEnd Function '<NAME>()";

}  // namespace

std::string scriptFunction(std::string_view name, std::string_view body) {
    return replaceAllIgnoringCase(replaceAllIgnoringCase(FunctionTemplate, "<NAME>", name),
                                  "<BODY>", body);
}

std::string scriptBody(std::string_view function) {
    const std::string text = replaceAll(replaceAll(function, LineEnd, "\r"), "\r", LineEnd);
    const auto lines = splitText(text, LineEnd);
    std::string body;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        if (!trimBlanks(lines[i]).empty()) body.append(lines[i]).append(LineEnd);
    }
    return body;
}

}  // namespace headerdtc
