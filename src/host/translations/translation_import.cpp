#include "host/translations/translation_import.h"

#include "host/files/file_error.h"
#include "host/odbc/odbc_connection.h"
#include "host/odbc/odbc_metadata.h"
#include "host/translations/csv.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>

namespace headerdtc {
namespace {

using Action = ImportStep::Action;
using Row = TranslationFile::Row;

// The text with line feeds alone: spreadsheets write every line end of a cell as one.
std::string withLineFeeds(std::string_view text) {
    return replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n");
}

bool isSameText(std::string_view a, std::string_view b) {
    return a == b || withLineFeeds(a) == withLineFeeds(b);
}

// The line ends of a text as another has them.
std::string withLineEndsOf(std::string_view model, const std::string& text) {
    return model.find("\r\n") == std::string_view::npos
               ? text
               : replaceAll(withLineFeeds(text), "\n", "\r\n");
}

// A cell that still has the text of which it was exported: by the mark of today's files or, in
// older ones, without it, and with whatever line ends a spreadsheet has given it.
bool isOfFingerprint(const std::string& cell, const std::string& fingerprint) {
    for (const std::string& text : {textOfCell(cell), cell}) {
        const std::string lines = withLineFeeds(text);
        for (const std::string& each : {text, lines, replaceAll(lines, "\n", "\r\n")})
            if (textFingerprint(&each) == fingerprint) return true;
    }
    return false;
}

constexpr const char* DamagedState =
    "its state is empty or damaged, so that nobody can tell what was changed in the database since "
    "the export; take the cell over from the export";

class Planner {
  public:
    Planner(const TranslationFile& file, const TranslationTable& table, long longest)
        : file_(file), table_(table), longest_(longest) {
        for (const auto& [label, entry] : table.entries)
            trimmed_.emplace(trimBlanks(label), &label);
        for (const Row& row : file.rows)
            ++occurrences_[labelOf(row)];
    }

    std::vector<ImportStep> plan() {
        for (const Row& row : file_.rows) {
            if (!planRow(row)) continue;
            for (const std::string& locale : file_.locales)
                planCell(row, locale);
        }
        return std::move(steps_);
    }

  private:
    // The label of the database that a row means: exactly that, or the only one that has other
    // blanks at its ends, which spreadsheets and older exports take away. Without one, the cell's.
    std::string labelOf(const Row& row) const {
        const std::string label = textOfCell(row.label);
        for (const std::string& each : {label, row.label})
            if (table_.entries.contains(each)) return each;
        const auto [first, last] = trimmed_.equal_range(trimBlanks(label));
        return first != last && std::next(first) == last ? *first->second : label;
    }

    void refuse(const Row& row, const std::string& locale, const std::string& reason) {
        steps_.push_back({row.line, label_, locale, Action::Refuse, "", "", reason});
    }

    // The mark of a text at the time of the export; nullptr where none is known.
    static const std::string* stateOf(const Row& row, const std::string& locale) {
        if (!row.states) return nullptr;
        const auto found = row.states->find(locale);
        return found == row.states->end() ? nullptr : &found->second;
    }

    bool isEdited(const Row& row, const std::string& locale, const std::string& cell) const {
        const std::string* now = entry_->text(locale);
        if (now &&
            (isSameText(textOfCell(cell), *now) || (!file_.hasStates && isSameText(cell, *now))))
            return false;
        const std::string* state = stateOf(row, locale);
        return !state || !isOfFingerprint(cell, *state);
    }

    bool wasChanged(const Row& row, const std::string& locale) const {
        const std::string* state = stateOf(row, locale);
        return state && *state != textFingerprint(entry_->text(locale));
    }

    // Whether the cells of a row are to be looked at.
    bool planRow(const Row& row) {
        label_ = labelOf(row);
        if (const std::string reason = rowRefusal(row); !reason.empty()) {
            refuse(row, "", reason);
            return false;
        }
        entry_ = &table_.entries.at(label_);
        if (row.source && isEdited(row, SourceLocale, *row.source))
            refuse(row, SourceLocale,
                   file_.hasStates && !row.states
                       ? DamagedState
                       : "its source was edited, or taken for a number by the spreadsheet; the "
                         "page editor changes sources, not an import");
        return true;
    }

    std::string rowRefusal(const Row& row) const {
        if (row.overflows)
            return "it has more cells than the first line; put a text with a comma into quotation "
                   "marks";
        const auto found = table_.entries.find(label_);
        const bool isKnown = found != table_.entries.end() && found->second.text(SourceLocale);
        if (trimBlanks(label_).empty() && !isKnown) return "it has no key";
        if (occurrences_.at(label_) > 1) return "its key is in the file more than once";
        return isKnown ? "" : "the database has no such label";
    }

