#include "host/translations/csv.h"

#include "host/files/code_page.h"
#include "host/files/file_error.h"
#include "platform/utf8.h"

#include <algorithm>
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

}  // namespace headerdtc
