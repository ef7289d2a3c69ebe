# bash completion for headerdtc-editor

_headerdtc_editor() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    if [[ $previous == --config ]]; then
        mapfile -t COMPREPLY < <(compgen -o plusdirs -f -X '!*.toml' -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--config --help --version" -- "$current")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -o plusdirs -f -X '!*.@(asp|inc|ASP|INC)' -- "$current")
    fi
}

complete -F _headerdtc_editor headerdtc-editor
