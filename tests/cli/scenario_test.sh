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
# Compared with what was saved: generating adds the values that it looked up to the open control.
diff <("$headerdtc" show --json orders/mine.asp | jq '.controls[0].properties') \
    <(jq -s '.[1].properties' "$folder/second") || fail "the properties come back others"
diff <(tail -n 1 "$folder/first") <(tail -n 1 "$folder/second") || fail "the text comes back another"
for type in 'SetKeyValue "CUSTNO", 0, "4711"' 'SetKeyValue "ORDNO", 2, LowestOrder()' \
    'Function LowestOrder()' 'mLinkedFields.Add'; do
    "$headerdtc" generate --print orders/mine.asp | grep -qF "$type" || fail "the text lacks $type"
done
"$headerdtc" generate --check orders/mine.asp || fail "the saved page is not up to date"
echo "All as expected."
