// What the command line tells of itself: help, version, and what a mistyped word may have meant.

#include "cli/command.h"
#include "cli/version.h"
#include "platform/nearest_name.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

namespace headerdtc::cli {
namespace {

// Of an option its value's name alone: what it takes, needs and excludes is in its description.
class PlainHelp : public CLI::Formatter {
  public:
    std::string make_option_opts(const CLI::Option* option) const override {
        std::string text;
        if (option->get_type_size() != 0) {
            const std::string type = option->get_type_name();
            text = " " + type.substr(0, type.find(':'));
            if (option->get_expected_max() == CLI::detail::expected_max_vector_size) text += " ...";
        }
        if (!option->get_envname().empty()) text += " (or " + option->get_envname() + ")";
        return text;
    }
};

std::string unknownOption(const CLI::App* level, const std::string& name) {
    NearestName nearest(name);
    for (const auto* each = level; each; each = each->get_parent()) {
        for (const CLI::Option* option : each->get_options()) {
            for (const std::string& longName : option->get_lnames())
                nearest.offer("--" + longName);
        }
    }
    const std::string of = level->get_parent() ? " of '" + level->get_name() + "'" : "";
    return "there is no option '" + name + "'" + of + nearest.question();
}

std::string unknownCommand(const CLI::App& level, const std::string& name) {
    NearestName nearest(name);
    std::string all;
    for (const CLI::App* command : commandsOf(level)) {
        nearest.offer(command->get_name());
        all += (all.empty() ? "" : ", ") + command->get_name();
    }
    return "there is no command '" + name + "'" +
           (nearest.found().empty() ? "; there are " + all : nearest.question());
}

}  // namespace

void makeHelpPlain(CLI::App& app) {
    app.formatter(std::make_shared<PlainHelp>());
}

std::vector<const CLI::App*> commandsOf(const CLI::App& level) {
    // Those without a group are for programs alone.
    return level.get_subcommands(
        [](const CLI::App* command) { return !command->get_group().empty(); });
}

const CLI::App* findCommand(const CLI::App& level, const std::string& name) {
    for (const CLI::App* command : level.get_subcommands([](const CLI::App*) { return true; })) {
        if (command->get_name() == name) return command;
    }
    return nullptr;
}

const CLI::Option* findOption(const CLI::App* level, const std::string& name) {
    for (; level; level = level->get_parent()) {
        if (const auto* option = level->get_option_no_throw(name)) return option;
    }
    return nullptr;
}

std::string unknownWord(const CLI::App& app, const std::vector<std::string>& words) {
    const CLI::App* level = &app;
    for (auto word = words.begin(); word != words.end() && *word != "--"; ++word) {
        if (word->starts_with("-") && word->size() > 1) {
            const bool isLong = word->starts_with("--");
            const std::string name = word->substr(0, isLong ? word->find('=') : 2);
            const CLI::Option* option = findOption(level, name);
            if (!option) return unknownOption(level, name);
            const bool takesNext = option->get_items_expected_max() > 0 && name == *word;
            if (takesNext && std::next(word) != words.end()) ++word;
        } else if (!commandsOf(*level).empty()) {
            const CLI::App* command = findCommand(*level, *word);
            if (!command) return unknownCommand(*level, *word);
            level = command;
        }
    }
    return {};
}

void addHelp(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App& help = addCommand(app, "help", "Show how a command is used",
                                R"(The same as COMMAND --help; without a command, of all.

Examples:
  headerdtc help check
  headerdtc help translations import

Exit status: 0 done, 2 there is no such command.)");
    help.add_option("COMMAND", *words, "the command");
    help.callback([&app, &line, words] {
        line.run = [&app, &line, words] {
            const std::string unknown = unknownWord(app, *words);
            if (!unknown.empty()) throw UsageError(unknown);
            auto asked = *words;
            asked.emplace_back("--help");
            return obey(app, line, asked);
        };
    });

    CLI::App& version =
        addCommand(app, "version", "Show the version of this program", "Exit status: 0 done.");
    version.callback([&line] {
        line.run = [] {
            std::printf("headerdtc %s\n", Version);
            return Done;
        };
    });
}

}  // namespace headerdtc::cli
