#!/usr/bin/env bash
# site_tools_test.sh HEADERDTC PROJECT: the commands that look at whole sites, as a user would run
# them, on a site that is not the demo.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
# shellcheck source=tests/cli/harbour_site.sh
. "$project/tests/cli/harbour_site.sh"
harbour_site site

# ---- what a whole site says ---------------------------------------------------------------------
check 0 "$headerdtc" generate --check site
check 0 "$headerdtc" check site
expect_empty "$out$err"
says 0 "DSN=Harbour;UID=office;PWD=***" doctor site
tells 0 doctor doctor --json site/traffic/ships.asp

# ---- a site from nothing ------------------------------------------------------------------------
warns 2 "--yes" init port </dev/null
printf '%s\n' web D=disk '' 'D:\Suite' '' "it's.sqlite" |
    script -qec "'$headerdtc' init port" /dev/null >said.init
[[ -d port/web ]] || fail "not what was answered: $(cat said.init)"
harbour_page port/web/ships.asp <<'END'
{"do":"choose","control":"DataProvidersCombo","text":"Example"}
{"do":"tab","index":2}
{"do":"select","control":"ZEKOFieldsList","items":[0,1]}
{"do":"click","control":"ZEKOAddField"}
{"do":"save"}
END
check 0 "$headerdtc" check port
check 0 "$headerdtc" translations check port
warns 3 "--into" new port/web/ships.asp
# What is there stays as it is, and what is missing is made again; a suite is not added to.
rm "port/it's.sqlite" port/disk/Suite/xsl/Generic.xsl port/velmora.reg
echo '# mine' >>port/headerdtc.toml
cp -r port before
tells 0 init init --json --drive C=elsewhere --install-dir 'D:\Suite' port
[[ $(diff -r port before | xargs -d '\n') == "Only in port: it's.sqlite Only in port: velmora.reg" ]] ||
    fail "$(diff -r port before)"
check 2 "$headerdtc" init --yes --drive c port/other
says 3 'failed   catalogue' init --yes --catalogue 'DSN=Nowhere;PWD=quayside' port/other
expect "$(<port/catalogue.json)" '{"number": 3, "name": "CITY"}'
sed -i 's/SQLite3/PostgreSQL/' port/odbc.ini && rm "port/it's.sqlite"
check 1 "$headerdtc" init --yes port
[[ ! -e "port/it's.sqlite" ]] || fail "a file was made for a server"
says 3 'failed   configuration' init --yes /dev/null/port
[[ $out != *'headerdtc.toml: cannot be read'* ]] || fail "what could not be made is not what is said: $out"
rm -r port before

# ---- where --------------------------------------------------------------------------------------
says 0 'site/traffic/ships.asp:' where --field berth site
expect "$out" 'HeaderDTC1, ZEKO return field 2: 3 - BERTH' 'HeaderDTC1, ZEKO key of criterion 1: BERTH'
expect "$out" 'site/traffic/today/berths.asp:'
check 0 "$headerdtc" where --field BERTH --provider Ships site
[[ $out != *berths.asp* ]] || fail "a field of another provider was told"
says 0 '"family":"ZEKO"' where --field BERTH --json site
tells 0 where where --include TIDES.asp --json site
[[ $(jq -rs '[.[] | select(.type == "use")][0].property' out) == ExtraIncludes0 ]] ||
    fail "the include was not found: $out"
check 0 "$headerdtc" where --provider Tugs site
expect_empty "$out"
expect "$err" 'none of 4 pages uses the data provider "Tugs"'
sqlite3 site/texts.sqlite "INSERT INTO I18NFIELDNAMES VALUES ('Ships', 'zeko', 'IMO', 'L1')"
printf '%s\n' '{"do":"tab","index":3}' \
    '{"do":"select","control":"ZEKOI18NFieldnamesList","items":[0]}' '{"do":"save"}' |
    "$headerdtc" automate site/traffic/ships.asp >made.log
says 0 'ZEKO translated field name 1: 1 - IMO' where --label l1 site
mv site/texts.sqlite kept
warns 3 "headerdtc doctor" where --label L1 site
says 1 "broken   data source" doctor site
mv kept site/texts.sqlite

