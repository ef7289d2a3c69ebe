// The commands on the data-source catalogue: check and import.

#include "cli/command.h"
#include "cli/streams.h"
#include "host/catalogue_import/catalogue_list.h"
#include "host/catalogue_import/catalogue_merge.h"
#include "host/catalogue_import/database_tables.h"
#include "host/files/file_replacer.h"
#include "host/site/site.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace headerdtc::cli {
namespace {

namespace fs = std::filesystem;

struct CatalogueOptions {
    std::string place = ".";  // page or folder of the site
    std::string list;         // a file of fields; empty: a database is asked
    std::string connectString;
    std::vector<std::string> tables;
    bool json = false;
    bool dryRun = false;
};

const char* wordOf(CatalogueChange::Kind kind) {
    switch (kind) {
        case CatalogueChange::Kind::Added:
            return "added";
        case CatalogueChange::Kind::Removed:
            return "removed";
        case CatalogueChange::Kind::Changed:
            break;
    }
    return "changed";
}

// A site's catalogue, and what a list or a database makes of it.
struct Comparison {
    fs::path file;
    FileStamp stamp;  // of a file that is not there, when it is not
    Catalogue merged;
    std::vector<CatalogueChange> changes;
};

Comparison compare(const CommonOptions& common, const CatalogueOptions& options) {
    if (options.list.empty() && options.connectString.empty())
        throw UsageError("name the source of the fields: --list FILE or --connect STRING");
    Sites sites(common.only());
    const auto site = siteOf(sites, options.place);
    Comparison result;
    result.file = site->configuration->catalogue;
    result.stamp = FileStamp::of(result.file);
    Catalogue before;
    if (result.stamp.size >= 0) {
        WholeFile read = readWholeFile(result.file);
        before = Catalogue::parse(result.file.string(), read.bytes);
        result.stamp = read.stamp;
    }
    result.merged =
        options.list.empty()
            ? mergeTables(before, readDatabaseTables(options.connectString,
                                                     site->database.settings(), options.tables))
            : mergeList(before, readCatalogueList(options.list, readInput(options.list)));
    result.changes = changesBetween(before, result.merged);
    return result;
}

void tell(const Comparison& comparison, const char* command, bool json, bool written,
          ExitStatus status) {
    JsonLines lines;
    if (json) lines.begin(command);
    for (const CatalogueChange& change : comparison.changes) {
        if (json) {
            lines.write({{"type", "change"},
                         {"change", wordOf(change.kind)},
                         {"provider", change.provider},
                         {"what", change.what}});
        } else {
            printLine(stdout, std::string(1, static_cast<char>(change.kind)) + " " +
                                  change.provider + ": " + change.what);
        }
    }
    if (json)
        lines.write({{"type", "summary"},
                     {"catalogue", comparison.file.string()},
                     {"changes", comparison.changes.size()},
                     {"written", written},
                     {"exitStatus", status}});
}

ExitStatus checkCatalogue(const CommonOptions& common, const CatalogueOptions& options) {
    const Comparison comparison = compare(common, options);
    const ExitStatus status = comparison.changes.empty() ? Done : CheckFoundSomething;
    tell(comparison, "catalogue check", options.json, false, status);
    return status;
}

ExitStatus importCatalogue(const CommonOptions& common, const CatalogueOptions& options) {
    const Comparison comparison = compare(common, options);
    const bool isWanted = !options.dryRun && !comparison.changes.empty();
    if (isWanted)
        writeWholeFile(comparison.file, catalogueText(comparison.merged), comparison.stamp);
    tell(comparison, "catalogue import", options.json, isWanted, Done);
    if (!options.json)
        printLine(stderr, comparison.file.string() +
                              (isWanted ? ": written; 'headerdtc check' finds pages that "
                                          "use what is gone"
                                        : ": nothing was written"));
    return Done;
}

void addCatalogueOptions(CLI::App& command, CatalogueOptions& options) {
    addSitePath(command, options.place);
    auto* list =
        command
            .add_option("--list", options.list,
                        "a list of the fields: CSV with the columns provider, family, group,\n"
                        "number, field, key (- for standard input)")
            ->type_name(FileType);
    command
        .add_option("--connect", options.connectString,
                    "the ODBC connect string of a database (\"DSN=Data;UID=reader\"), where no\n"
                    "list is given")
        ->envname("HEADERDTC_CONNECT");
    command
        .add_option("--table", options.tables,
                    "only tables and views of this name, or SCHEMA.NAME; * and ? stand for any\n"
                    "characters; may be given several times")
        ->allow_extra_args(false)
        ->excludes(list);
    command.add_flag("--json", options.json, "one JSON object a change");
}

}  // namespace

void addCatalogue(CLI::App& app, CommandLine& line) {
    CLI::App& group =
        addCommandGroup(app, "catalogue", "Compare the catalogue with a list or a live database",
                        R"(Examples:
  headerdtc catalogue import --list fields.csv site/
  headerdtc catalogue check --connect DSN=Data site/

Exit status: 0 done, 1 a difference was found, 2 wrong usage or configuration,
3 list, database or catalogue cannot be read or written.)");

    const auto checked = std::make_shared<CatalogueOptions>();
    CLI::App& checking =
        addCommand(group, "check", "Show how a list or database differs from the catalogue",
                   R"(Nothing is written.

Examples:
  headerdtc catalogue check --list fields.csv site/
  headerdtc catalogue check --connect "DSN=Data;UID=reader" --table "ORD*" site/

Exit status: 0 they agree, 1 they differ, 2 wrong usage or configuration,
3 list, database or catalogue cannot be read.)");
    addCatalogueOptions(checking, *checked);
    checking.callback(whenNamed(line, checked, checkCatalogue));

    const auto imported = std::make_shared<CatalogueOptions>();
    CLI::App& importing = addCommand(
        group, "import", "Make the catalogue, or bring it up to date",
        R"(From a list, each family of each data provider is taken as it stands there. From a database,
tables become record groups, columns numbered fields, primary keys key fields; a field that is
there already keeps its number and its spelling, by which pages know it. The database is only
read. Data providers that the source does not have stay as they are.

Examples:
  headerdtc catalogue import --list fields.csv site/
  headerdtc catalogue import --dry-run --connect DSN=Data --table "ORD*" site/

Exit status: 0 done, 2 wrong usage or configuration, 3 list, database or catalogue
cannot be read or written.)");
    addCatalogueOptions(importing, *imported);
    importing.add_flag("--dry-run", imported->dryRun, "show what would change, write nothing");
    importing.callback(whenNamed(line, imported, importCatalogue));
}

}  // namespace headerdtc::cli
