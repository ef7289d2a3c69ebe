// The commands on the data-source catalogue: check and import.

#include "cli/json_lines.h"
#include "cli/output.h"
#include "cli/site_commands.h"
#include "host/catalogue_import/catalogue_text.h"
#include "host/files/file_replacer.h"
#include "host/files/whole_file.h"
#include "host/site/site.h"

#include <filesystem>

namespace headerdtc::cli {
namespace {

namespace fs = std::filesystem;

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

void write(const Comparison& comparison) {
    const std::string text = catalogueText(comparison.merged.catalogue);
    if (comparison.stamp.size >= 0)
        return replaceWholeFile(comparison.file, text, comparison.stamp);
    FileReplacer replacer;
    replacer.create(comparison.file, text);
    const std::string problem = replacer.commit().front().problem;
    if (!problem.empty()) throw FileError(comparison.file.string(), problem);
}

}  // namespace

int checkCatalogue(const CommonOptions& common, const CatalogueOptions& options) {
    return guarded([&] {
        const Comparison comparison = compare(common, options);
        const ExitStatus status = comparison.merged.changes.empty() ? Done : CheckFoundSomething;
        tell(comparison, "catalogue check", options.json, false, status);
        return status;
    });
}

int importCatalogue(const CommonOptions& common, const CatalogueOptions& options) {
    return guarded([&] {
        const Comparison comparison = compare(common, options);
        const bool isWanted = !options.dryRun && !comparison.merged.changes.empty();
        if (isWanted) write(comparison);
        tell(comparison, "catalogue import", options.json, isWanted, Done);
        if (!options.json)
            printLine(stderr, comparison.file.string() +
                                  (isWanted ? ": written; 'headerdtc check' tells of pages that "
                                              "have what is gone"
                                            : ": nothing was written"));
        return Done;
    });
}

}  // namespace headerdtc::cli
