#include "host/translations/spreadsheet_text.h"

#include "platform/ascii.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>

namespace headerdtc {
namespace {

constexpr char Mark = '\'';

constexpr std::string_view TruthValues[] = {"TRUE",      "FALSE", "WAHR", "FALSCH", "VRAI",  "FAUX",
                                            "VERDADERO", "FALSO", "VERO", "WAAR",   "ONWAAR"};

// Beginnings of the names of months, in the languages of most spreadsheets with Latin letters.
constexpr std::string_view Months[] = {
    "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC", "MRZ",
    "MAI", "OKT", "DEZ", "AVR", "JUI", "FEV", "AOU", "ENE", "ABR", "AGO", "DIC", "GEN", "MAG",
    "GIU", "LUG", "SET", "OTT", "MRT", "MAA", "MEI", "MÄR", "FÉV", "DÉC", "AOÛ"};

// What may stand in a number or a time: exponent, half of the day, date and zone of ISO 8601.
constexpr std::string_view NumberWords[] = {"E", "A", "P", "AM", "PM", "T", "Z"};

// Bytes beyond ASCII count as letters.
bool isLetter(char c) {
    return ascii::isLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}

template <std::size_t Count>
bool isOneOf(const std::string_view (&words)[Count], std::string_view word) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

bool isMonth(std::string_view upper) {
    return std::any_of(std::begin(Months), std::end(Months),
                       [&](std::string_view month) { return upper.starts_with(month); });
}

// A word beyond ASCII behind a digit may be the month of another language, and before one, when it
// is a single character, a currency.
bool canStandInNumber(std::string_view upper, bool isFirst) {
    const bool isForeign = static_cast<unsigned char>(upper.front()) >= 0x80;
    if (isMonth(upper)) return true;
    return isFirst ? isForeign && upper.size() <= 3 : isForeign || isOneOf(NumberWords, upper);
}

// A number, date or time; rather too much is taken for one than too little.
bool isLikeNumber(std::string_view upper) {
    if (std::ranges::none_of(upper, ascii::isDigit)) return false;
    for (auto at = upper.begin(); at != upper.end();) {
        const auto begin = std::find_if(at, upper.end(), isLetter);
        const auto end = std::find_if_not(begin, upper.end(), isLetter);
        if (begin != end && !canStandInNumber({begin, end}, begin == upper.begin())) return false;
        at = end;
    }
    return true;
}

bool isTaken(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(Mark), text.size()));
    text = trimSpace(text);
    if (text.empty()) return false;
    if (std::string_view("=+-@").find(text.front()) != std::string_view::npos) return true;
    const std::string upper = upperCase(text);
    return isOneOf(TruthValues, upper) || isLikeNumber(upper);
}

}  // namespace

std::string cellOfText(std::string_view text) {
    return (isTaken(text) ? std::string(1, Mark) : "") + std::string(text);
}

std::string textOfCell(std::string_view cell) {
    return std::string(cell.starts_with(Mark) && isTaken(cell) ? cell.substr(1) : cell);
}

}  // namespace headerdtc
