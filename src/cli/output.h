#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace headerdtc::cli {

void printLine(std::FILE* stream, std::string_view line);

// "PAGE: TEXT" to standard error, in one line whatever the text holds.
void printMessage(std::string_view page, std::string_view text);

// "1 page", "2 pages"
std::string counted(std::size_t count, const std::string& noun);

bool isTerminal(std::FILE* stream);

// Whether a stream is a terminal whose user has not asked for output without colour (NO_COLOR).
bool wantsColour(std::FILE* stream);

// UTF-8 text as a terminal may be given it: control characters, which it might obey, as ^X, those
// beyond ASCII as the replacement character.
std::string visible(std::string_view text);

}  // namespace headerdtc::cli
