#include "cli/completion.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace headerdtc::cli {
namespace {

// One command with its options, as completions see it.
struct Word {
    std::string text, description;
    bool takesValue = false;
    bool takesFile = false;
};
struct Level {
    std::string path;  // "translations import"; empty: the program itself
    std::vector<Word> commands, options;
};

// Descriptions go into scripts between single quotes, one line each.
std::string plain(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    for (const char* const special : {"'", "`", "$", "\\", "\"", "[", "]", ":"})
        text.erase(std::remove(text.begin(), text.end(), *special), text.end());
    return text;
}

void addOptions(const CLI::App& app, Level& level) {
    for (const CLI::Option* option : app.get_options()) {
        const bool takesValue = option->get_items_expected_max() > 0;
        const auto add = [&](const std::string& name) {
            level.options.push_back({name, plain(option->get_description()), takesValue,
                                     takesValue && option->get_type_name() == FileType});
        };
        for (const std::string& name : option->get_lnames())
            add("--" + name);
        for (const std::string& name : option->get_snames())
            add("-" + name);
    }
}

void addLevels(const CLI::App& app, const std::string& path, std::vector<Level>& levels) {
    Level level{path, {}, {}};
    addOptions(app, level);
    const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* command : commands)
        level.commands.push_back({command->get_name(), plain(command->get_description())});
    levels.push_back(std::move(level));
    for (const CLI::App* command : commands)
        addLevels(*command, path.empty() ? command->get_name() : path + " " + command->get_name(),
                  levels);
}

std::vector<Level> levelsOf(const CLI::App& app) {
    std::vector<Level> levels;
    addLevels(app, "", levels);
    return levels;
}

std::string joined(const std::vector<Word>& words) {
    std::string text;
    for (const Word& word : words)
        text += (text.empty() ? "" : " ") + word.text;
    return text;
}

// "translations import" as the name of a function or as a pattern of words.
std::string withUnderscores(std::string path) {
    std::replace(path.begin(), path.end(), ' ', '_');
    return path;
}

// ---- bash --------------------------------------------------------------------------------------

std::string named(const std::vector<Word>& words, bool Word::*which) {
    std::vector<Word> chosen;
    std::copy_if(words.begin(), words.end(), std::back_inserter(chosen),
                 [&](const Word& word) { return word.*which; });
    return joined(chosen);
}

std::string bash(const std::vector<Level>& levels) {
    std::string cases;
    for (const Level& level : levels) {
        cases += "        '" + level.path + "')\n            commands='" + joined(level.commands) +
                 "'\n            options='" + joined(level.options) + "'\n            valued='" +
                 named(level.options, &Word::takesValue) + "'\n            filed='" +
                 named(level.options, &Word::takesFile) + "' ;;\n";
    }
    return "# Completions of headerdtc for bash; headerdtc completion bash writes them.\n"
           "_headerdtc_level() {\n"
           "    case $1 in\n" +
           cases + R"(        *) return 1 ;;
    esac
}
_headerdtc() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local path='' commands options valued filed i
    _headerdtc_level ''
    for ((i = 1; i < COMP_CWORD; i++)); do
        case " $commands " in
            *" ${COMP_WORDS[i]} "*)
                path=${path:+$path }${COMP_WORDS[i]}
                _headerdtc_level "$path" ;;
        esac
    done
    COMPREPLY=()
    if [[ " $filed " == *" $before "* ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    elif [[ " $valued " == *" $before "* ]]; then
        :  # only the author knows
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    elif [[ -n $commands ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -o filenames -F _headerdtc headerdtc
)";
}

// ---- zsh ---------------------------------------------------------------------------------------

std::string zsh(const std::vector<Level>& levels) {
    std::string functions;
    for (const Level& level : levels) {
        const std::string name = std::string("_headerdtc") + (level.path.empty() ? "" : "_") +
                                 withUnderscores(level.path);
        functions += name + "() {\n    _arguments -s \\\n";
        for (const Word& option : level.options)
            functions += "        '" + option.text + "[" + option.description + "]" +
                         (option.takesFile    ? ":file:_files"
                          : option.takesValue ? ":value:"
                                              : "") +
                         "' \\\n";
        if (level.commands.empty()) {
            functions += "        '*:file:_files'\n}\n";
            continue;
        }
        functions += "        '1:command:((";
        for (const Word& command : level.commands)
            functions += command.text + "\\:\"" + command.description + "\" ";
        functions +=
            "))' \\\n        '*::arguments:->arguments'\n"
            "    [[ $state == arguments ]] && " +
            name + "_$words[1]\n}\n";
    }
    return "#compdef headerdtc\n"
           "# Completions of headerdtc for zsh; headerdtc completion zsh writes them.\n" +
           functions + "_headerdtc \"$@\"\n";
}

// ---- fish --------------------------------------------------------------------------------------

// The condition under which a level's words are offered.
std::string fishCondition(const Level& level) {
    if (level.path.empty()) return "__fish_use_subcommand";
    std::string condition;
    std::size_t begin = 0;
    while (begin < level.path.size()) {
        const auto end = std::min(level.path.find(' ', begin), level.path.size());
        condition += (condition.empty() ? "" : "; and ") +
                     std::string("__fish_seen_subcommand_from ") +
                     level.path.substr(begin, end - begin);
        begin = end + 1;
    }
    if (!level.commands.empty())
        condition += "; and not __fish_seen_subcommand_from " + joined(level.commands);
    return condition;
}

std::string fish(const std::vector<Level>& levels) {
    std::string lines =
        "# Completions of headerdtc for fish; headerdtc completion fish writes them.\n";
    for (const Level& level : levels) {
        const std::string begin = "complete -c headerdtc -n '" + fishCondition(level) + "'";
        for (const Word& command : level.commands)
            lines += begin + " -f -a " + command.text + " -d '" + command.description + "'\n";
        for (const Word& option : level.options) {
            const bool isLong = option.text.starts_with("--");
            lines += begin +
                     (isLong ? " -l " + option.text.substr(2) : " -s " + option.text.substr(1)) +
                     (option.takesFile    ? " -r"
                      : option.takesValue ? " -x"
                                          : "") +
                     " -d '" + option.description + "'\n";
        }
    }
    return lines;
}

constexpr struct {
    const char* shell;
    std::string (*script)(const std::vector<Level>&);
} Writers[] = {{"bash", bash}, {"zsh", zsh}, {"fish", fish}};

}  // namespace

const std::vector<std::string>& completionShells() {
    static const std::vector<std::string> shells = [] {
        std::vector<std::string> names;
        for (const auto& writer : Writers)
            names.emplace_back(writer.shell);
        return names;
    }();
    return shells;
}

std::string completionScript(const CLI::App& app, const std::string& shell) {
    for (const auto& writer : Writers) {
        if (shell == writer.shell) return writer.script(levelsOf(app));
    }
    return {};
}

}  // namespace headerdtc::cli
