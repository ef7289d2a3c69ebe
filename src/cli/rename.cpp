#include "host/rename/rename.h"

#include "cli/command.h"
#include "cli/page_changes.h"
#include "cli/streams.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <set>
#include <stdexcept>

namespace headerdtc::cli {
namespace {

using Outcome = PageChange::Outcome;
using Json = JsonLines::Json;

struct RenameOptions {
    PageRunOptions run;
    std::vector<std::string> provider;  // old, new
    std::vector<std::string> field;     // of which provider, old, new
    bool apply = false, dryRun = false;
    bool translations = false;
    bool json = false;
    Renaming renaming;

    void choose() {
        if (run.paths.empty()) throw CLI::RequiredError("PATH");
        if (provider.empty() == field.empty())
            throw CLI::ValidationError("name one of --provider and --field");
        try {
            renaming = field.empty() ? Renaming::ofProvider(provider[0], provider[1])
                                     : Renaming::ofField(field[0], field[1], field[2]);
        } catch (const std::invalid_argument& error) {
            throw UsageError(error.what());
        }
    }
};

class Rename {
  public:
    Rename(Sites& sites, const RenameOptions& options)
        : sites_(sites),
          options_(options),
          lines_(begun(options.json)),
          changes_(sites, options.run, {.apply = options.apply, .showsDifferences = !options.json},
                   [this](auto& page, auto& failure) { say(page, failure); }) {}

    ExitStatus run() {
        const bool isWhole = changes_.over<PageRenaming>(
            [&](const std::filesystem::path& page) {
                return renameInPage(page, sites_, options_.renaming);
            },
            [&](const PageRun::Page& page, const PageRenaming& renamed) { tell(page, renamed); });
        const bool isWritten = isWhole && write() && options_.apply;
        const ExitStatus status = isWhole ? changes_.status() : Interrupted;
        const PageTotals& totals = changes_.totals();
        if (options_.json) {
            lines_.write({{"type", "summary"},
                          {"pages", totals.pages},
                          {"changed", totals.found},
                          {"failed", totals.failed},
                          {"written", isWritten},
                          {"exitStatus", status}});
        } else if (isWhole && isWritten == options_.apply && !options_.run.quiet) {
            printLine(stderr, changes_.summary());
        }
        return status;
    }

  private:
    // Paths that cannot be looked into are told at once.
    static JsonLines begun(bool json) {
        JsonLines lines;
        if (json) lines.begin("rename");
        return lines;
    }

    void say(const std::string& page, const PageFailure& failure) {
        if (!options_.json) return failures_.print(page, failure);
        lines_.write({{"type", "failure"}, {"page", page}, {"message", failure.text}});
    }

    void tell(const PageRun::Page& page, const PageRenaming& renamed) {
        if (renamed.outcome == Outcome::Changed || renamed.outcome == Outcome::Unchanged)
            sitesOfPages_.insert(sites_.forPage(page.name));
        if (renamed.outcome == Outcome::Changed && options_.json)
            lines_.write(jsonOf(page.name, renamed));
        if (renamed.outcome == Outcome::NoControl && page.named)
            printMessage(page.name, HoldsNoControl);
        for (const std::string& message : renamed.messages)
            if (!options_.json) printMessage(page.name, message);
    }

    static Json jsonOf(const std::string& page, const PageRenaming& renamed) {
        Json names = Json::array();
        for (const auto& [control, text] : renamed.names)
            names.push_back({{"control", control},
                             {"property", text.property},
                             {"before", text.before},
                             {"after", text.after}});
        return {{"type", "page"},
                {"page", page},
                {"names", std::move(names)},
                {"script", renamed.isGenerated ? "generated" : "left"},
                {"messages", renamed.messages}};
    }

