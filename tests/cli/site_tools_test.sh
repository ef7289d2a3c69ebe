#!/usr/bin/env bash
# site_tools_test.sh HEADERDTC PROJECT: the commands that look at whole sites, as a user would run
# them, on a site that is not the demo.
set -u
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
# shellcheck source=tests/cli/harbour_site.sh
. "$project/tests/cli/harbour_site.sh"
harbour_site site

# ---- what a whole site says ---------------------------------------------------------------------
check 0 "$headerdtc" generate --check site
check 0 "$headerdtc" check site
expect_empty "$out$err"
check 0 "$headerdtc" doctor site
expect "$out" "DSN=Harbour;UID=office;PWD=***"
check 0 "$headerdtc" doctor --json site/traffic/ships.asp
expect_lines doctor

# ---- where --------------------------------------------------------------------------------------
check 0 "$headerdtc" where --field berth site
expect "$out" 'site/traffic/ships.asp:'
expect "$out" 'HeaderDTC1, ZEKO return field 2: 3 - BERTH'
expect "$out" 'HeaderDTC1, ZEKO key of criterion 1: BERTH'
expect "$out" 'site/traffic/today/berths.asp:'
check 0 "$headerdtc" where --field BERTH --provider Ships site
[[ $out != *berths.asp* ]] || fail "a field of another provider was told"
check 0 "$headerdtc" where --include TIDES.asp --json site
expect_lines where
[[ $(jq -rs '[.[] | select(.type == "use")][0].property' out) == ExtraIncludes0 ]] ||
    fail "the include was not found: $out"
check 0 "$headerdtc" where --provider Tugs site
expect_empty "$out"
sqlite3 site/texts.sqlite "INSERT INTO I18NFIELDNAMES VALUES ('Ships', 'zeko', 'IMO', 'L1')"
printf '%s\n' '{"do":"tab","index":3}' \
    '{"do":"select","control":"ZEKOI18NFieldnamesList","items":[0]}' '{"do":"save"}' |
    "$headerdtc" automate site/traffic/ships.asp >made.log
check 0 "$headerdtc" where --label l1 site
expect "$out" 'ZEKO translated field name 1: 1 - IMO'
mv site/texts.sqlite kept
check 3 "$headerdtc" where --label L1 site
expect "$err" "headerdtc doctor"
check 1 "$headerdtc" doctor site
expect "$out" "broken   data source"
mv kept site/texts.sqlite

# ---- stale pages, as a difference ---------------------------------------------------------------
cp -r site before
sed -i 's/mStyle = /mSheet = /' site/c/Suite/Orvane/include/DTC_TEMPLATE.ASP
check 1 "$headerdtc" generate --check --diff site
expect "$out" '-	mStyle = "../xsl/Generic.xsl"'
[[ $out != *$'\033'* ]] || fail "colours outside a terminal"
cp out stale.diff
[[ $(grep -c '^@@' out) == 2 ]] || fail "each page has one change"
cmp -s site/traffic/ships.asp before/traffic/ships.asp || fail "--diff wrote a page"
check 1 "$headerdtc" generate --check --json --diff site
expect_lines generate
check 1 "$headerdtc" check site
expect "$out" "warning: the text is not what would be generated [stale]"
patch -s -p0 <stale.diff || fail "patch refused the difference"
check 0 "$headerdtc" generate --check site

# On a terminal the difference has colours, unless they are not wanted.
sed -i 's/mSheet = /mStyle = /' site/c/Suite/Orvane/include/DTC_TEMPLATE.ASP
on_terminal="'$headerdtc' generate --check --diff site/traffic/ships.asp"
script -qec "$on_terminal" /dev/null </dev/null >out
grep -q $'\033\\[31m-' out || fail "no colours on a terminal: $(cat out)"
NO_COLOR=1 script -qec "$on_terminal" /dev/null </dev/null >out
grep -q $'\033\\[31m' out && fail "colours in spite of NO_COLOR"
"$headerdtc" generate site >made.log

# ---- faults, in every form of output ------------------------------------------------------------
sed -i 's/VALUE="3 - BERTH"/VALUE="3 - QUAY"/' site/traffic/ships.asp
rm site/c/Suite/Include/Tides.asp
check 1 "$headerdtc" check site
expect "$out" 'site/traffic/ships.asp:'
expect "$out" 'error: return field "3 - QUAY" is not offered by "Ships" [unknown-field]'
expect "$out" '    HeaderDTC1, ZEKO, row 2: is "3 - BERTH" meant? remove it'
expect "$out" '[missing-include]'
expect "$out" '[undefined-function]'
at=$(grep -n 'NAME="ZEKOReturnFields1"' site/traffic/ships.asp | cut -d: -f1)
expect "$out" "site/traffic/ships.asp:$at: error: return field"
check 1 "$headerdtc" check --json site
expect_lines check
check 1 "$headerdtc" check --annotations site
expect "$out" "::error file=site/traffic/ships.asp,line=$at,title=unknown-field::"
check 1 "$headerdtc" check --sarif site
python3 "$project/tests/cli/validate_lines.py" --whole "$project/docs/schemas/check-sarif.schema.json" out \
    >wrong 2>&1 || fail "SARIF: $(cat wrong)"
jq -e '.runs[0] | . as $run | .results | length > 0 and all(.[]; . as $result |
    $run.tool.driver.rules[$result.ruleIndex].id == $result.ruleId)' out >wrong ||
    fail "a result names another rule than its index"
check 0 "$headerdtc" check --rules
expect "$out" "unknown-field"

# What is wrong with the whole site is said once, what is wrong with pages of each of them.
for command in check 'where --field IMO'; do
    # shellcheck disable=SC2086
    check 3 "$headerdtc" $command none.asp none-either.asp
    [[ $(grep -c '^none.*\.asp: cannot be read' err) == 2 ]] || fail "not both are told: $err"
done
mv site/providers.json kept
check 3 "$headerdtc" check site/traffic
[[ $(wc -l <err) == 1 ]] || fail "one missing catalogue was said more than once: $err"
mv kept site/providers.json
sed -i 's/PWD=quayside"/PWD=quayside/' site/headerdtc.toml  # a quotation mark is not closed
check 2 "$headerdtc" generate site
check 1 "$headerdtc" doctor --json site

finish
