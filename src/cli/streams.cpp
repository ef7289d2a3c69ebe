#include "cli/streams.h"

#include "cli/version.h"
#include "host/files/whole_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <unistd.h>

namespace headerdtc::cli {
namespace {

constexpr const char* Replacement = "\xEF\xBF\xBD";

}  // namespace

std::string readInput(const std::string& file) {
    if (file == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::error_code ignored;
    const auto kind = std::filesystem::status(file, ignored);
    if (!is_fifo(kind) && !is_character_file(kind)) return readWholeFile(file).bytes;
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void printLine(std::FILE* stream, std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
}

void printMessage(std::string_view page, std::string_view text) {
    std::string line(page);
    printLine(stderr, line.append(": ").append(visible(text)));
}

void printRows(const std::vector<Row>& rows) {
    constexpr std::size_t StateWidth = 9;
    const auto padded = [](std::string text, std::size_t width) {
        text.resize(std::max(width, text.size()), ' ');
        return text;
    };
    std::size_t nameWidth = 0;
    for (const Row& row : rows)
        nameWidth = std::max(nameWidth, row.name.size());
    for (const Row& row : rows) {
        printLine(stdout,
                  padded(row.state, StateWidth) + padded(row.name, nameWidth + 2) + row.detail);
        if (!row.advice.empty())
            printLine(stdout, std::string(StateWidth, ' ') + "-> " + row.advice);
    }
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

bool isTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) != 0;
}

bool wantsColour(std::FILE* stream) {
    const char* refused = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return isTerminal(stream) && !(refused && *refused) &&
           !(terminal && std::string_view(terminal) == "dumb");
}

std::string visible(std::string_view text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\xC2' && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0) {
            shown += Replacement;
            ++i;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        if ((byte < ' ' && c != '\t') || byte == 0x7F) {
            shown += '^';
            shown += static_cast<char>(byte ^ 0x40U);
        } else {
            shown += c;
        }
    }
    return shown;
}

void JsonLines::begin(const std::string& command, int schema) {
    write({{"type", "run"}, {"command", command}, {"schema", schema}, {"version", Version}});
}

void JsonLines::write(const Json& object) {
    printLine(stdout, object.dump(-1, ' ', false, Json::error_handler_t::replace));
    std::fflush(stdout);  // whoever reads follows the run
}

}  // namespace headerdtc::cli
