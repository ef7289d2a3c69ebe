#!/usr/bin/env bash
# command_line_test.sh HEADERDTC PROJECT: what the commands have in common: exit status, input of
# paths, interruption, help, completions and manual page.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
# shellcheck source=tests/cli/harbour_site.sh
. "$project/tests/cli/harbour_site.sh"
harbour_site site
template=site/c/Suite/Orvane/include/DTC_TEMPLATE.ASP

# ---- the exit status of every pair of outcomes --------------------------------------------------
mkdir pages wrong
cp site/headerdtc.toml site/suite.reg site/providers.json site/odbc.ini site/texts.sqlite pages
cp -r site/c pages
cp site/traffic/today/berths.asp pages/fresh.asp
"$headerdtc" generate pages >made.log
sed 's/mStyle = /mSheet = /' pages/fresh.asp >pages/stale.asp
printf '<!--METADATA TYPE="DesignerControl" startspan' >pages/failing.asp
echo 'colour = 1' >wrong/headerdtc.toml
cp pages/fresh.asp wrong/misconfigured.asp
echo '{"do":"save"}' >steps
page() { if [[ $1 == misconfigured ]]; then echo wrong/misconfigured.asp; else echo "pages/$1.asp"; fi; }
for one in fresh stale failing misconfigured; do
    for other in fresh stale failing misconfigured; do
        case " $one $other " in
            *" misconfigured "*) expected=2 ;;
            *" failing "*) expected=3 ;;
            *" stale "*) expected=1 ;;
            *) expected=0 ;;
        esac
        pair=("$(page "$one")" "$(page "$other")")
        check "$expected" "$headerdtc" generate --check "${pair[@]}"
        check "$expected" "$headerdtc" check "${pair[@]}"
        check "$expected" "$headerdtc" automate --over "${pair[@]}" steps
        check "$((expected == 1 ? 0 : expected))" "$headerdtc" where --field IMO "${pair[@]}"
    done
done

# ---- wrong words --------------------------------------------------------------------------------
warns 2 "there is no command 'chek'; did you mean 'check'?" chek site
warns 2 "did you mean 'import'?" translations imprt
warns 2 "there is no option '--jsn' of 'check'; did you mean '--json'?" --config site/headerdtc.toml check site --jsn
warns 2 "did you mean '--connect'?" catalogue check --conect 'DSN=Harbour;PWD=quayside' site
for words in '' generate check where translations automate 'help chek' 'doctor nowhere' \
    'rename site' 'rename --provider A site' \
    'rename --field A B C --apply --dry-run site' 'rename --field A B B site' 'generate --print --check site' 'generate --diff site' 'generate --files-from nowhere' \
    'explain unknown-feeld' 'check --update-baseline site' 'check --baseline nowhere site' \
    'where site' 'where --label L1 --include x.asp site' 'check --json --sarif site' \
    'automate --over site' 'automate --apply site/traffic/ships.asp' 'completion tcsh' 'generate --jobs 257 site' \
    'catalogue check DSN=Harbour;PWD=quayside'; do
    # shellcheck disable=SC2086
    check 2 "$headerdtc" $words
    expect_empty "$out"
done

# ---- paths from a file --------------------------------------------------------------------------
mkdir 'site/a b'
cp site/traffic/ships.asp $'site/a b/new\nline.asp'
printf 'site/traffic/ships.asp\r\n\nsite/traffic/today\nsite/suite.reg\n' >list
says 0 site/traffic/ships.asp where --field BERTH --files-from list
expect "$out" site/traffic/today/berths.asp
expect_empty "$err"
find site -name '*.asp' -print0 >list
says 0 $'site/a b/new\nline.asp:' where --provider Ships --files-from - <list
check 0 "$headerdtc" check --files-from /dev/null
check 0 "$headerdtc" generate --check --files-from <(echo pages/fresh.asp)

# ---- the same bytes every time ------------------------------------------------------------------
sed -i 's/mStyle = /mSheet = /' $template
cp -r site other
LC_ALL=C TZ=Pacific/Kiritimati "$headerdtc" generate --jobs 1 site >made.log
(cd other && LC_ALL=C.UTF-8 TZ=Pacific/Honolulu "$headerdtc" generate --jobs 4 . >../made.log)
diff -r site other >wrong.log || fail "two runs differ: $(cat wrong.log)"
LC_ALL=C TZ=Pacific/Kiritimati "$headerdtc" check --json --jobs 1 pages wrong >one
LC_ALL=C.UTF-8 TZ=Pacific/Honolulu "$headerdtc" check --json --jobs 4 pages wrong >other.json
cmp -s one other.json || fail "two checks differ"

