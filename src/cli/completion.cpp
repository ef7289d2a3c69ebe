// Completions for three shells, made from the command line's own description. They know the page
// editor too, whose words are those of "headerdtc edit".

#include "cli/command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <memory>

namespace headerdtc::cli {
namespace {

constexpr const char* EditorCommand = "edit";

// A command or an option, as completions see it.
struct Word {
    std::string text, description;
    bool takesValue = false;
    bool takesFile = false;
    bool repeats = false;
};
struct Level {
    std::vector<std::string> path;  // "translations", "import"; empty: the program itself
    std::vector<Word> commands;     // or whatever else can only be one of a few
    std::vector<Word> options;      // those of the levels above it are taken here too
    bool takesPages = false;        // rather than any file
};

std::string joined(const std::vector<std::string>& words, const char* between = " ") {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

// The text of words in a row; those for which `which` is set.
std::string joined(const std::vector<Word>& words, bool Word::*which = nullptr) {
    std::vector<std::string> texts;
    for (const Word& word : words) {
        if (!which || word.*which) texts.push_back(word.text);
    }
    return joined(texts);
}

std::vector<Word> commandsOf(const CLI::App& app) {
    std::vector<Word> commands;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        commands.push_back({command->get_name(), command->get_description()});
    return commands;
}

void addOption(const CLI::Option& option, Level& level) {
    const int values = option.get_items_expected_max();
    const bool takesFile = values > 0 && option.get_type_name() == FileType;
    const auto add = [&](const std::string& name) {
        level.options.push_back(
            {name, option.get_description(), values > 0, takesFile, values > 1});
    };
    for (const std::string& name : option.get_lnames())
        add("--" + name);
    for (const std::string& name : option.get_snames())
        add("-" + name);
}

void addPositional(const CLI::Option& option, const CLI::App& program, Level& level) {
    const std::string type = option.get_type_name(), name = option.get_name(true);
    level.takesPages = level.takesPages || (type != FileType && (name == "PAGE" || name == "PATH"));
    if (type == CommandType) level.commands = commandsOf(program);
    // One of a few: "TEXT:{bash,zsh,fish}".
    const auto begin = type.find('{'), end = type.find('}');
    if (end == std::string::npos) return;
    for (const std::string& choice :
         CLI::detail::split(type.substr(begin + 1, end - begin - 1), ','))
        level.commands.push_back({choice, ""});
}

void addLevels(const CLI::App& app, const CLI::App& program, const Level& above,
               std::vector<Level>& levels) {
    Level level{.path = above.path, .commands = commandsOf(app), .options = {}};
    if (app.get_parent()) level.path.push_back(app.get_name());
    for (const CLI::Option* option : app.get_options()) {
        addOption(*option, level);
        if (option->get_positional()) addPositional(*option, program, level);
    }
    for (const Word& option : above.options) {
        if (option.text != "--help" && option.text != "-h") level.options.push_back(option);
    }
    levels.push_back(level);
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        addLevels(*command, program, level, levels);
}

// A text between single quotes, in one line; `escaped` are characters that need a backslash.
std::string quoted(const std::string& text, const char* escaped, const char* quote) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'') {
            result += quote;
            continue;
        }
        if (std::string_view(escaped).find(c) != std::string_view::npos) result += '\\';
        result += c == '\n' ? ' ' : c;
    }
    return result + "'";
}

// ---- bash --------------------------------------------------------------------------------------

