#include "host/translations/csv.h"

#include "host/files/code_page.h"
#include "host/files/file_error.h"
#include "platform/ascii.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace headerdtc {
namespace {

class Reader {
  public:
    Reader(const std::string& file, std::string_view text)
        : file_(file), text_(utf8::withoutMark(text)) {
        if (!takeSeparatorLine()) separator_ = findSeparator();
    }

    std::vector<CsvRecord> read() {
        std::vector<CsvRecord> records;
        while (at_ < text_.size()) {
            CsvRecord record = takeRecord();
            const bool isEmpty = record.cells.size() == 1 && record.cells.front().empty();
            if (!isEmpty) records.push_back(std::move(record));
        }
        return records;
    }

  private:
    // "sep=;", which some spreadsheets put before the table.
    bool takeSeparatorLine() {
        constexpr std::string_view Begin = "sep=";
        const std::string_view line = text_.substr(at_, text_.find('\n', at_) - at_);
        if (!line.starts_with(Begin)) return false;
        std::string_view separator = line.substr(Begin.size());
        if (separator.ends_with('\r')) separator.remove_suffix(1);
        if (separator.size() != 1 || separator == "\"") return false;
        separator_ = separator.front();
        at_ += line.size() + 1;
        ++line_;
        return true;
    }

    char findSeparator() const {
        std::size_t end = at_;
        if (end < text_.size() && text_[end] == '"') {
            end = std::min(text_.find('"', end + 1), text_.size());
        }
        end = text_.find_first_of(",;\t\r\n", end);
        const bool isOther =
            end != std::string_view::npos && (text_[end] == ';' || text_[end] == '\t');
        return isOther ? text_[end] : ',';
    }

    CsvRecord takeRecord() {
        CsvRecord record{line_, {}};
        for (;;) {
            record.cells.push_back(takeCell());
            if (at_ >= text_.size()) break;
            const char end = text_[at_++];
            if (end == separator_) continue;
            if (end == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
            ++line_;
            break;
        }
        return record;
    }

    std::string takeCell() {
        if (at_ < text_.size() && text_[at_] == '"') return takeQuoted();
        const auto end =
            std::min(text_.find_first_of(std::string{separator_, '\r', '\n'}, at_), text_.size());
        std::string cell(text_.substr(at_, end - at_));
        at_ = end;
        return cell;
    }

    std::string takeQuoted() {
        const int begin = line_;
        std::string cell;
        for (++at_;; ++at_) {
            if (at_ >= text_.size())
                throw FileError(file_, begin, 0,
                                "a quotation mark is not closed; write one inside a cell twice");
            const char c = text_[at_];
            if (c == '\n') ++line_;
            if (c == '"') {
                if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') break;
                ++at_;
            }
            cell += c;
        }
        ++at_;
        const bool ends = at_ >= text_.size() || text_[at_] == separator_ || text_[at_] == '\r' ||
                          text_[at_] == '\n';
        if (ends) return cell;
        throw FileError(file_, line_, 0,
                        "a cell goes on behind its closing quotation mark; write one inside a cell "
                        "twice");
    }

    const std::string& file_;
    std::string_view text_;
    char separator_ = ',';
    std::size_t at_ = 0;
    int line_ = 1;
};

bool needsQuotes(std::string_view cell) {
    return cell.find_first_of(",;\t\"\r\n") != std::string_view::npos || cell.starts_with(' ') ||
           cell.ends_with(' ');
}

}  // namespace

std::vector<CsvRecord> readCsv(const std::string& file, std::string_view text) {
    // Whatever code page a spreadsheet left it in: what is no UTF-8 is said, rather than taken.
    if (CodePage::utf8().decode(text) != text)
        throw FileError(file, "it is no UTF-8; save it from the spreadsheet as \"CSV UTF-8\"");
    return Reader(file, text).read();
}

std::string csvRecord(const std::vector<std::string>& cells) {
    std::string record;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) record += ',';
        if (!needsQuotes(cells[i])) {
            record += cells[i];
            continue;
        }
        record += '"';
        for (const char c : cells[i]) {
            if (c == '"') record += '"';
            record += c;
        }
        record += '"';
    }
    return record + "\r\n";
}

// ---- texts that spreadsheets take for something else --------------------------------------------

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
