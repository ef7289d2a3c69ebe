#!/usr/bin/env bash
# scenarios_test.sh HEADERDTC PROJECT: what an author does on the demo site, through automation. A page
# is translated, with the expected rows at the end; a whole configuration is built on a new page, which
# has the same properties and gives the same text when it is opened again.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
cp -r "$project/demo" site
rm -f site/translations.sqlite*
site/make-translations >made.log

check 0 "$headerdtc" automate site/customers/regions/overview.asp \
    <"$project/tests/scenarios/translations.jsonl"
! grep -nE '"ok":false|Error in' out || fail "a step was refused or reported an error"
expect "$out" '"text":"Turnover this year"'
sqlite3 site/translations.sqlite >rows <<'END'
SELECT 'text', LABEL, TEXT, LOCALEID, STATUS FROM I18NTEXT WHERE LABEL = 'SLBDA3000';
SELECT 'name', BISTYPE, FIELDNAME, LABEL FROM I18NFIELDNAMES
 WHERE PROVIDERNAME = 'Customers' AND BISTYPE = 'zeko' ORDER BY FIELDNAME;
SELECT 'value', BISTYPE, FIELDNAME, FIELDVALUE, LABEL FROM I18NFIELDVALUES
 WHERE PROVIDERNAME = 'Customers' AND BISTYPE = 'zeko' ORDER BY FIELDVALUE;
END
diff rows "$project/tests/scenarios/translations.rows" || fail "the rows at the end are others"
check 0 "$headerdtc" generate --check site/customers

cd site || exit 1

"$headerdtc" new orders/mine.asp >/dev/null
# The guide has every name, the twins' under one of them.
"$headerdtc" automate orders/mine.asp <<<'{"do":"controls"}' | jq -r '.controls[]?.name' |
    sed -E 's/^(EAI|ZEKO)//' | while read -r name; do
    grep -q "$name" "$project/docs/guide.md" || echo "$name"
done >unnamed
[[ -s unnamed ]] && fail "the guide does not name $(cat unnamed)"

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
# What was saved is what the page generates when it is opened again.
check 0 "$headerdtc" generate --check orders/mine.asp
check 0 "$headerdtc" generate --print orders/mine.asp
for line in 'SetKeyValue "CUSTNO", 0, "4711"' 'SetKeyValue "ORDNO", 2, LowestOrder()' \
    'Function   LowestOrder ()' 'mLinkedFields.Add'; do
    expect "$out" "$line"
done

finish
