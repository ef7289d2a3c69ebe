#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// Tables as comma-separated values, RFC 4180. Text is UTF-8.

struct CsvRecord {
    int line = 0;  // on which it begins, from 1
    std::vector<std::string> cells;
};

// Reads a whole table. Records end at CR LF or LF; a byte-order mark is passed over, and so are
// lines with nothing in them. Cells are parted by what stands behind the first one, which
// spreadsheets of some countries write: a comma, a semicolon or a tab, or by what a first line
// "sep=;" says. Throws FileError with the line for a quotation mark that is not closed, or that has
// more behind it in its cell.
std::vector<CsvRecord> readCsv(const std::string& file, std::string_view text);

// One record, its line end CR LF included. A cell is quoted where it has to be.
std::string csvRecord(const std::vector<std::string>& cells);

// Spreadsheets make something else of a cell that looks like a formula, a number, a date or a truth
// value: "=1+1", "007", "1E5", "3 May". Such a text is written with an apostrophe before it, which
// is how a person keeps a cell a text; one that has apostrophes before such a thing already gets
// one more, so that every text comes back. Other apostrophes ("'s morgens") mean nothing.

std::string cellOfText(std::string_view text);
// The text of a cell that cellOfText wrote, or that came back without its apostrophe.
std::string textOfCell(std::string_view cell);

}  // namespace headerdtc
