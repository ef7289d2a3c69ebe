#!/usr/bin/env bash
# translation_test.sh HEADERDTC PROJECT: an author translates a page of the demo site through
# automation; the rows at the end are the expected ones.
set -u
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

finish
