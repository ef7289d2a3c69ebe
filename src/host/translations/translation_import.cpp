#include "host/translations/translation_import.h"

#include "host/odbc/odbc_connection.h"
#include "host/odbc/odbc_metadata.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <cstdlib>
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

class Planner {
  public:
    Planner(const TranslationFile& file, const TranslationTable& table, long longest)
        : file_(file), table_(table), longest_(longest) {
        for (const Row& row : file.rows)
            ++occurrences_[row.label];
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
    void refuse(const Row& row, const std::string& locale, const std::string& reason) {
        steps_.push_back({row.line, row.label, locale, Action::Refuse, "", "", reason});
    }

    // Whether the cells of a row are to be looked at.
    bool planRow(const Row& row) {
        if (const std::string reason = rowRefusal(row); !reason.empty()) {
            refuse(row, "", reason);
            return false;
        }
        entry_ = &table_.entries.at(row.label);
        sourceChanged_ = wasChanged(row, SourceLocale);
        const std::string& source = *entry_->text(SourceLocale);
        if (row.source && !isSameText(*row.source, source) && !sourceChanged_)
            refuse(
                row, SourceLocale,
                "its source was edited, or taken for a number by the spreadsheet; the page editor "
                "changes sources, not an import");
        return true;
    }

    std::string rowRefusal(const Row& row) const {
        if (row.overflows)
            return "it has more cells than the first line; put a text with a comma into quotation "
                   "marks";
        if (row.label.empty()) return "it has no key";
        if (occurrences_.at(row.label) > 1) return "its key is in the file more than once";
        const auto found = table_.entries.find(row.label);
        const bool isKnown = found != table_.entries.end() && found->second.text(SourceLocale);
        return isKnown ? "" : "the database has no such label";
    }

    bool wasChanged(const Row& row, const std::string& locale) const {
        const auto state = row.states.find(locale);
        return state != row.states.end() && state->second != textFingerprint(entry_->text(locale));
    }

    void planCell(const Row& row, const std::string& locale) {
        const auto cell = row.texts.find(locale);
        const std::string* now = entry_->text(locale);
        ImportStep step{row.line, row.label, locale, Action::None, now ? *now : "", "", ""};
        const std::string& source = *entry_->text(SourceLocale);
        step.after = cell == row.texts.end() || trimBlanks(cell->second).empty()
                         ? ""
                         : withLineEndsOf(source, cell->second);
        if (step.after.empty() || isSameText(step.after, step.before)) {
            step.after = step.before;
            steps_.push_back(std::move(step));
            return;
        }
        const std::string reason = refusal(row, locale, step.after);
        if (!reason.empty()) return refuse(row, locale, reason);
        step.action = entry_->texts.contains(locale) ? Action::Change : Action::Add;
        steps_.push_back(std::move(step));
    }

    std::string refusal(const Row& row, const std::string& locale, const std::string& text) const {
        if (sourceChanged_) return "its source was changed in the database since the export";
        if (wasChanged(row, locale)) return "it was changed in the database since the export";
        const auto& repeated = entry_->repeated;
        if (std::find(repeated.begin(), repeated.end(), locale) != repeated.end())
            return "the database has several texts there";
        if (text.find('\0') != std::string::npos)
            return "it has a character 0 in it, which ends a text";
        if (longest_ > 0 && characterCount(text) > longest_)
            return "it has " + std::to_string(characterCount(text)) +
                   " characters; the database takes " + std::to_string(longest_);
        return {};
    }

    const TranslationFile& file_;
    const TranslationTable& table_;
    long longest_;
    std::map<std::string, int> occurrences_;
    std::vector<ImportStep> steps_;
    // Of the row in hand:
    const TranslationTable::Entry* entry_ = nullptr;
    bool sourceChanged_ = false;
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

SQLLEN execute(OdbcSession& session, const char* statement,
               const std::vector<OdbcParameter>& values) {
    const auto executed = session.execute(statement, values);
    const SQLLEN count = session.rowCount(executed);
    session.free(executed);
    return count;
}

void apply(OdbcSession& session, const ImportStep& step, const std::string& today) {
    const std::int32_t locale = numberOf(step.locale);
    const SQLLEN count = step.action == Action::Add
                             ? execute(session, AddText, {step.label, step.after, locale, today})
                             : execute(session, step.before.empty() ? FillText : ChangeText,
                                       {step.after, today, step.label, locale, step.before});
    if (count == 1) return;
    throw RuntimeError(ErrorNumber::DeviceIoError, "the text of " + step.label + " in " +
                                                       step.locale +
                                                       " was changed in the database meanwhile");
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

void applyImport(OdbcConnection& connection, const std::vector<ImportStep>& plan,
                 const std::string& today) {
    for (const ImportStep& step : plan) {
        if (step.action == Action::Add || step.action == Action::Change)
            apply(connection.session(), step, today);
    }
}

}  // namespace headerdtc
