#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace headerdtc {
struct Diagnosis;
class Site;
class Sites;
}  // namespace headerdtc

namespace headerdtc::cli {

class JsonLines;

// Exit status of the command.
enum ExitStatus : int {
    Done = 0,
    CheckFoundSomething = 1,
    WrongUsage = 2,   // wrong usage or configuration
    PageNotDone = 3,  // at least one page could not be done
    Interrupted = 130,
};

// Options that every command takes.
struct CommonOptions {
    std::string configuration;  // path of a headerdtc.toml; empty: looked for beside the page
    std::optional<std::filesystem::path> only() const {
        if (configuration.empty()) return std::nullopt;
        return configuration;
    }
};

// What the words of a command line ask for.
struct CommandLine {
    CommonOptions common;
    // What the command that was named does: results on standard output, everything else on standard
    // error. What it throws becomes a line there and an exit status.
    std::function<ExitStatus()> run;
};

// What a command does when it is named, with its options.
template <class Options>
std::function<void()> whenNamed(CommandLine& line, const std::shared_ptr<Options>& options,
                                ExitStatus (*run)(const CommonOptions&, const Options&)) {
    return [&line, options, run] {
        line.run = [&line, options, run] { return run(line.common, *options); };
    };
}

// The words do not fit the command: WrongUsage.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The type name of options whose value is a file.
inline constexpr const char* FileType = "FILE";

// Adds a command, or a group of them. `footer` is the end of its help: what it does in more words,
// examples, exit statuses.
CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& footer);
CLI::App& addCommandGroup(CLI::App& app, const std::string& name, const std::string& description,
                          const std::string& footer);

// Adds the page or folder by which commands on a site find it.
void addSitePath(CLI::App& command, std::string& place);

// The site of the one page or folder that a command is about. Where no headerdtc.toml holds, that
// is said first. Throws ConfigurationError.
std::shared_ptr<Site> siteOf(Sites& sites, const std::filesystem::path& place);

// Tells the links of a site's set-up, in words or as JSON lines; gives how many are broken.
std::size_t tellLinks(const std::vector<Diagnosis>& links, JsonLines* lines);

// Reads the words of a command line and does what they ask for.
ExitStatus obey(CLI::App& app, CommandLine& line, const std::vector<std::string>& words);

// Leaves out of the help what the library adds to options. Before any command is added.
void makeHelpPlain(CLI::App& app);

// What the command line has at a place; nullptr where it has no such thing. Options are looked for
// in a command and in those above it, as they are when they are read.
std::vector<const CLI::App*> commandsOf(const CLI::App& level);
const CLI::App* findCommand(const CLI::App& level, const std::string& name);
const CLI::Option* findOption(const CLI::App* level, const std::string& name);

// The first of the words of a command line that is no command or no option where it stands, said in
// a sentence, with the one that may have been meant; empty when all are known.
std::string unknownWord(const CLI::App& app, const std::vector<std::string>& words);

// The commands. Each has a file of its own, which adds its name, options and help, and sets `run`
// when it is named.
void addAutomate(CLI::App& app, CommandLine& line);
void addCatalogue(CLI::App& app, CommandLine& line);
void addCheck(CLI::App& app, CommandLine& line);
void addCompletion(CLI::App& app, CommandLine& line);  // and what shells ask
void addDoctor(CLI::App& app, CommandLine& line);
void addEdit(CLI::App& app, CommandLine& line);
void addExplain(CLI::App& app, CommandLine& line);
void addGenerate(CLI::App& app, CommandLine& line);
void addHelp(CLI::App& app, CommandLine& line);  // and version
void addInit(CLI::App& app, CommandLine& line);
void addNew(CLI::App& app, CommandLine& line);
void addRename(CLI::App& app, CommandLine& line);
void addReport(CLI::App& app, CommandLine& line);
void addShow(CLI::App& app, CommandLine& line);
void addTranslations(CLI::App& app, CommandLine& line);
void addWhere(CLI::App& app, CommandLine& line);

}  // namespace headerdtc::cli
