// Completions for three shells, which ask this program what may stand at a place. They know the
// page editor too, whose words are those of "headerdtc edit".

#include "cli/command.h"
#include "cli/streams.h"
#include "host/inspection/rules/rule_settings.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

namespace headerdtc::cli {
namespace {

constexpr struct {
    const char* shell;
    const char* script;
} Scripts[] = {
    {"bash",
     R"(# Completions of headerdtc and its editor for bash; headerdtc completion bash writes them.
_headerdtc() {
    local word=${COMP_WORDS[COMP_CWORD]} program=${COMP_WORDS[0]/#\~/$HOME} lines
    mapfile -t lines < <("${program%-editor}" complete -- "${COMP_WORDS[@]:0:COMP_CWORD + 1}" 2>/dev/null)
    [[ ${lines[0]-} == words ]] || compopt -o filenames 2>/dev/null
    case ${lines[0]-} in
        words) mapfile -t COMPREPLY < <(compgen -W "${lines[*]:1}" -- "$word") ;;
        files) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        pages) mapfile -t COMPREPLY < <(compgen -d -- "$word"
            compgen -f -X '!*.[Aa][Ss][Pp]' -- "$word"
            compgen -f -X '!*.[Ii][Nn][Cc]' -- "$word") ;;
        *) COMPREPLY=() ;;
    esac
}
complete -F _headerdtc headerdtc headerdtc-editor
)"},
    // In a folder of completions the file is the body of the function; sourced, it has
    // to make itself known.
    {"zsh", R"(#compdef headerdtc headerdtc-editor
# Completions of headerdtc and its editor for zsh; headerdtc completion zsh writes them.
_headerdtc() {
    local -a lines=("${(@f)$(${~words[1]%-editor} complete --describe -- "${(@)words[1,CURRENT]}" 2>/dev/null)}")
    case $lines[1] in
        words) shift lines; _describe word lines ;;
        files) _files ;;
        pages) _files -g '*.(#i)(asp|inc)(-.)' ;;
    esac
}
if [[ $funcstack[1] == _headerdtc ]]; then
    _headerdtc "$@"
else
    compdef _headerdtc headerdtc headerdtc-editor
fi
)"},
    {"fish",
     R"(# Completions of headerdtc and its editor for fish; headerdtc completion fish writes them.
function __headerdtc_complete
    set -l words (commandline -opc) (commandline -ct)
    set -l program (string replace -r -- '-editor$' '' $words[1])
    set -l lines ($program complete --describe -- $words 2>/dev/null)
    switch "$lines[1]"
        case words
            string replace -- : \t $lines[2..]
        case files
            __fish_complete_path $words[-1]
        case pages
            string match -ri '.*(?:/|\.asp|\.inc)(?=\t)' -- (__fish_complete_path $words[-1])
    end
end
complete -c headerdtc -c headerdtc-editor -f -a '(__headerdtc_complete)'
)"}};

struct CompleteOptions {
    std::vector<std::string> words;  // from the program's name to what is being typed
    bool describe = false;
};

// What is told of a place: a first line "words", with the words behind it, "files" or "pages";
// nothing where only the author knows.
class Place {
  public:
    explicit Place(bool describe) : describe_(describe) {}

    void kind(const char* kind) { printLine(stdout, kind); }

    void word(const std::string& word, std::string description) {
        std::replace(description.begin(), description.end(), '\n', ' ');
        printLine(stdout, describe_ && !description.empty() ? word + ":" + description : word);
    }

    void value(const CLI::Option& option) {
        const std::string type = option.get_type_name(), name = option.get_name(true);
        const auto begin = type.find('{'), end = type.find('}');  // one of a few: "TEXT:{a,b}"
        if (end != std::string::npos) {
            kind("words");
            for (const auto& choice :
                 CLI::detail::split(type.substr(begin + 1, end - begin - 1), ','))
                word(choice, {});
        } else if (name == "RULE") {
            kind("words");
            for (const RuleText& rule : allRules())
                word(std::string(rule.id), std::string(rule.summary));
        } else if (type == FileType || name == "FILE") {
            kind("files");
        } else if (name == "PAGE" || name == "PATH") {
            kind("pages");
        }
    }

    // Those of the commands above are taken too.
    void optionsOf(const CLI::App* command) {
        kind("words");
        for (; command; command = command->get_parent()) {
            for (const CLI::Option* option : command->get_options()) {
                const bool isShown = option != command->get_help_ptr() || !command->get_parent();
                for (const std::string& name : option->get_lnames())
                    if (isShown) word("--" + name, option->get_description());
            }
        }
    }

  private:
    bool describe_;
};

// The option whose value is the next argument of a command behind so many.
const CLI::Option* argument(const CLI::App& command, std::size_t before) {
    for (const CLI::Option* option : command.get_options()) {
        if (!option->get_positional()) continue;
        const auto most = static_cast<std::size_t>(option->get_items_expected_max());
        if (before < most) return option;
        before -= most;
    }
    return nullptr;
}

void complete(const CLI::App& program, const CompleteOptions& options) {
    const auto& words = options.words;
    if (words.empty()) return;
    Place place(options.describe);
    const CLI::App* command =
        words.front().ends_with("-editor") ? findCommand(program, "edit") : &program;
    const CLI::Option* valued = nullptr;  // of the word before
    std::size_t arguments = 0;
    for (std::size_t i = 1; i + 1 < words.size(); ++i) {
        if (std::exchange(valued, nullptr)) continue;
        if (words[i].starts_with("-")) {
            valued = findOption(command, words[i]);
            if (valued && valued->get_items_expected_max() == 0) valued = nullptr;
        } else if (const CLI::App* named = findCommand(*command, words[i])) {
            // Behind "help" there is a command again.
            if (named->get_name() != "help") command = named;
        } else {
            ++arguments;
        }
    }
    const auto commands = commandsOf(*command);
    if (valued) {
        place.value(*valued);
    } else if (words.back().starts_with("-")) {
        place.optionsOf(command);
    } else if (!commands.empty()) {
        place.kind("words");
        for (const CLI::App* each : commands)
            place.word(each->get_name(), each->get_description());
    } else if (const CLI::Option* next = argument(*command, arguments)) {
        place.value(*next);
    }
}

}  // namespace

void addCompletion(CLI::App& app, CommandLine& line) {
    std::vector<std::string> shells;
    for (const auto& each : Scripts)
        shells.emplace_back(each.shell);
    const auto shell = std::make_shared<std::string>();
    CLI::App& command =
        addCommand(app, "completion", "Write completions of this command and of the editor",
                   R"(An installed package has them already.

Examples:
  source <(headerdtc completion bash)      in ~/.bashrc
  source <(headerdtc completion zsh)       in ~/.zshrc, behind compinit
  headerdtc completion fish | source       in ~/.config/fish/config.fish

Exit status: 0 done, 2 wrong usage.)");
    command.add_option("SHELL", *shell, "bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember(shells));
    command.callback([&line, shell] {
        line.run = [shell] {
            for (const auto& each : Scripts) {
                if (*shell == each.shell) std::fputs(each.script, stdout);
            }
            return Done;
        };
    });

    const auto options = std::make_shared<CompleteOptions>();
    CLI::App& complete = addCommand(app, "complete", "Tell a shell what may stand at a place", "");
    complete.group("");  // for the shells alone
    complete.add_flag("--describe", options->describe, "WORD:DESCRIPTION");
    complete.add_option("WORD", options->words, "the words of the command line");
    complete.callback([&app, &line, options] {
        line.run = [&app, options] {
            cli::complete(app, *options);
            return Done;
        };
    });
}

}  // namespace headerdtc::cli
