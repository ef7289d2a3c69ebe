#pragma once

#include "host/translations/translation_file.h"
#include "host/translations/translation_table.h"

#include <string>
#include <vector>

namespace headerdtc {

class OdbcConnection;

// What an import makes of one cell of a file.
struct ImportStep {
    enum class Action {
        None,    // the database has that text already, or the cell is empty
        Add,     // a new text
        Change,  // another text
        Refuse,  // not written, for the reason given
    };
    int line = 0;  // of the file
    std::string label;
    std::string locale;  // empty: it is about the whole row
    Action action = Action::None;
    std::string before, after;  // texts
    std::string reason;         // of a refusal
};

// Compares a file with a database; row by row, in the order of the file. What the file has as it
// was exported is no edit, whatever the database has by now. An empty cell never removes a text,
// nor does one with blanks alone; line ends, which a spreadsheet changes, do not make another text.
// An edited cell is refused where writing it could lose something: the label is unknown or stands
// in the file twice, its text or its source was changed in the database since the export, or nobody
// can tell because the row's state is damaged; the database has several texts there, or the text is
// longer than the column takes. A source that was edited in the file is refused too: it belongs to
// the page editor. `longest` is in characters, 0 for no bound.
std::vector<ImportStep> planImport(const TranslationFile& file, const TranslationTable& table,
                                   long longest);

// How many characters a text of the database may have; 0 when it is not known.
long longestText(OdbcConnection& connection);

// Writes what a plan of that file adds and changes, each value bound to its statement. The
// connection is in a transaction, which its caller ends. Throws FileError with line and label when
// the database refuses a text or has become another one meanwhile; nothing should be committed
// then.
void applyImport(OdbcConnection& connection, const std::string& file,
                 const std::vector<ImportStep>& plan, const std::string& today);

}  // namespace headerdtc
