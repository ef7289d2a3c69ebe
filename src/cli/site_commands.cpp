#include "cli/site_commands.h"

#include "cli/completion.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

namespace headerdtc::cli {
namespace {

void addJobs(CLI::App& command, int& jobs) {
    command.add_option("-j,--jobs", jobs, "pages done at a time (default: one a core)")
        ->check(CLI::Range(1, 256));
}

void addSitePath(CLI::App& command, std::string& place) {
    command.add_option("PATH", place, "a page or folder of the site (default: this folder)")
        ->check(CLI::ExistingPath);
}

Command addCheck(CLI::App& app, const CommonOptions& common) {
    const auto options = std::make_shared<CheckOptions>();
    auto* command = app.add_subcommand("check", "Look for faults in pages");
    auto* paths =
        addPathList(*command, options->paths, "pages, or folders with pages (*.asp, *.inc)");
    auto* json = command->add_flag("--json", options->json, "one JSON object a finding");
    auto* sarif = command->add_flag("--sarif", options->sarif, "a SARIF 2.1.0 log");
    auto* annotations = command->add_flag("--annotations", options->annotations,
                                          "lines that build servers show beside the page");
    auto* rules = command->add_flag("--rules", options->listRules, "list the rules and end");
    command->add_flag("-q,--quiet", options->quiet, "no progress and no summary");
    addJobs(*command, options->jobs);
    json->excludes(sarif)->excludes(annotations);
    sarif->excludes(annotations);
    rules->excludes(paths);
    command->callback([options, rules] {
        if (rules->count() == 0 && options->paths.empty()) throw CLI::RequiredError("PATH");
    });
    command->footer(
        "Nothing is written. Each finding has its page, line, control, query family, row and "
        "rule,\n"
        "and what to do.\n\n"
        "Exit status: 0 nothing found, 1 something found, 2 wrong usage or configuration,\n"
        "3 at least one page could not be checked.");
    return {command, [&common, options] { return check(common, *options); }};
}

// What is looked for: the one option of them that was given; a provider may also narrow a field.
struct WhereWords {
    WhereOptions options;
    std::string provider, field, include, stylesheet, label;

    void choose() {
        using Kind = WhereQuery::Kind;
        const struct {
            const std::string& value;
            Kind kind;
        } choices[] = {{field, Kind::Field},
                       {include, Kind::Include},
                       {stylesheet, Kind::Stylesheet},
                       {label, Kind::Label},
                       {provider, Kind::Provider}};
        int chosen = 0;
        for (const auto& [value, kind] : choices) {
            if (value.empty()) continue;
            if (kind == Kind::Provider && !field.empty()) {
                options.query.ofProvider = value;
                continue;
            }
            options.query.kind = kind;
            options.query.value = value;
            ++chosen;
        }
        if (chosen != 1)
            throw CLI::ValidationError(
                "name one of --provider, --field, --include, --stylesheet and --label");
    }
};

Command addWhere(CLI::App& app, const CommonOptions& common) {
    const auto words = std::make_shared<WhereWords>();
    auto* command = app.add_subcommand("where", "Tell which pages use something");
    command->add_option("--provider", words->provider,
                        "a data provider; with --field: only that provider's field");
    command->add_option("--field", words->field, "a field, by its name or its whole entry");
    command->add_option("--include", words->include, "an include file, by its path or name")
        ->type_name(FileType);
    command->add_option("--stylesheet", words->stylesheet, "a stylesheet, by its path or name")
        ->type_name(FileType);
    command->add_option("--label", words->label,
                        "a label that translates fields or values (asks the database)");
    addPathList(*command, words->options.paths,
                "pages, or folders with pages (default: this folder)");
    command->add_flag("--json", words->options.json, "one JSON object a place");
    addJobs(*command, words->options.jobs);
    command->callback([words] { words->choose(); });
    command->footer(
        "Names compare without regard to case. A place is told as PAGE:LINE: CONTROL, what it is.");
    return {command, [&common, words] { return where(common, words->options); }};
}

Command addDoctor(CLI::App& app, const CommonOptions& common) {
    const auto options = std::make_shared<DoctorOptions>();
    auto* command = app.add_subcommand("doctor", "Examine the set-up of a site");
    addSitePath(*command, options->place);
    command->add_flag("--json", options->json, "one JSON object a link");
    command->footer(
        "Looks at everything that a site needs, from its configuration to the tables of its\n"
        "translation database, and names the next step for whatever is broken. Writes nothing;\n"
        "passwords are masked, so its output can go into a report.\n\n"
        "Exit status: 0 nothing broken, 1 something broken, 2 wrong usage.");
    return {command, [&common, options] { return doctor(common, *options); }};
}

void addTranslationOptions(CLI::App& command, TranslationOptions& options) {
    command.add_flag("--json", options.json, "one JSON object a finding or cell");
    command
        .add_option("--locale", options.locales,
                    "only this language, by its locale (1031); may be given several times")
        ->allow_extra_args(false)
        ->check(CLI::Range(1, 999999999));
}

// One page is driven over standard input and output; with --over a script is replayed over many.
struct AutomateWords {
    std::vector<std::string> paths;
    bool over = false;
    AutomateOptions page;
    ReplayOptions replay;

