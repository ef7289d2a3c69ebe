#pragma once

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc::cli {

// All of a file, of standard input ("-") or of a pipe, which is what a shell makes of <(command).
// Throws FileError.
std::string readInput(const std::string& file);

void printLine(std::FILE* stream, std::string_view line);

// What is said of a page that was named and has nothing of ours in it.
inline constexpr const char* HoldsNoControl = "holds no HeaderDTC control";

// "PAGE: TEXT" to standard error, in one line whatever the text holds.
void printMessage(std::string_view page, std::string_view text);

// Rows of results: "ok       drive C   /srv/suite", an advice below its row.
struct Row {
    std::string state, name, detail, advice;
};
void printRows(const std::vector<Row>& rows);

// "1 page", "2 pages"
std::string counted(std::size_t count, const std::string& noun);

bool isTerminal(std::FILE* stream);

// Whether a stream is a terminal whose user has not asked for output without colour (NO_COLOR).
bool wantsColour(std::FILE* stream);

// UTF-8 text as a terminal may be given it: control characters, which it might obey, as ^X, those
// beyond ASCII as the replacement character.
std::string visible(std::string_view text);

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
