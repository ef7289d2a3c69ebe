# bash completion for headerdtc

_headerdtc() {
    local current previous words cword command="" word
    _init_completion -n = 2>/dev/null || {
        current=${COMP_WORDS[COMP_CWORD]}
        previous=${COMP_WORDS[COMP_CWORD - 1]}
        words=("${COMP_WORDS[@]}")
        cword=$COMP_CWORD
    }
    current=${cur-$current}
    previous=${prev-$previous}

    for word in "${words[@]:1:cword-1}"; do
        case $word in
            generate | new | show | automate | edit)
                command=$word
                break
                ;;
        esac
    done

    case $previous in
        --config)
            mapfile -t COMPREPLY < <(compgen -o plusdirs -f -X '!*.toml' -- "$current")
            return
            ;;
        -j | --jobs | --line | --control)
            return
            ;;
    esac

    local options="--config --help"
    case $command in
        generate) options+=" --print --check --force --quiet --jobs" ;;
        new) options+=" --into --line" ;;
        show) options+=" --json" ;;
        automate) options+=" --control" ;;
        edit) ;;
        *)
            mapfile -t COMPREPLY < <(compgen -W \
                "generate new show automate edit --config --version --help" -- "$current")
            return
            ;;
    esac

    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -o plusdirs -f -X '!*.@(asp|inc|ASP|INC)' -- "$current")
    fi
}

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

complete -F _headerdtc headerdtc
complete -F _headerdtc_editor headerdtc-editor