# ---- Ctrl-C -------------------------------------------------------------------------------------
for ((i = 0; i < 1500; i++)); do cp site/traffic/ships.asp "site/traffic/p$i.asp"; done
sed -i 's/mSheet = /mOther = /' $template
mkfifo pipe
interrupted() {  # interrupted ARGUMENT...: when the second line comes; from there on it is in rest
    env --default-signal=INT "$headerdtc" "$@" >pipe 2>err &
    { read -r _ && read -r line && kill -INT $! && echo "$line" && cat; } <pipe >rest
    wait $!
    [[ $? == 130 && $(<err) == *"interrupted: "*" left, from site/traffic/"* ]] ||
        fail "'$*' was interrupted and said: $(<err)"
}
interrupted automate --over --apply --jobs 1 site steps
expect "$(<err)" "nothing was written"
grep -rq 'mOther = ' site/traffic && fail "an interrupted replay wrote"
interrupted rename --provider Ships Vessels --apply --jobs 1 site
grep -rq '"Vessels"' site/traffic && fail "an interrupted renaming wrote"
interrupted generate --json --jobs 1 site
[[ -z $(find site -name '.headerdtc*') ]] || fail "a stray file stayed behind"
written=$(grep -c '"status":"written"' rest)
[[ $(tail -1 rest | jq -c '[.pages, .written]') == "[$(grep -c '"type":"page"' rest),$written]" ]] ||
    fail "the summary counts other pages than those told: $(tail -1 rest)"
((written > 0 && written < 1503)) || fail "$written pages were written"
check 1 "$headerdtc" generate --check site
[[ $(wc -l <out) == $((1503 - written)) ]] || fail "$written written, but out of date: $(wc -l <out)"

# ---- completions --------------------------------------------------------------------------------
"$headerdtc" completion bash >completion.bash
# shellcheck disable=SC1091
. ./completion.bash
touch pages/failing.txt
PATH=$(dirname "$headerdtc"):$PATH
while IFS='|' read -r line expected; do
    read -ra COMP_WORDS <<<"$line"
    [[ $line != *' ' ]] || COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) COMPREPLY=()
    _headerdtc
    shown=$(printf '%s\n' "${COMPREPLY[@]}" | sort | xargs)
    [[ $shown == "$expected" ]] || fail "bash completes '$line' to '$shown'"
    ! command -v fish >/dev/null || shown=$(fish --no-config -c \
        "headerdtc completion fish | source; complete -C '$line'" | cut -f1 | sort | xargs)
    [[ $shown == "$expected" ]] || fail "fish completes '$line' to '$shown'"
done <<'END'
headerdtc wh|where
headerdtc translations imp|import
headerdtc help catalogue im|import
headerdtc --config steps generate --ch|--check
headerdtc translations import --dr|--dry-run
headerdtc completion |bash fish zsh
headerdtc check pages/f|pages/failing.asp pages/fresh.asp
headerdtc-editor pages/f|pages/failing.asp pages/fresh.asp
headerdtc-editor --co|--config
headerdtc --config st|steps
headerdtc check --baseline st|steps
headerdtc where --field s|
headerdtc explain unknown-l|unknown-label unknown-linked-field unknown-linked-provider
END
! command -v zsh >/dev/null || zsh -fc 'autoload -Uz compinit; compinit -u -D
    source <(headerdtc completion zsh)
    [[ $_comps[headerdtc]$_comps[headerdtc-editor] == _headerdtc_headerdtc ]]' ||
    fail "zsh does not take its completions"

# ---- help, and every option of every command in the manual page, where that is told --------------
says 0 "Examples:" --help
check 0 "$headerdtc" version
[[ $("$headerdtc" --version) == "$out" ]] || fail "two versions: $out"
manual=$(sed 's/Fl -/--/g; s/| -/| --/g; s/Fl \([a-z]\)\b/-\1/g' "$project/packaging/man/headerdtc.1")
synopsis_of() {  # synopsis_of COMMAND...: its lines
    awk -v command="$*" '
        /^\.Nm/ { inside = 0 }
        /^\.Sh DESCRIPTION/ { exit }
        index($0, ".Cm ") == 1 {
            line = substr($0, 5)
            split(command, words, " ")
            if (line ~ "^" words[1] && (words[2] == "" || index(line, words[2]))) inside = 1
        }
        inside { print }' <<<"$manual"
}
for command in init generate check explain where rename doctor new show report automate 'translations check' \
    'translations export' 'translations import' 'catalogue check' 'catalogue import' edit; do
    # shellcheck disable=SC2086
    check 0 "$headerdtc" help $command
    [[ $out == *$'\nExamples:\n  headerdtc '*$'\n\nExit status'* ]] || fail "no help of its own: $command"
    synopsis=$(synopsis_of "$command")
    while read -r option short; do
        [[ $synopsis == *"$option"* || (-n $short && $synopsis == *"$short"[[:space:]]*) ]] ||
            fail "the manual page does not have $option of '$command'"
    done < <(sed -n '/^Options:/,$s/^  \(-\([a-z]\),\)\?\(--[a-z-]*\).*/\3 -\2/p' out |
        sed 's/ -$//' | grep -v -e --help)
    expect "$manual" "--config"
done

finish
