#!/usr/bin/env bash
# scenario_test.sh HEADERDTC PROJECT: a whole configuration is built by automation on a new page;
# opened again, the page has the same properties and gives the same text.
set -euo pipefail
headerdtc=$1
project=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$project/demo" "$folder/site"
cd "$folder/site"
unset HEADERDTC_CONFIG
fail() {
    echo "FAILED: $1"
    exit 1
}

"$headerdtc" new orders/mine.asp >/dev/null
ask='{"do":"properties"}
{"do":"runtimeText"}'
{ cat "$project/tests/scenarios/full_configuration.jsonl" && echo "$ask"; } |
    "$headerdtc" automate orders/mine.asp >"$folder/first"
! grep -nE '"ok":false|Error in' "$folder/first" || fail "a step was refused or reported an error"
grep -q '"wrote":"orders/mine.asp"' "$folder/first" || fail "the page was not written"

"$headerdtc" automate orders/mine.asp <<<"$ask" >"$folder/second"
# Compared with what was saved: generating adds the values that it looked up to the open control. An
# entry of a dictionary that has no name is not read back; those behind it are numbered anew.
settings() { jq -c '.[] | [(.name | sub("CriteriaType[0-9]+$"; "CriteriaType")), .value]'; }
diff <("$headerdtc" show --json orders/mine.asp | jq '.controls[0].properties' | settings) \
    <(jq -s '.[1].properties' "$folder/second" | settings) || fail "the properties come back others"
diff <(tail -n 1 "$folder/first") <(tail -n 1 "$folder/second") || fail "the text comes back another"
"$headerdtc" generate --print orders/mine.asp >"$folder/text"
for line in 'SetKeyValue "CUSTNO", 0, "4711"' 'SetKeyValue "ORDNO", 2, LowestOrder()' \
    'Function   LowestOrder ()' 'mLinkedFields.Add'; do
    grep -qF "$line" "$folder/text" || fail "the text lacks $line"
done
"$headerdtc" generate orders/mine.asp >/dev/null || fail "the saved page is left alone"
"$headerdtc" generate --check orders/mine.asp || fail "the page is not up to date"
echo "All as expected."
