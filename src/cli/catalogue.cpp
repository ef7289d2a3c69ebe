// The commands on the data-source catalogue: check and import.

#include "cli/command.h"
#include "cli/streams.h"
#include "host/catalogue_import/catalogue_merge.h"
#include "host/catalogue_import/database_tables.h"
#include "host/files/file_replacer.h"
#include "host/site/site.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

namespace headerdtc::cli {
namespace {

namespace fs = std::filesystem;

struct CatalogueOptions {
    std::string place = ".";  // page or folder of the site
    std::string connectString;
    std::string file;  // the catalogue; empty: the site's
    TableFilter filter;
    MergeOptions merge;
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

// A catalogue's file beside the database, and what bringing it up to that changes.
struct Comparison {
    fs::path file;
    FileStamp stamp;  // of a file that is not there, when it is not
    MergedCatalogue merged;
};

Comparison compare(const CommonOptions& common, const CatalogueOptions& options) {
    Sites sites(common.only());
    const auto site = sites.forPage(options.place);
    Comparison result;
    result.file = options.file.empty() ? site->configuration->catalogue : fs::path(options.file);
    result.stamp = FileStamp::of(result.file);
    Catalogue before;
    if (result.stamp.size >= 0) {
        WholeFile read = readWholeFile(result.file);
        before = Catalogue::parse(result.file.string(), read.bytes);
        result.stamp = read.stamp;
    }
    result.merged = mergeTables(
        before,
        readDatabaseTables(options.connectString, site->database.settings(), options.filter),
        options.merge);
    return result;
}

void tell(const Comparison& comparison, const char* command, bool json, bool written,
          ExitStatus status) {
    JsonLines lines;
    if (json) lines.begin(command);
    for (const CatalogueChange& change : comparison.merged.changes) {
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
                     {"changes", comparison.merged.changes.size()},
                     {"written", written},
                     {"exitStatus", status}});
}

ExitStatus checkCatalogue(const CommonOptions& common, const CatalogueOptions& options) {
    const Comparison comparison = compare(common, options);
    const ExitStatus status = comparison.merged.changes.empty() ? Done : CheckFoundSomething;
    tell(comparison, "catalogue check", options.json, false, status);
    return status;
}

ExitStatus importCatalogue(const CommonOptions& common, const CatalogueOptions& options) {
    const Comparison comparison = compare(common, options);
    const bool isWanted = !options.dryRun && !comparison.merged.changes.empty();
    if (isWanted)
        writeWholeFile(comparison.file, catalogueText(comparison.merged.catalogue),
                       comparison.stamp);
    tell(comparison, "catalogue import", options.json, isWanted, Done);
    if (!options.json)
        printLine(stderr, comparison.file.string() +
                              (isWanted ? ": written; 'headerdtc check' tells of pages that "
                                          "have what is gone"
                                        : ": nothing was written"));
    return Done;
}

void addCatalogueOptions(CLI::App& command, CatalogueOptions& options) {
    addSitePath(command, options.place);
    command
        .add_option("--connect", options.connectString,
                    "the ODBC connect string of the database (\"DSN=Data;UID=reader\")")
        ->required()
        ->envname("HEADERDTC_CONNECT");
    command.add_option("--catalogue", options.file, "the catalogue (default: the site's)")
        ->type_name(FileType);
    command
        .add_option("--table", options.filter.patterns,
                    "only tables of this name; * and ? stand for any characters; may be given\n"
                    "several times")
        ->allow_extra_args(false);
    command.add_option("--schema", options.filter.schema, "only tables of this schema");
    command.add_flag("--views", options.filter.withViews, "views too");
    command.add_option("--provider", options.merge.provider,
                       "all tables are record groups of this data provider (default: each table\n"
                       "one of its own, or of the one that has it already)");
    command.add_flag("--prune", options.merge.prune,
                     "take out record groups that the database does not have");
    command.add_flag("--json", options.json, "one JSON object a change");
}

}  // namespace

void addCatalogue(CLI::App& app, CommandLine& line) {
    CLI::App& group =
        addCommandGroup(app, "catalogue", "Compare the catalogue with a live database",
                        R"(Examples:
  headerdtc catalogue check --connect DSN=Data site/
  headerdtc help catalogue import          the options of the one that writes

Exit status: 0 done, 1 a difference was found, 2 wrong usage or configuration,
3 the database or the catalogue cannot be read or written.)");

    const auto checked = std::make_shared<CatalogueOptions>();
    CLI::App& checking = addCommand(group, "check", "Tell what the database has otherwise",
                                    R"(Nothing is written.

Examples:
  headerdtc catalogue check --connect "DSN=Data;UID=reader" site/
  HEADERDTC_CONNECT=DSN=Data headerdtc catalogue check --table "ORD*" site/

Exit status: 0 they agree, 1 they differ, 2 wrong usage or configuration,
3 the database or the catalogue cannot be read.)");
    addCatalogueOptions(checking, *checked);
    checking.callback(whenNamed(line, checked, checkCatalogue));

    const auto imported = std::make_shared<CatalogueOptions>();
    CLI::App& importing = addCommand(
        group, "import", "Make the catalogue, or bring it up to the database",
        R"(Tables become record groups, columns numbered fields, primary keys key fields. A field
that is there already keeps its number and its spelling, by which pages know it. The
database is only read.

Examples:
  headerdtc catalogue import --dry-run --connect DSN=Data site/
  headerdtc catalogue import --connect DSN=Data --provider Orders --table "ORD*" site/

Exit status: 0 done, 2 wrong usage or configuration, 3 the database or the catalogue
cannot be read or written.)");
    addCatalogueOptions(importing, *imported);
    importing.add_flag("--dry-run", imported->dryRun, "tell what would change, write nothing");
    importing.callback(whenNamed(line, imported, importCatalogue));
}

}  // namespace headerdtc::cli
