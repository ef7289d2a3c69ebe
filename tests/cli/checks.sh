# shellcheck shell=bash disable=SC2034,SC2154
# What the command tests share: a folder of their own, to be worked in, and what to expect of a
# command. Sourced by scripts whose arguments are the command and the project's folder.

set -u
headerdtc=$1
project=$2
folder=$(mktemp -d)
trap 'chmod -R u+w "$folder"; rm -rf "$folder"' EXIT
cd "$folder" || exit 1
unset HEADERDTC_CONFIG
failures=0

# check STATUS COMMAND...: runs it; its output is in $out and $err, its exit status in $status.
check() {
    local expected=$1
    shift
    "$@" >out 2>err
    status=$?
    out=$(cat out) err=$(cat err)
    cat out err >>said
    ((status == expected)) || fail "'$*' ended with $status instead of $expected: $err"
}
fail() {
    echo "FAILED: $1"
    failures=$((failures + 1))
}
expect() {  # expect WHERE TEXT...
    local text
    for text in "${@:2}"; do
        [[ $1 == *"$text"* ]] || fail "'$text' is missing in: $1"
    done
}
expect_empty() { [[ -z $1 ]] || fail "this should be empty: $1"; }

# Every line of the output is what a schema says.
expect_lines() {  # expect_lines SCHEMA
    python3 "$project/tests/cli/validate_lines.py" "$project/docs/schemas/$1.schema.json" out \
        >wrong 2>&1 || fail "not as in $1.schema.json: $(cat wrong)"
    [[ $(head -1 out | jq -r .type) == run && $(tail -1 out | jq -r .type) == summary ]] ||
        fail "a run begins with 'run' and ends with 'summary'"
    [[ $(tail -1 out | jq .exitStatus) == "$status" ]] || fail "the summary tells another status"
}

# STATUS TEXT WORD...: the command with these words ends so and has the text in its output, among its
# messages; or its output is as in that schema.
says() { check "$1" "$headerdtc" "${@:3}" && expect "$out" "$2"; }
warns() { check "$1" "$headerdtc" "${@:3}" && expect "$err" "$2"; }
tells() { check "$1" "$headerdtc" "${@:3}" && expect_lines "$2"; }

# The password of a test's site is "quayside"; nothing that was said may have it.
finish() {
    ! grep -q quayside said || fail "a password was shown: $(grep quayside said)"
    ((failures == 0)) && echo "All as expected."
    exit $((failures > 0))
}
