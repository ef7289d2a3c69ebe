// The commands on translations: check, export, import.

#include "cli/baseline.h"
#include "cli/command.h"
#include "cli/page_run.h"
#include "cli/streams.h"
#include "host/files/file_replacer.h"
#include "host/inspection/rules/rule_settings.h"
#include "host/odbc/odbc_connection.h"
#include "host/site/site.h"
#include "host/translations/translation_file.h"
#include "host/translations/translation_import.h"
#include "host/translations/translation_rules.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>

namespace headerdtc::cli {
namespace {

using Action = ImportStep::Action;

// Of all commands on translations, and those of one of them.
struct TranslationOptions {
    std::string place = ".";           // page or folder of the site
    std::vector<std::string> locales;  // empty: all that the database has
    bool json = false;
    BaselineOptions baseline;
    std::string file;  // to be read, or to be written; empty: standard output
    bool onlyGaps = false, byteOrderMark = false;
    bool dryRun = false, skipRefused = false;
};

std::vector<std::string> localesOf(const TranslationTable& table,
                                   const TranslationOptions& options) {
    if (options.locales.empty()) return table.locales;
    std::vector<std::string> locales;
    for (const std::string& locale : options.locales)
        locales.push_back(localeNumber(locale));
    std::sort(locales.begin(), locales.end(), localeLess);
    locales.erase(std::unique(locales.begin(), locales.end()), locales.end());
    std::erase(locales, SourceLocale);
    return locales;
}

TranslationTable readTable(Site& site) {
    return TranslationTable::read(*openTranslations(site.database));
}

// What tells a fault from others.
Baseline::Entry entryOf(const TranslationFault& fault) {
    return {{"locale", fault.locale},
            {"rule", fault.rule},
            {"label", fault.label},
            {"value", fault.text}};
}

// How far one language is.
struct Progress {
    std::size_t texts = 0, missing = 0, faults = 0;
};

std::map<std::string, Progress> progressOf(const TranslationTable& table,
                                           const std::vector<std::string>& locales,
                                           const std::vector<TranslationFault>& all,
                                           const std::vector<TranslationFault>& told) {
    std::map<std::string, Progress> progress;
    for (const std::string& locale : locales) {
        progress[locale].texts = static_cast<std::size_t>(
            std::count_if(table.entries.begin(), table.entries.end(), [&](const auto& entry) {
                return entry.second.text(SourceLocale) && entry.second.text(locale);
            }));
    }
    // A text is missing whether somebody lives with that or not.
    for (const auto* faults : {&all, &told}) {
        for (const TranslationFault& fault : *faults) {
            const auto found = progress.find(fault.locale);
            const bool isMissing = fault.rule == "missing";
            if (found == progress.end() || isMissing != (faults == &all)) continue;
            ++(isMissing ? found->second.missing : found->second.faults);
        }
    }
    return progress;
}

void tellAsText(const std::vector<TranslationFault>& faults,
                const std::map<std::string, Progress>& progress) {
    for (const TranslationFault& fault : faults) {
        std::string place = fault.locale.empty() ? "" : fault.locale + " ";
        if (!fault.label.empty()) place += fault.label + ": ";
        printLine(stdout, place + visible(fault.text) + " [" + std::string(fault.rule) + "]");
    }
    for (const auto& [locale, each] : progress)
        printLine(stdout, locale + ": " + std::to_string(each.texts) + " translated, " +
                              std::to_string(each.missing) + " missing, " +
                              std::to_string(each.faults) + " faults");
}

void tellAsJson(const std::vector<TranslationFault>& faults,
                const std::map<std::string, Progress>& progress, ExitStatus status) {
    JsonLines lines;
    lines.begin("translations check");
    for (const TranslationFault& fault : faults) {
        JsonLines::Json line = {{"type", "finding"}, {"rule", fault.rule}, {"label", fault.label}};
        if (!fault.locale.empty()) line["locale"] = fault.locale;
        line["message"] = fault.text;
        lines.write(line);
    }
    for (const auto& [locale, each] : progress)
        lines.write({{"type", "language"},
                     {"locale", locale},
                     {"translated", each.texts},
                     {"missing", each.missing},
                     {"faults", each.faults}});
    lines.write({{"type", "summary"}, {"findings", faults.size()}, {"exitStatus", status}});
}

// ---- import ------------------------------------------------------------------------------------

const char* wordOf(Action action) {
    switch (action) {
        case Action::None:
            return "unchanged";
        case Action::Add:
            return "added";
        case Action::Change:
            return "changed";
        case Action::Refuse:
            break;
    }
    return "refused";
}

std::size_t count(const std::vector<ImportStep>& plan, Action action) {
    return static_cast<std::size_t>(std::count_if(
        plan.begin(), plan.end(), [&](const ImportStep& step) { return step.action == action; }));
}

void tellAsText(const std::vector<ImportStep>& plan, bool written) {
    const std::size_t added = count(plan, Action::Add), changed = count(plan, Action::Change);
    for (const ImportStep& step : plan) {
        std::string line = "line " + std::to_string(step.line) + ": " + step.label;
        if (!step.locale.empty()) line += " " + step.locale;
        line += std::string(" ") + wordOf(step.action);
        if (step.action == Action::Refuse) line += ": " + step.reason;
        if (step.action == Action::Add) line += ": \"" + visible(step.after) + "\"";
        if (step.action == Action::Change)
            line += ": \"" + visible(step.before) + "\" is now \"" + visible(step.after) + "\"";
        printLine(stdout, line);
    }
    printLine(stdout, std::to_string(added) + " added, " + std::to_string(changed) + " changed, " +
                          std::to_string(count(plan, Action::None)) + " unchanged, " +
                          std::to_string(count(plan, Action::Refuse)) + " refused; " +
                          (written && added + changed > 0 ? "written" : "nothing was written"));
}

void tellAsJson(const std::vector<ImportStep>& plan, bool written, ExitStatus status) {
    JsonLines lines;
    lines.begin("translations import");
    for (const ImportStep& step : plan) {
        JsonLines::Json line = {{"type", "cell"},
                                {"line", step.line},
                                {"label", step.label},
                                {"action", wordOf(step.action)}};
        if (!step.locale.empty()) line["locale"] = step.locale;
        if (step.action == Action::Refuse) {
            line["reason"] = step.reason;
        } else {
            line["before"] = step.before;
            line["after"] = step.after;
        }
        lines.write(line);
    }
    lines.write({{"type", "summary"},
                 {"added", count(plan, Action::Add)},
                 {"changed", count(plan, Action::Change)},
                 {"unchanged", count(plan, Action::None)},
                 {"refused", count(plan, Action::Refuse)},
                 {"written", written},
                 {"exitStatus", status}});
}

ExitStatus checkTranslations(const CommonOptions& common, const TranslationOptions& options) {
    Sites sites(common.only());
    const auto site = siteOf(sites, options.place);
    requireKnownRules(*site->configuration);
    Baseline baseline(options.baseline, "locale");
    const TranslationTable table = readTable(*site);
    const auto locales = localesOf(table, options);
    for (const std::string& locale : locales)
        baseline.lookAt(locale);
    for (const char* everywhere : {"", SourceLocale})
        baseline.lookAt(everywhere);
    const auto all = findTranslationFaults(table, locales);
    auto faults = all;
    std::erase_if(faults, [&](const TranslationFault& fault) {
        return isOff(fault.rule, *site->configuration) || baseline.has(entryOf(fault));
    });
    const auto progress = progressOf(table, locales, all, faults);
    baseline.end(false);
    const ExitStatus status = faults.empty() ? Done : CheckFoundSomething;
    if (options.json) {
        tellAsJson(faults, progress, status);
    } else {
        tellAsText(faults, progress);
    }
    return status;
}

ExitStatus exportTranslations(const CommonOptions& common, const TranslationOptions& options) {
    Sites sites(common.only());
    const TranslationTable table = readTable(*siteOf(sites, options.place));
    const std::string text =
        headerdtc::exportTranslations(table, {.locales = localesOf(table, options),
                                              .onlyGaps = options.onlyGaps,
                                              .byteOrderMark = options.byteOrderMark});
    if (options.file.empty()) {
        std::fwrite(text.data(), 1, text.size(), stdout);
        return Done;
    }
    const std::filesystem::path file(options.file);
    writeWholeFile(file, text, FileStamp::of(file));
    printLine(stdout, options.file);
    return Done;
}

ExitStatus importTranslations(const CommonOptions& common, const TranslationOptions& options) {
    Sites sites(common.only());
    const auto site = siteOf(sites, options.place);
    const auto file = TranslationFile::parse(options.file, readInput(options.file));
    for (const std::string& head : file.passedOver)
        printLine(stderr, options.file + ": the column \"" + visible(head) +
                              "\" is ignored; a language's column is headed by its locale, "
                              "like 1031");
    if (!file.hasStates)
        printLine(stderr, options.file +
                              ": has no column \"state\"; what was changed in the database "
                              "since the export cannot be seen and is overwritten");

    OdbcConnection connection(site->database.settings());
    connection.Open(site->database.settings().connectString, "", "", -1);
    const long longest = longestText(connection);
    // What is read is what is changed: both in one transaction, which is undone unless it is
    // committed.
    connection.BeginTrans();
    const auto plan = planImport(file, TranslationTable::read(connection), longest);
    const std::size_t refused = count(plan, Action::Refuse);
    const bool isWanted = !options.dryRun && (refused == 0 || options.skipRefused);
    if (isWanted) {
        applyImport(connection, options.file, plan, SystemClock().shortDate());
        connection.CommitTrans();
    }
    const ExitStatus status = refused > 0 ? CheckFoundSomething : Done;
    if (options.json) {
        tellAsJson(plan, isWanted, status);
    } else {
        tellAsText(plan, isWanted);
    }
    return status;
}

// ---- the commands ------------------------------------------------------------------------------

// A database that fails leads to what looks further into it.
template <ExitStatus (*command)(const CommonOptions&, const TranslationOptions&)>
ExitStatus guided(const CommonOptions& common, const TranslationOptions& options) try {
    return command(common, options);
} catch (const RuntimeError& error) {
    throw std::runtime_error(std::string(error.what()) + "\n" + FailureLines::WhereToLook);
}

void addLocales(CLI::App& command, TranslationOptions& options, const std::string& description) {
    command.add_option("--locale", options.locales, description)
        ->allow_extra_args(false)
        ->check(CLI::Range(1, 999999999));
}

void addTranslationCheck(CLI::App& group, CommandLine& line) {
    const auto options = std::make_shared<TranslationOptions>();
    CLI::App& command = addCommand(group, "check", "Look for gaps and faults in every language",
                                   R"(Examples:
  headerdtc translations check site/       all languages of a site
  headerdtc translations check --locale 1031 --json

Exit status: 0 nothing found, 1 something found, 2 wrong usage or
configuration, 3 the database cannot be read.)");
    addSitePath(command, options->place);
    command.add_flag("--json", options->json, "one JSON object a finding or cell");
    addLocales(command, *options,
               "only this language, by its locale (1031); may be given several times");
    addBaselineOptions(command, options->baseline);
    command.callback(whenNamed(line, options, guided<checkTranslations>));
}

void addTranslationExport(CLI::App& group, CommandLine& line) {
    const auto options = std::make_shared<TranslationOptions>();
    CLI::App& command = addCommand(group, "export", "Write the texts as CSV for translators",
                                   R"(Examples:
  headerdtc translations export -o texts.csv site/
  headerdtc translations export --gaps --locale 1036 --bom -o french.csv site/

Exit status: 0 done, 2 wrong usage or configuration, 3 the database cannot be read, or
the file not be written.)");
    addSitePath(command, options->place);
    addLocales(command, *options,
               "a column for this language (1031), also for one that has no text yet;\n"
               "may be given several times (default: all that there are)");
    command.add_option("-o,--output", options->file, "the file (default: standard output)")
        ->type_name(FileType);
    command.add_flag("--gaps", options->onlyGaps, "only labels that lack a text");
    command.add_flag("--bom", options->byteOrderMark,
                     "begin with a byte-order mark, by which spreadsheets know UTF-8");
    command.callback(whenNamed(line, options, guided<exportTranslations>));
}

void addTranslationImport(CLI::App& group, CommandLine& line) {
    const auto options = std::make_shared<TranslationOptions>();
    CLI::App& command =
        addCommand(group, "import", "Take edited texts into the database",
                   R"(All is written in one transaction, or nothing. An empty cell removes nothing.

Examples:
  headerdtc translations import --dry-run texts.csv site/
  headerdtc translations import texts.csv site/

Exit status: 0 done, 1 something was refused, 2 wrong usage or configuration,
3 file or database cannot be read or written.)");
    command.add_option("FILE", options->file, "the edited CSV file")->required();
    addSitePath(command, options->place);
    command.add_flag("--json", options->json, "one JSON object a cell");
    command.add_flag("--dry-run", options->dryRun, "show what would be done, write nothing");
    command.add_flag("--skip-refused", options->skipRefused,
                     "write the other cells where some are refused");
    command.callback(whenNamed(line, options, guided<importTranslations>));
}

}  // namespace

void addTranslations(CLI::App& app, CommandLine& line) {
    CLI::App& group =
        addCommandGroup(app, "translations", "Check, export and import translated texts",
                        R"(Examples:
  headerdtc translations check site/       gaps and faults in every language
  headerdtc translations export -o texts.csv site/
  headerdtc translations import texts.csv site/

Exit status: 0 done, 1 something was found or refused, 2 wrong usage or configuration,
3 the database or a file cannot be read or written.)");
    addTranslationCheck(group, line);
    addTranslationExport(group, line);
    addTranslationImport(group, line);
}

}  // namespace headerdtc::cli