    void choose() {
        if (over && paths.size() < 2)
            throw CLI::ValidationError("--over takes pages or folders, then the script");
        if (!over && paths.size() != 1)
            throw CLI::ValidationError("automate takes one page, or --over PATH... SCRIPT");
        replay.control = page.control;
        replay.script = paths.back();
        replay.paths.assign(paths.begin(), paths.end() - 1);
        page.page = paths.front();
    }
};

Command addAutomate(CLI::App& app, const CommonOptions& common) {
    const auto words = std::make_shared<AutomateWords>();
    auto* command =
        app.add_subcommand("automate", "Drive the editor by name: JSON commands on standard input");
    command
        ->add_option("PAGE", words->paths,
                     "the page; with --over: pages or folders, then the script (- for standard\n"
                     "input)")
        ->required();
    command->add_option("--control", words->page.control, "ID of the control");
    auto* over = command->add_flag("--over", words->over, "replay a script over many pages");
    auto* apply = command->add_flag("--apply", words->replay.apply,
                                    "with --over: write the pages, after showing the difference");
    apply->needs(over);
    addJobs(*command, words->replay.jobs);
    command->callback([words] { words->choose(); });
    command->footer(
        "With --over, what the script would save is shown as a difference and, without --apply,\n"
        "nothing is written. Neither the translation database nor any other file is changed.\n"
        "Exit status then: 0 done or nothing to change, 1 pages would be changed, 2 wrong usage "
        "or\n"
        "configuration, 3 a line of the script was refused, or a page could not be done.");
    return {command, [&common, words] {
                return words->over ? replay(common, words->replay) : automate(common, words->page);
            }};
}

std::vector<Command> addTranslations(CLI::App& app, const CommonOptions& common) {
    auto* group = app.add_subcommand("translations", "Check, export and import translated texts");
    group->require_subcommand(1);

    const auto checked = std::make_shared<TranslationOptions>();
    auto* checking = group->add_subcommand("check", "Look for gaps and faults in every language");
    addSitePath(*checking, checked->place);
    addTranslationOptions(*checking, *checked);
    checking->footer(
        "Exit status: 0 nothing found, 1 something found, 2 wrong usage or\n"
        "configuration, 3 the database cannot be read.");

    const auto exported = std::make_shared<TranslationExportOptions>();
    auto* exporting = group->add_subcommand("export", "Write the texts as CSV for translators");
    addSitePath(*exporting, exported->common.place);
    exporting
        ->add_option("--locale", exported->common.locales,
                     "a column for this language (1031), also for one that has no text yet;\n"
                     "may be given several times (default: all that there are)")
        ->allow_extra_args(false)
        ->check(CLI::Range(1, 999999999));
    exporting->add_option("-o,--output", exported->output, "the file (default: standard output)")
        ->type_name(FileType);
    exporting->add_flag("--gaps", exported->onlyGaps, "only labels that lack a text");
    exporting->add_flag("--bom", exported->byteOrderMark,
                        "begin with a byte-order mark, by which spreadsheets know UTF-8");

    const auto imported = std::make_shared<TranslationImportOptions>();
    auto* importing = group->add_subcommand("import", "Take edited texts into the database");
    importing->add_option("FILE", imported->file, "the edited CSV file")->required();
    addSitePath(*importing, imported->common.place);
    importing->add_flag("--json", imported->common.json, "one JSON object a cell");
    importing->add_flag("--dry-run", imported->dryRun, "tell what would be done, write nothing");
    importing->add_flag("--skip-refused", imported->skipRefused,
                        "write the other cells where some are refused");
    importing->footer(
        "All is written in one transaction, or nothing. An empty cell removes nothing.\n"
        "Exit status: 0 done, 1 something was refused, 2 wrong usage or configuration,\n"
        "3 file or database cannot be read or written.");

    return {{checking, [&common, checked] { return checkTranslations(common, *checked); }},
            {exporting, [&common, exported] { return exportTranslations(common, *exported); }},
            {importing, [&common, imported] { return importTranslations(common, *imported); }}};
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

std::vector<Command> addCatalogue(CLI::App& app, const CommonOptions& common) {
    auto* group = app.add_subcommand("catalogue", "Compare the catalogue with a live database");
    group->require_subcommand(1);

    const auto checked = std::make_shared<CatalogueOptions>();
    auto* checking = group->add_subcommand("check", "Tell what the database has otherwise");
    addCatalogueOptions(*checking, *checked);
    checking->footer(
        "Exit status: 0 they agree, 1 they differ, 2 wrong usage or configuration,\n"
        "3 the database or the catalogue cannot be read.");

    const auto imported = std::make_shared<CatalogueOptions>();
    auto* importing =
        group->add_subcommand("import", "Make the catalogue, or bring it up to the database");
    addCatalogueOptions(*importing, *imported);
    importing->add_flag("--dry-run", imported->dryRun, "tell what would change, write nothing");
    importing->footer(
        "Tables become record groups, columns numbered fields, primary keys key fields. A field\n"
        "that is there already keeps its number and its spelling, by which pages know it. The\n"
        "database is only read.");

    return {{checking, [&common, checked] { return checkCatalogue(common, *checked); }},
            {importing, [&common, imported] { return importCatalogue(common, *imported); }}};
}

Command addCompletion(CLI::App& app) {
    const auto shell = std::make_shared<std::string>();
    auto* command = app.add_subcommand("completion", "Write completions of this command");
    command->add_option("SHELL", *shell, "bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember(completionShells()));
    return {command, [&app, shell] {
                const std::string script = completionScript(app, *shell);
                std::fwrite(script.data(), 1, script.size(), stdout);
                return Done;
            }};
}

}  // namespace

std::vector<Command> addSiteCommands(CLI::App& app, const CommonOptions& common) {
    std::vector<Command> commands{addCheck(app, common), addWhere(app, common),
                                  addDoctor(app, common), addAutomate(app, common)};
    for (const auto add : {addTranslations, addCatalogue}) {
        for (Command& command : add(app, common))
            commands.push_back(std::move(command));
    }
    commands.push_back(addCompletion(app));
    return commands;
}

}  // namespace headerdtc::cli