# ---- stale pages, as a difference ---------------------------------------------------------------
cp -r site before
sed -i 's/mStyle = /mSheet = /' site/c/Suite/Orvane/include/DTC_TEMPLATE.ASP
says 1 '-	mStyle = "../xsl/Generic.xsl"' generate --check --diff site
[[ $out != *$'\033'* ]] || fail "colours outside a terminal"
expect "$err" "2 pages out of date; to write them: headerdtc generate site"
cp out stale.diff
[[ $(grep -c '^@@' out) == 2 ]] || fail "each page has one change"
cmp -s site/traffic/ships.asp before/traffic/ships.asp || fail "--diff wrote a page"
tells 1 generate generate --check --json --diff site
says 1 "warning: the text is not what would be generated [stale]" check site
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

# ---- in words -----------------------------------------------------------------------------------
says 0 'ZEKO fields: IMO, BERTH' show --summary site/traffic/ships.asp
expect "$out" 'ZEKO criteria: BERTH is HighWater()' 'ZEKO translated names: IMO'
check 0 "$headerdtc" show --summary --json site/traffic/ships.asp
jq -e '.controls[0].summary[0] == {subject: "Data provider", text: "Ships"}' out >wrong || fail "no summary: $out"
cp site/traffic/ships.asp site/traffic/star_.asp
sed -i 's/VALUE="HighWater"/VALUE="\&lt;1*"/' site/traffic/star_.asp
says 0 $'## site/traffic/star\\_.asp\n\n- ' report site
expect "$out" '- **ZEKO criteria:** BERTH is "\<1\*"' '- **Data provider:** Berths'
tells 0 report report --json site
rm site/traffic/star_.asp

# ---- rename -------------------------------------------------------------------------------------
check 1 "$headerdtc" rename --field Ships BERTH QUAY site
[[ $(grep -c '^+	<PARAM' out) == 3 ]] || fail "not a field, a criterion and a key: $out"
cp out shown.diff
tells 1 rename rename --field Ships BERTH QUAY --json site
tells 3 rename rename --field Ships BERTH QUAY --json site nowhere
cp site/traffic/ships.asp before.asp
warns 0 '"Ships" has no field "QUAY"' rename --field Ships BERTH QUAY --apply site
patch -s -p0 before.asp <shown.diff || fail "patch refused the difference of a renaming"
cmp -s before.asp site/traffic/ships.asp || fail "another difference was shown than written"
check 0 "$headerdtc" generate --check site
check 0 "$headerdtc" rename --field Ships QUAY BERTH --apply --quiet --files-from <(echo site)
check 0 "$headerdtc" check site
expect_empty "$out$err"

# ---- faults, in every form of output ------------------------------------------------------------
sed -i 's/VALUE="3 - BERTH"/VALUE="3 - QUAY"/' site/traffic/ships.asp
rm site/c/Suite/Include/Tides.asp
says 1 'site/traffic/ships.asp:' check site
expect "$out" 'error: return field "3 - QUAY" is not offered by "Ships" [unknown-field]'
expect "$out" '    HeaderDTC1, ZEKO, row 2: is "3 - BERTH" meant? remove it' '[missing-include]'
expect "$out" '[undefined-function]'
at=$(grep -n 'NAME="ZEKOReturnFields1"' site/traffic/ships.asp | cut -d: -f1)
expect "$out" "site/traffic/ships.asp:$at: error: return field"
tells 1 check check --json site
check 1 "$headerdtc" check --sarif site
python3 "$project/tests/cli/validate_lines.py" --whole "$project/docs/schemas/check-sarif.schema.json" out \
    >wrong 2>&1 || fail "SARIF: $(cat wrong)"
jq -e '.runs[0] | . as $run | .results | length > 0 and all(.[]; . as $result |
    $run.tool.driver.rules[$result.ruleIndex].id == $result.ruleId)' out >wrong ||
    fail "a result names another rule than its index"
tells 0 explain explain --json
says 0 'end-punctuation' explain
says 0 'stale' explain stale
[[ $out != *end-punctuation* ]] || fail "other rules were explained than the one: $out"
says 0 "unknown-field" check --rules

