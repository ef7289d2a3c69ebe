// Sets up a site: asks what it is to be like, makes it, and examines it.

#include "cli/command.h"
#include "cli/streams.h"
#include "host/doctor/doctor.h"
#include "host/setup/site_setup.h"
#include "host/site/site_configuration.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>

namespace headerdtc::cli {
namespace {

namespace fs = std::filesystem;

struct InitOptions {
    SiteSetup setup;
    std::string folder = ".";
    std::vector<std::string> drives = {"C=drive_c"};
    bool yes = false;
    bool json = false;
    // What is asked for in the words of an option that was not given.
    struct Question {
        const CLI::Option* option;
        std::string* answer;
    };
    std::vector<Question> questions;
};

void ask(const InitOptions::Question& question) {
    std::fprintf(stderr, "%s [%s]: ", question.option->get_description().c_str(),
                 question.answer->c_str());
    std::fflush(stderr);
    std::string line;
    if (!std::getline(std::cin, line))
        throw UsageError("there is no answer; --yes takes what stands in brackets");
    if (!line.empty()) *question.answer = line;
}

void askForTheRest(InitOptions& options) {
    if (!isTerminal(stdin))
        throw UsageError(
            "the input is no terminal, so nothing can be asked; --yes takes the defaults for what "
            "no option says");
    const SiteSetup& setup = options.setup;
    for (const auto& question : options.questions) {
        std::error_code ignored;
        const bool isKnown = question.answer == &setup.installDirectory &&
                             fs::exists(setup.folder / setup.registry, ignored);
        if (question.option->count() == 0 && !isKnown) ask(question);
    }
}

bool isDriveLetter(char letter) {
    return letter >= 'A' && letter <= 'Z';
}

void takeDrives(const InitOptions& options, SiteSetup& setup) {
    setup.drives.clear();
    for (const std::string& drive : options.drives) {
        if (drive.size() < 3 || drive[1] != '=' || !isDriveLetter(drive[0]))
            throw UsageError("the drive '" + drive +
                             "' is no capital letter with a folder, C=FOLDER");
        setup.drives[drive[0]] = drive.substr(2);
    }
    const std::string& directory = setup.installDirectory;
    if (directory.size() < 4 || directory.substr(1, 2) != ":\\" || !isDriveLetter(directory[0]))
        throw UsageError("the install directory '" + directory +
                         "' is no Windows path with a drive, such as C:\\Sites\\Main");
}

std::string_view outcomeOf(const SetupPart& part) {
    if (!part.problem.empty()) return "failed";
    return part.isNew ? "made" : "kept";
}

void tellParts(const std::vector<SetupPart>& parts, JsonLines* lines) {
    std::vector<Row> rows;
    for (const SetupPart& part : parts) {
        const std::string file = part.file.string();
        if (lines) {
            JsonLines::Json line = {
                {"type", "part"}, {"part", part.part}, {"file", file}, {"status", outcomeOf(part)}};
            if (!part.problem.empty()) line["problem"] = part.problem;
            lines->write(line);
        } else {
            rows.push_back({std::string(outcomeOf(part)), part.part,
                            file + (part.problem.empty() ? "" : ": " + part.problem), ""});
        }
    }
    if (lines) return;
    printRows(rows);
    printLine(stdout, "");
}

ExitStatus init(const CommonOptions& common, InitOptions& options) {
    if (!common.configuration.empty())
        throw UsageError(
            "init makes the headerdtc.toml of a folder; leave out --config, and HEADERDTC_CONFIG");
    SiteSetup& setup = options.setup;
    setup.folder = options.folder;
    std::error_code ignored;
    if (!fs::exists(setup.folder / "headerdtc.toml", ignored)) {
        if (const auto above = findSiteConfiguration(setup.folder))
            printMessage(options.folder, "its pages belong to the site of " + above->string() +
                                             " so far; from now on they have one of their own");
        if (!options.yes) askForTheRest(options);
    }
    takeDrives(options, setup);

    JsonLines lines;
    JsonLines* const asJson = options.json ? &lines : nullptr;
    if (asJson) lines.begin("init");
    const auto parts = setUpSite(setup);
    tellParts(parts, asJson);
    const auto failed = std::count_if(parts.begin(), parts.end(),
                                      [](const auto& part) { return !part.problem.empty(); });
    const std::size_t broken = tellLinks(examineSite(setup.folder, "", ""), asJson);
    const ExitStatus status = failed > 0 ? PageNotDone : broken > 0 ? CheckFoundSomething : Done;
    if (asJson)
        lines.write({{"type", "summary"},
                     {"parts", parts.size()},
                     {"failed", failed},
                     {"broken", broken},
                     {"exitStatus", status}});
    return status;
}

}  // namespace

void addInit(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<InitOptions>();
    SiteSetup& setup = options->setup;
    CLI::App& command = addCommand(
        app, "init", "Set up a site in a folder",
        R"(Asks for whatever no option says, makes headerdtc.toml and the files and folders that it
names, and ends with what 'headerdtc doctor' says of them. What is there already stays as it
is. A site whose suite is not at hand starts with a template, a stylesheet and a catalogue of
one example.

Examples:
  headerdtc init                           asks, in this folder
  headerdtc init --yes site                all that is asked for as it stands in brackets
  headerdtc init --yes --registry suite.reg --drive C=/mnt/suite site
  headerdtc init --yes --catalogue "DSN=Data;UID=reader" --translations "DSN=Texts" site

Exit status: 0 done, 1 something is broken yet, 2 wrong usage, 3 something could not be made.)");
    command.add_option("FOLDER", options->folder, "where headerdtc.toml belongs (default: here)");
    const auto asked = [&](const std::string& name, std::string& answer,
                           const std::string& description) {
        options->questions.push_back({command.add_option(name, answer, description), &answer});
    };
    asked("--root", setup.root, "folder of the pages");
    CLI::Option* const drives =
        command
            .add_option("--drive", options->drives,
                        "folder that a drive of the suite leads to; may be given several times")
            ->allow_extra_args(false);
    options->questions.push_back({drives, &options->drives.front()});
    asked("--registry", setup.registry, "registry export that says where the suite is installed");
    asked("--install-dir", setup.installDirectory,
          "install directory, for a registry export that is not there yet");
    asked("--catalogue", setup.catalogueSource,
          "list of the fields (CSV), or connect string of a database with them");
    asked("--translations", setup.translations,
          "SQLite file of the translations, or a connect string");
    command.add_flag("-y,--yes", options->yes, "ask nothing: the defaults for what no option says");
    command.add_flag("--json", options->json, "one JSON object a part and a link");
    command.callback(
        [&line, options] { line.run = [&line, options] { return init(line.common, *options); }; });
}

}  // namespace headerdtc::cli
