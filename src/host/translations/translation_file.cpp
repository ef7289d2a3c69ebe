#include "host/translations/translation_file.h"

#include "host/files/file_error.h"
#include "host/translations/csv.h"
#include "platform/ascii.h"
#include "platform/text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace headerdtc {
namespace {

constexpr std::string_view Key = "key", Source = "source", Comment = "comment", State = "state";
constexpr const char* NoText = "-";

bool isBlank(std::string_view text) {
    return trimSpace(text).empty();
}

// "1033:8c1f0a2b 1031:-"
std::string stateOf(const TranslationTable::Entry& entry, const std::vector<std::string>& locales) {
    std::string state = SourceLocale + (":" + textFingerprint(entry.text(SourceLocale)));
    for (const std::string& locale : locales)
        state += " " + locale + ":" + textFingerprint(entry.text(locale));
    return state;
}

bool isFingerprint(std::string_view text) {
    return text == NoText || (text.size() == 8 &&
                              text.find_first_not_of("0123456789abcdef") == std::string_view::npos);
}

std::optional<std::map<std::string, std::string>> statesIn(std::string_view state) {
    std::map<std::string, std::string> states;
    for (const std::string_view each : splitText(trimBlanks(state), " ")) {
        const auto colon = std::min(each.find(':'), each.size());
        const std::string locale = localeNumber(each.substr(0, colon));
        const std::string_view fingerprint = each.substr(std::min(colon + 1, each.size()));
        if (locale.empty() || !isFingerprint(fingerprint)) return std::nullopt;
        states.emplace(locale, fingerprint);
    }
    if (!states.contains(SourceLocale)) return std::nullopt;
    return states;
}

// What a column of the file is.
struct Column {
    enum class Is { Key, Source, Locale, State, Other } is = Is::Other;
    std::string locale;
};

Column columnOf(std::string_view head) {
    head = trimBlanks(head);
    if (equalIgnoringCase(head, Key)) return {Column::Is::Key, ""};
    if (equalIgnoringCase(head.substr(0, Source.size()), Source)) return {Column::Is::Source, ""};
    if (equalIgnoringCase(head, State)) return {Column::Is::State, ""};
    if (std::string locale = localeNumber(head); !locale.empty())
        return {Column::Is::Locale, std::move(locale)};
    return {};
}

std::vector<Column> columnsOf(const std::string& file, const CsvRecord& heads) {
    std::vector<Column> columns;
    for (const std::string& head : heads.cells) {
        Column column = columnOf(head);
        const bool isRepeated =
            column.is != Column::Is::Other &&
            std::any_of(columns.begin(), columns.end(), [&](const Column& other) {
                return other.is == column.is && other.locale == column.locale;
            });
        if (isRepeated)
            throw FileError(file, heads.line, 0, "the column \"" + head + "\" is there twice");
        columns.push_back(std::move(column));
    }
    const bool hasKey = std::any_of(columns.begin(), columns.end(), [](const Column& column) {
        return column.is == Column::Is::Key;
    });
    if (!hasKey)
        throw FileError(file, heads.line, 0,
                        "there is no column \"key\"; the first line has to name the columns, as "
                        "'headerdtc translations export' writes it");
    const bool hasLanguage = std::any_of(columns.begin(), columns.end(), [](const Column& column) {
        return column.is == Column::Is::Locale && column.locale != SourceLocale;
    });
    if (!hasLanguage)
        throw FileError(
            file, heads.line, 0,
            "there is no column of a language; the head of one is its locale, like 1031");
    return columns;
}

TranslationFile::Row rowOf(const CsvRecord& record, const std::vector<Column>& columns) {
    TranslationFile::Row row;
    row.line = record.line;
    row.overflows =
        std::any_of(record.cells.begin() +
                        static_cast<std::ptrdiff_t>(std::min(columns.size(), record.cells.size())),
                    record.cells.end(), [](const std::string& cell) { return !isBlank(cell); });
    for (std::size_t i = 0; i < std::min(columns.size(), record.cells.size()); ++i) {
        const std::string& cell = record.cells[i];
        switch (columns[i].is) {
            case Column::Is::Key:
                row.label = cell;
                break;
            case Column::Is::Source:
                row.source = cell;
                break;
            case Column::Is::Locale:
                row.texts.emplace(columns[i].locale, cell);
                break;
            case Column::Is::State:
                row.states = statesIn(cell);
                break;
            case Column::Is::Other:
                break;
        }
    }
    return row;
}

}  // namespace

std::string localeNumber(std::string_view text) {
    const bool isNumber = text.size() <= 9 && std::ranges::all_of(text, ascii::isDigit);
    const auto first = text.find_first_not_of('0');
    return isNumber && first != std::string_view::npos ? std::string(text.substr(first)) : "";
}

std::string textFingerprint(const std::string* text) {
    if (!text) return NoText;
    // FNV-1a: the same everywhere, and small enough for a cell that nobody reads.
    std::uint32_t hash = 2166136261U;
    for (const char c : *text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08x", hash);
    return digits;
}

TranslationFile TranslationFile::parse(const std::string& file, std::string_view text) {
    const auto records = readCsv(file, text);
    if (records.empty()) throw FileError(file, "there is nothing in it");
    const auto columns = columnsOf(file, records.front());
    TranslationFile result;
    for (const Column& column : columns) {
        if (column.is == Column::Is::Locale && column.locale != SourceLocale)
            result.locales.push_back(column.locale);
        result.hasStates = result.hasStates || column.is == Column::Is::State;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& head = records.front().cells[i];
        if (columns[i].is == Column::Is::Other && !isBlank(head) &&
            !equalIgnoringCase(trimBlanks(head), Comment))
            result.passedOver.push_back(head);
    }
    for (std::size_t i = 1; i < records.size(); ++i) {
        // Spreadsheets write the rows below the table that somebody has once been in.
        const auto& cells = records[i].cells;
        if (std::all_of(cells.begin(), cells.end(), isBlank)) continue;
        Row row = rowOf(records[i], columns);
        // The source's locale may head its column too.
        if (const auto source = row.texts.extract(SourceLocale); source && !row.source)
            row.source = source.mapped();
        result.rows.push_back(std::move(row));
    }
    return result;
}

std::string exportTranslations(const TranslationTable& table, const ExportOptions& options) {
    std::vector<std::string> heads{std::string(Key),
                                   std::string(Source) + " (" + SourceLocale + ")"};
    heads.insert(heads.end(), options.locales.begin(), options.locales.end());
    heads.emplace_back(Comment);
    heads.emplace_back(State);
    std::string text(options.byteOrderMark ? utf8::ByteOrderMark : "");
    text += csvRecord(heads);
    for (const auto& [label, entry] : table.entries) {
        const std::string* source = entry.text(SourceLocale);
        if (!source) continue;
        const bool hasGap =
            std::any_of(options.locales.begin(), options.locales.end(),
                        [&entry = entry](const auto& locale) { return !entry.text(locale); });
        if (options.onlyGaps && !hasGap) continue;
        std::vector<std::string> cells{cellOfText(label), cellOfText(*source)};
        for (const std::string& locale : options.locales) {
            const std::string* translated = entry.text(locale);
            cells.push_back(translated ? cellOfText(*translated) : "");
        }
        std::string comment;
        for (const std::string& place : entry.places)
            comment += (comment.empty() ? "" : "; ") + place;
        cells.push_back(cellOfText(comment));
        cells.push_back(stateOf(entry, options.locales));
        text += csvRecord(cells);
    }
    return text;
}

}  // namespace headerdtc