# ---- what a site lives with ---------------------------------------------------------------------
check 0 "$headerdtc" check --baseline known.json --update-baseline site
expect_empty "$out"
jq -e 'map(select(.rule == "unknown-field")) == [{page: "site/traffic/ships.asp", rule: "unknown-field",
    control: "HeaderDTC1", value: "3 - QUAY"}]' known.json >wrong || fail "not that entry: $(cat known.json)"
sed -i '1i <!-- another line -->' site/traffic/ships.asp
check 0 "$headerdtc" check --baseline known.json site
(cd site && check 0 "$headerdtc" check --baseline ../known.json traffic && exit "$failures") || fail "elsewhere"
sed -i 's/VALUE="1 - IMO"/VALUE="1 - HULL"/; s/VALUE="3 - QUAY"/VALUE="3 - BERTH"/' site/traffic/ships.asp
says 1 '"1 - HULL" is not offered' check --baseline known.json site
expect "$err" 'known.json: 1 finding not found any more'
cp known.json before.json
check 0 "$headerdtc" check --baseline known.json --update-baseline site/traffic/today
cmp -s known.json before.json || fail "entries of other pages were taken out"
mv site/traffic/ships.asp kept
check 0 "$headerdtc" check --baseline known.json --update-baseline site/traffic/today
[[ $(jq length known.json) == 0 ]] || fail "entries of a page that is gone: $(cat known.json)"
mv kept site/traffic/ships.asp
printf '[check]\nmissing-include = "off"\nundefined-function = "warning"\nunchanged = "off"\n' >>site/headerdtc.toml
says 1 'warning: no include file and no script defines' check site
[[ $out != *missing-include* && $out != *not-generated* ]] || fail "a rule that is off told something: $out"
sed -i 's/^unchanged = .*/stael = "off"/' site/headerdtc.toml
check 2 "$headerdtc" check site
check 1 "$headerdtc" doctor site
expect "$err$out" 'there is no rule "stael"; did you mean '"'stale'?"
check 0 "$headerdtc" generate site
sed -i '/^.check.$/,$d' site/headerdtc.toml

# What is wrong with the whole site is said once, what is wrong with pages of each of them.
for command in check 'where --field IMO'; do
    # shellcheck disable=SC2086
    check 3 "$headerdtc" $command none.asp none-either.asp
    [[ $(grep -c '^none.*\.asp: cannot be read' err) == 2 ]] || fail "not both are told: $err"
done
mv site/providers.json kept
check 3 "$headerdtc" check site/traffic
warns 3 "2 pages not checked: $folder/site/providers.json: " check site/traffic
[[ $(wc -l <err) == 2 ]] || fail "one missing catalogue was said more than once: $err"
warns 3 "2 pages left as they were: " generate site/traffic
[[ $(grep -c '^site/traffic/.*asp: left as it was: .*/providers.json' err) == 2 ]] ||
    fail "not each page has its reason: $err"
mkdir lone && cp site/traffic/today/berths.asp lone
check 3 "$headerdtc" generate lone
[[ $(head -1 err) == "there is no headerdtc.toml in $folder/lone or above it; 'headerdtc init'"* ]] ||
    fail "a missing configuration is not said first: $err"
for command in show 'translations check' where\ --field\ BERTH; do
    # shellcheck disable=SC2086
    "$headerdtc" $command lone/berths.asp 2>&1 >out | head -1 | grep -q '^there is no headerdtc.toml' ||
        fail "$command does not say that there is no configuration"
done
mv kept site/providers.json
template=site/c/Suite/Orvane/include/DTC_TEMPLATE.ASP
mv $template kept
warns 3 "2 pages not checked: $folder/$template: " check site/traffic
[[ $out != *not-generated* ]] || fail "a missing template was said of each control: $out"
mv kept $template
sed -i 's/PWD=quayside"/PWD=quayside/' site/headerdtc.toml  # a quotation mark is not closed
check 2 "$headerdtc" generate site
check 1 "$headerdtc" doctor --json site

finish