    // The tables are changed before any page is written, and that is made to last when all pages
    // were: whatever fails, pages and tables do not part. False: no page could be written.
    bool write() {
        std::vector<std::pair<std::string, std::unique_ptr<TranslationRenaming>>> tables;
        for (const auto& site : sitesOfPages_) {
            if (changes_.totals().found > 0) warn(*site);
            if (!options_.translations) continue;
            const std::string place = (site->configuration->folder / "headerdtc.toml").string();
            try {
                auto table =
                    std::make_unique<TranslationRenaming>(site->database, options_.renaming);
                if (options_.apply) table->write();
                tables.emplace_back(place, std::move(table));
            } catch (const std::exception& error) {
                changes_.fail(place, std::string("no page is written, because the translations "
                                                 "cannot be renamed: ") +
                                         error.what());
                return false;
            }
        }
        changes_.write();
        const bool isKept = options_.apply && changes_.totals().failed > 0;
        if (isKept && !tables.empty())
            printLine(stderr, "the translations stay as they are, because not every page was done");
        for (const auto& [place, table] : tables) {
            if (isKept) break;
            if (options_.apply) table->commit();
            tell(place, *table);
        }
        return true;
    }

    // Whoever renames in the pages alone is told of what is left to do.
    void warn(Site& site) {
        const std::string lacking = missingInCatalogue(site, options_.renaming);
        if (!lacking.empty()) printLine(stderr, lacking + "; the pages need it there too");
    }

    void tell(const std::string& place, const TranslationRenaming& tables) {
        if (options_.json)
            return lines_.write({{"type", "translations"},
                                 {"configuration", place},
                                 {"names", tables.names()},
                                 {"values", tables.values()}});
        printMessage(place, counted(tables.names(), "translated name") + " and " +
                                counted(tables.values(), "translated value") +
                                (options_.apply ? " renamed" : " would be renamed"));
    }

    Sites& sites_;
    const RenameOptions& options_;
    FailureLines failures_;
    JsonLines lines_;
    PageChanges changes_;
    std::set<std::shared_ptr<Site>> sitesOfPages_;
};

ExitStatus rename(const CommonOptions& common, const RenameOptions& options) {
    Sites sites(common.only());
    return Rename(sites, options).run();
}

}  // namespace

void addRename(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<RenameOptions>();
    CLI::App& command = addCommand(
        app, "rename", "Give a data provider or field its new name in many pages",
        R"(What the pages store is changed, wherever the name stands, and the script with it, if it was up
to date. What would change is shown as a difference; nothing is written without --apply. The
catalogue may have the old or the new name by now.

Examples:
  headerdtc rename --provider Orders Sales site/
  headerdtc rename --field Orders CITY TOWN --apply site/
  headerdtc rename --field Orders ' 9 - CITY' '12 - TOWN' site/
  headerdtc rename --provider Orders Sales --translations --apply site/

Exit status: 0 done or nothing to change, 1 pages would be changed, 2 wrong usage or
configuration, 3 a page or the database could not be done, 130 interrupted, nothing written.)");
    command
        .add_option("--provider", options->provider,
                    "a data provider, by its old and its new name, chosen or linked")
        ->type_name("OLD NEW")
        ->expected(2)
        ->allow_extra_args(false);
    command
        .add_option("--field", options->field,
                    "a field of a data provider, by its old and its new name, or by the whole\n"
                    "entries (\"9 - CITY\", ADDRESS.CITY)")
        ->type_name("PROVIDER OLD NEW")
        ->expected(3)
        ->allow_extra_args(false);
    addPathList(command, options->run.paths, "pages, or folders with pages (*.asp, *.inc)");
    auto* apply = command.add_flag("--apply", options->apply,
                                   "write the pages, after showing the difference");
    command.add_flag("--dry-run", options->dryRun, "only show the difference (the default)")
        ->excludes(apply);
    command.add_flag("--translations", options->translations,
                     "rename in the translation tables too, all or nothing");
    command.add_flag("--json", options->json,
                     "one JSON object a page, in the place of the difference");
    addRunOptions(command, options->run);
    command.callback([&line, options] {
        options->choose();
        line.run = [&line, options] { return rename(line.common, *options); };
    });
}

}  // namespace headerdtc::cli
