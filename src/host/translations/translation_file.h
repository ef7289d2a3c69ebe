#pragma once

#include "host/translations/translation_table.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A translation database as translators get it: a table with one row for each label. Its columns
// are "key", the label; "source (1033)"; one for each language, headed by its locale; "comment",
// where the label is used; and "state", by which an import sees what was changed in the database
// since. Columns are known by their heads; whatever others a spreadsheet adds is passed over.
struct TranslationFile {
    struct Row {
        int line = 0;  // in the file, from 1
        // It has more in it than there are columns: a text that has the separator is not in quotes.
        bool overflows = false;
        // Cells, as they are in the file; see textOfCell().
        std::string label;
        std::optional<std::string> source;
        std::map<std::string, std::string> texts;  // by locale
        // Fingerprints at the time of the export, by locale; nothing when there are none or they
        // are damaged.
        std::optional<std::map<std::string, std::string>> states;
    };

    std::vector<std::string> locales;  // of its columns, in their order
    bool hasStates = false;
    std::vector<std::string> passedOver;  // heads of columns that are none of these
    std::vector<Row> rows;

    // Throws FileError with the line for a table without a "key" or without a language, for a
    // column that is there twice, and for what readCsv refuses.
    static TranslationFile parse(const std::string& file, std::string_view text);
};

// A locale's number as the tables have it, "1031" for "01031"; empty for what is none.
std::string localeNumber(std::string_view text);

// What stands for a text in the column "state"; nothing for one that is not there.
std::string textFingerprint(const std::string* text);

struct ExportOptions {
    std::vector<std::string> locales;
    bool onlyGaps = false;       // only labels that lack a text in one of them
    bool byteOrderMark = false;  // for spreadsheets that take a file without one for something else
};

// The file of a database, UTF-8. Labels without a text to translate from are left out: there is
// nothing to translate.
std::string exportTranslations(const TranslationTable& table, const ExportOptions& options);

}  // namespace headerdtc
