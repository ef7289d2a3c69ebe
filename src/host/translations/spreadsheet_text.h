#pragma once

#include <string>
#include <string_view>

namespace headerdtc {

// Spreadsheets make something else of a cell that looks like a formula, a number, a date or a truth
// value: "=1+1", "007", "1E5", "3 May". Such a text is written with an apostrophe before it, which
// is how a person keeps a cell a text; one that has apostrophes before such a thing already gets
// one more, so that every text comes back. Other apostrophes ("'s morgens") mean nothing.

std::string cellOfText(std::string_view text);
// The text of a cell that cellOfText wrote, or that came back without its apostrophe.
std::string textOfCell(std::string_view cell);

}  // namespace headerdtc