std::string bash(const std::vector<Level>& levels) {
    std::string cases;
    for (const Level& level : levels)
        cases += "        '" + joined(level.path) + "')\n            commands='" +
                 joined(level.commands) + "'\n            options='" + joined(level.options) +
                 "'\n            valued='" + joined(level.options, &Word::takesValue) +
                 "'\n            filed='" + joined(level.options, &Word::takesFile) +
                 "'\n            pages=" + (level.takesPages ? "yes" : "") + " ;;\n";
    return R"(# Completions of headerdtc and its editor for bash; headerdtc completion bash writes them.
_headerdtc_level() {
    case $1 in
)" + cases +
           R"(        *) return 1 ;;
    esac
}
_headerdtc() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local path='' commands options valued filed pages i
    [[ ${COMP_WORDS[0]##*/} != headerdtc-editor ]] || path=edit
    _headerdtc_level "$path"
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
    elif [[ -n $pages ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$word"
            compgen -f -X '!*.[Aa][Ss][Pp]' -- "$word"
            compgen -f -X '!*.[Ii][Nn][Cc]' -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -o filenames -F _headerdtc headerdtc headerdtc-editor
)";
}

// ---- zsh ---------------------------------------------------------------------------------------

std::string zsh(const std::vector<Level>& levels) {
    constexpr const char* Quote = R"('\'')";
    std::string functions;
    for (const Level& level : levels) {
        const std::string name = "_" + joined(
                                           [&] {
                                               auto words = level.path;
                                               words.insert(words.begin(), "headerdtc");
                                               return words;
                                           }(),
                                           "_");
        functions += name + "() {\n";
        if (level.path.empty())
            functions += "    [[ $service != headerdtc-editor ]] || { _headerdtc_edit; return; }\n";
        if (!level.commands.empty()) {
            functions += "    local state; local -a words_here=(\n";
            for (const Word& command : level.commands)
                functions +=
                    "        " + quoted(command.text + ":" + command.description, "", Quote) + "\n";
            functions += "    )\n";
        }
        functions += "    _arguments -s \\\n";
        for (const Word& option : level.options)
            functions += "        " + quoted((option.repeats ? "*" : "") + option.text, "", Quote) +
                         quoted("[", "", Quote) + quoted(option.description, "[]\\:", Quote) +
                         "']" +
                         (option.takesFile    ? ":file:_files"
                          : option.takesValue ? ":value:"
                                              : "") +
                         "' \\\n";
        if (level.commands.empty()) {
            functions += level.takesPages
                             ? "        '*:page:_files -g \"*.(#i)(asp|inc)(-.)\"'\n}\n"
                             : "        '*:file:_files'\n}\n";
            continue;
        }
        functions +=
            "        '1:word:->word' '*::words:->words'\n"
            "    case $state in\n"
            "        word) _describe word words_here ;;\n"
            "        words) (( ! $+functions[" +
            name + "_$words[1]] )) || " + name +
            "_$words[1] ;;\n"
            "    esac\n}\n";
    }
    // In a folder of completions the file is the function's body; sourced, it has to make itself
    // known.
    return "#compdef headerdtc headerdtc-editor\n"
           "# Completions of headerdtc and its editor for zsh; headerdtc completion zsh writes "
           "them.\n" +
           functions + R"(if [[ $funcstack[1] == _headerdtc ]]; then
    _headerdtc "$@"
else
    compdef _headerdtc headerdtc headerdtc-editor
fi
)";
}

// ---- fish --------------------------------------------------------------------------------------

std::string fishOption(const Word& option) {
    const bool isLong = option.text.starts_with("--");
    return (isLong ? " -l " + option.text.substr(2) : " -s " + option.text.substr(1)) +
           (option.takesFile    ? " -r -F"
            : option.takesValue ? " -x"
                                : "") +
           " -d " + quoted(option.description, "\\", "\\'") + "\n";
}

std::string fish(const std::vector<Level>& levels) {
    constexpr const char* Pages = " -f -a '(__headerdtc_pages)'\n";
    std::string lines =
        R"(# Completions of headerdtc and its editor for fish; headerdtc completion fish writes them.
function __headerdtc_at -d 'Whether the command line is at this command, or inside of it'
    set -l words (commandline -opc)
    set -e words[1]
    while set -q words[1]
        if test "$words[1]" = --config
            set -e words[1]
        else if not string match -q -- '-*' $words[1]
            set -q argv[1] || return 0
            test "$words[1]" = "$argv[1]" || return 1
            set -e argv[1]
        end
        set -e words[1]
    end
    not set -q argv[1]
end
function __headerdtc_pages
    string match -ri '.*(?:/|\.asp|\.inc)$' -- (__fish_complete_path (commandline -ct))
end
)";
    for (const Level& level : levels) {
        const std::string path = joined(level.path);
        std::string at = "__headerdtc_at " + path;
        if (!level.commands.empty())
            at += "; and not __fish_seen_subcommand_from " + joined(level.commands);
        const std::string begin = "complete -c headerdtc -n '" + at + "'";
        for (const Word& command : level.commands)
            lines += begin + " -f -a " + command.text + " -d " +
                     quoted(command.description, "\\", "\\'") + "\n";
        if (level.takesPages) lines += begin + Pages;
        for (const Word& option : level.options)
            lines += begin + fishOption(option);
        if (path != EditorCommand) continue;
        lines += std::string("complete -c headerdtc-editor") + Pages;
        for (const Word& option : level.options)
            lines += "complete -c headerdtc-editor" + fishOption(option);
    }
    return lines;
}

constexpr struct {
    const char* shell;
    std::string (*script)(const std::vector<Level>&);
} Writers[] = {{"bash", bash}, {"zsh", zsh}, {"fish", fish}};

}  // namespace

void addCompletion(CLI::App& app, CommandLine& line) {
    std::vector<std::string> shells;
    for (const auto& writer : Writers)
        shells.emplace_back(writer.shell);
    const auto shell = std::make_shared<std::string>();
    CLI::App& command =
        addCommand(app, "completion", "Write completions of this command and of the editor",
                   R"(An installed package has them already.

Examples:
  source <(headerdtc completion bash)      in ~/.bashrc
  source <(headerdtc completion zsh)       in ~/.zshrc, behind compinit
  headerdtc completion fish | source       in ~/.config/fish/config.fish

Exit status: 0 done, 2 wrong usage.)");
    command.add_option("SHELL", *shell, "the shell")->required()->check(CLI::IsMember(shells));
    command.callback([&app, &line, shell] {
        line.run = [&app, shell] {
            std::vector<Level> levels;
            addLevels(app, app, {}, levels);
            for (const auto& [name, script] : Writers) {
                if (*shell != name) continue;
                const std::string text = script(levels);
                std::fwrite(text.data(), 1, text.size(), stdout);
            }
            return Done;
        };
    });
}

}  // namespace headerdtc::cli