    void planCell(const Row& row, const std::string& locale) {
        const auto cell = row.texts.find(locale);
        const std::string* now = entry_->text(locale);
        ImportStep step{row.line, label_, locale, Action::None, now ? *now : "", "", ""};
        step.after = step.before;
        const bool isEmpty = cell == row.texts.end() || trimBlanks(cell->second).empty();
        if (!isEmpty && isEdited(row, locale, cell->second)) {
            step.after = withLineEndsOf(*entry_->text(SourceLocale), textOfCell(cell->second));
            const std::string reason = refusal(row, locale, step.after);
            if (!reason.empty()) return refuse(row, locale, reason);
            step.action = entry_->texts.contains(locale) ? Action::Change : Action::Add;
        }
        steps_.push_back(std::move(step));
    }

    std::string refusal(const Row& row, const std::string& locale, const std::string& text) const {
        if (file_.hasStates && !row.states) return DamagedState;
        if (wasChanged(row, SourceLocale))
            return "its source was changed in the database since the export";
        if (wasChanged(row, locale)) return "it was changed in the database since the export";
        if (file_.hasStates && !stateOf(row, locale) && entry_->text(locale))
            return "the database has a text there, and the column \"state\" does not know it";
        const auto& repeated = entry_->repeated;
        if (std::find(repeated.begin(), repeated.end(), locale) != repeated.end())
            return "the database has several texts there";
        if (text.find('\0') != std::string::npos)
            return "it has a character 0 in it, which ends a text";
        if (longest_ > 0 && utf8::length(text) > longest_)
            return "it has " + std::to_string(utf8::length(text)) +
                   " characters; the database takes " + std::to_string(longest_);
        return {};
    }

    const TranslationFile& file_;
    const TranslationTable& table_;
    long longest_;
    std::multimap<std::string, const std::string*, std::less<>>
        trimmed_;                             // labels by what is within blanks
    std::map<std::string, int> occurrences_;  // of labels in the file
    std::vector<ImportStep> steps_;
    // Of the row in hand:
    std::string label_;
    const TranslationTable::Entry* entry_ = nullptr;
};

std::int32_t numberOf(const std::string& locale) {
    return static_cast<std::int32_t>(std::strtol(locale.c_str(), nullptr, 10));
}

// Only a text that is still what the plan saw is changed. NULL and the empty text are one here.
constexpr const char* ChangeText =
    "UPDATE I18NTEXT SET TEXT = ?, DATECHANGED = ?, STATUS = 0 "
    "WHERE LABEL = ? AND LOCALEID = ? AND TEXT = ?";
constexpr const char* FillText =
    "UPDATE I18NTEXT SET TEXT = ?, DATECHANGED = ?, STATUS = 0 "
    "WHERE LABEL = ? AND LOCALEID = ? AND (TEXT IS NULL OR TEXT = ?)";
constexpr const char* AddText =
    "INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID, DATECHANGED, STATUS) VALUES (?, ?, ?, ?, 0)";

void apply(OdbcSession& session, const ImportStep& step, const std::string& today) {
    const std::int32_t locale = numberOf(step.locale);
    const SQLLEN count = step.action == Action::Add
                             ? session.change(AddText, {step.label, step.after, locale, today})
                             : session.change(step.before.empty() ? FillText : ChangeText,
                                              {step.after, today, step.label, locale, step.before});
    if (count != 1)
        throw RuntimeError(ErrorNumber::DeviceIoError, "it was changed in the database meanwhile");
}

}  // namespace

std::vector<ImportStep> planImport(const TranslationFile& file, const TranslationTable& table,
                                   long longest) {
    return Planner(file, table, longest).plan();
}

long longestText(OdbcConnection& connection) {
    OdbcMetadata metadata(connection.session());
    for (const OdbcTable& table : metadata.tables(true)) {
        if (!equalIgnoringCase(table.name, "I18NTEXT")) continue;
        for (const OdbcTableColumn& column : metadata.columns(table)) {
            if (equalIgnoringCase(column.name, "TEXT")) return column.size;
        }
    }
    return 0;
}

void applyImport(OdbcConnection& connection, const std::string& file,
                 const std::vector<ImportStep>& plan, const std::string& today) {
    for (const ImportStep& step : plan) {
        if (step.action != Action::Add && step.action != Action::Change) continue;
        try {
            apply(connection.session(), step, today);
        } catch (const RuntimeError& error) {
            throw FileError(file, step.line, 0,
                            step.label + " " + step.locale + ": " + error.description() +
                                "; nothing was written");
        }
    }
}

}  // namespace headerdtc
