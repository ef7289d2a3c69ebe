#!/usr/bin/env bash
# replay_test.sh HEADERDTC PROJECT: automation scripts over many pages, as a user would run them, on
# the site of a harbour office.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
# shellcheck source=tests/cli/harbour_site.sh
. "$project/tests/cli/harbour_site.sh"
harbour_site site

# Both pages get another include file; nothing is written before it is wanted.
cat >steps <<'END'
{"do":"type","control":"IncludeASPText","text":"Include/Locks.asp"}
{"do":"click","control":"IncludeASPAddCommand"}
{"do":"save"}
END
cp -r site before
check 1 "$headerdtc" automate --over site steps
[[ $(grep -c '^+	<PARAM NAME="ExtraIncludes' out) == 2 ]] || fail "not both pages change: $out"
expect "$out" '+<!--#INCLUDE file ="../Include/Locks.asp" -->'
expect "$err" '2 pages would be changed, 0 not done; --apply writes them'
diff -r site before >changed || fail "the difference alone wrote: $(cat changed)"
cp out shown.diff
check 0 "$headerdtc" automate --over --apply site - <steps
cmp -s out shown.diff || fail "another difference was shown when it was written"
(cd before && sed 's/^\(---\|+++\) site/\1 ./' ../shown.diff | patch -s -p0) ||
    fail "patch refused the difference"
diff -r site before >changed || fail "written and shown are not the same: $(cat changed)"
check 0 "$headerdtc" generate --check site
says 1 'missing-include' check site

# The same as the editor's own save, page by page.
cp -r before one
sed -i 's/Locks/Gates/' steps
"$headerdtc" automate one/traffic/ships.asp <steps >made.log
check 0 "$headerdtc" automate --over --apply before/traffic/ships.asp steps
cmp -s one/traffic/ships.asp before/traffic/ships.asp || fail "a replay saves otherwise"

# A line that a page refuses fails that page alone, and is named: one that lacks a field, one that
# would lose something.
printf '%s\n' '{"do":"tab","index":2}' \
    '{"do":"select","control":"ZEKOSelectedFieldsList","texts":["3 - BERTH"]}' \
    '{"do":"click","control":"ZEKORemoveField"}' '{"do":"save"}' >fields
says 3 '--- site/traffic/ships.asp' automate --over site fields
expect "$err" 'site/traffic/today/berths.asp: line 2: '
sed -i 's/"texts":.*]/"items":[1]/' fields
sed -i 's/VALUE="Ships"/VALUE="Tugs"/' site/traffic/ships.asp
warns 3 'site/traffic/ships.asp: line 4: ' automate --over --apply site fields
expect "$out" '--- site/traffic/today/berths.asp'
warns 3 'site/traffic/ships.asp: line 1: ' automate --over site/traffic/ships.asp <(echo '{"do":"save"}')
# What is typed there becomes part of a question, which may be several statements to a driver.
cat >hostile <<'END'
{"do":"tab","index":3}
{"do":"select","control":"ZEKOI18NFieldnamesList","items":[0]}
{"do":"click","control":"AddI18NFieldQuestionDialog.OKButton"}
{"do":"type","control":"SpecifyI18NFieldnameDialog.LabelsCombo","text":"x'; DELETE FROM I18NTEXT; --"}
{"do":"click","control":"SpecifyI18NFieldnameDialog.CancelButton"}
{"do":"save"}
END
warns 3 'the script would write to the translation database' automate --over --apply site/traffic/today/berths.asp hostile
# "Save" on the General tab writes a text file for a look.
check 3 "$headerdtc" automate --over --apply site/traffic/today/berths.asp \
    <(printf '%s\n' '{"do":"click","control":"SaveCommand"}' '{"do":"save"}')
expect "$err" 'the script would write another file'
warns 2 'saves no page' automate --over site <(echo '{"do":"tab","index":2}')
warns 0 '0 pages would be changed, 0 not done' automate --over --control HeaderDTC9 site <(cat steps)
check 3 "$headerdtc" automate --over --control HeaderDTC9 site/traffic/ships.asp steps
check 3 "$headerdtc" automate --over site nowhere
says 3 "control with the ID 'Other'" automate --control Other site/traffic/ships.asp </dev/null
says 3 '{"ok":false,' automate nowhere.asp </dev/null

finish
