#!/usr/bin/env bash
# as_a_user_would_test.sh HEADERDTC PROJECT: runs the command as a user would, on a copy of the demo site.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
cp -r "$project/demo" site

full=site/customers/regions/overview.asp

# The committed pages are as generated, and stay untouched.
check 0 "$headerdtc" generate --check site
expect_empty "$out$err"
stamp=$(stat -c %Y%i "$full")
check 0 "$headerdtc" generate site
expect_empty "$out$err"
[[ $stamp == $(stat -c %Y%i "$full") ]] || fail "an unchanged page was rewritten"

# --print gives exactly the bytes that stand in the page.
check 0 "$headerdtc" generate --print "$full"
perl -0777 -ne 'print $1 if /2F9DAB28.*?-->\r\n(.*?)<!--METADATA[^>]*endspan-->/s' "$full" >expected
cmp -s expected out || fail "--print differs from the page"
sed 's/\(NrOfEAII18NFieldnames" VALUE="\)[0-9]*/\1many/' "$full" >site/many.asp
warns 3 "site/many.asp: Error in 'UserControl_ReadProperties': Type mismatch (13)" generate --print site/many.asp
rm site/many.asp

# Out of date: listed, then written, then up to date; the mode is kept, nothing stays behind.
sed -i 's/ExtraFilters = /UserFilters = /' site/drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP
chmod 640 "$full"
says 1 "$full" generate --check site
check 0 "$headerdtc" generate --jobs 2 site
[[ $(wc -l <out) == 7 ]] || fail "seven pages should have been written: $out"
diff <(sort out) out >/dev/null || fail "the order is not stable"
[[ $(stat -c %a "$full") == 640 ]] || fail "the mode was not kept"
[[ -z $(find site -name '.headerdtc*') ]] || fail "a stray file stayed behind"
check 0 "$headerdtc" generate --check site

# A page that fails is said and left, and stops no other.
sed -i 's/VALUE="Stock"/VALUE="Gone"/' site/stock.asp
sed -i 's/UserFilters = /ExtraFilters = /' site/drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP
cp site/stock.asp before.asp
warns 3 "site/stock.asp: left as it was" generate site
cmp -s site/stock.asp before.asp || fail "a page that would lose its provider was written"
check 0 "$headerdtc" generate --force site/stock.asp
cmp -s site/stock.asp before.asp && fail "--force wrote nothing"
warns 3 "nowhere.asp: " generate nowhere.asp

# Results that cannot be written are not passed over.
"$headerdtc" generate --print "$full" >/dev/full 2>err
[[ $? == 3 && $(<err) == *"standard output cannot be written: No space left"* ]] ||
    fail "a full disk under the output went unnoticed: $(<err)"

# Making and showing.
mkdir plain
check 0 "$headerdtc" new plain/new.asp
check 3 "$headerdtc" new plain/new.asp
check 0 "$headerdtc" new --into plain/new.asp
[[ $(head -1 plain/new.asp) == "<%@ "* ]] || fail "a control came before the directive"
check 0 "$headerdtc" new --into plain/new.asp --line 2
check 0 "$headerdtc" show --json plain/new.asp
[[ $(jq -c '[.controls[].id]' out) == '["HeaderDTC3","HeaderDTC2","HeaderDTC1"]' ]] || fail "wrong controls: $out"
expect "$out" '{"name":"XSLFilename","type":"string","value":"xsl/Generic.xsl"}'
expect "$out" '{"name":"ZEKOCriteriaCount","type":"integer","value":2}'
check 3 "$headerdtc" new --into plain/new.asp --line 9999
warns 3 "headerdtc.toml" generate plain/new.asp

# An empty path is told of and stops no other; nor does a folder that lies deep.
for command in "generate" "generate --print" "generate --check" "check" "show" "new" "new --into" \
    "automate"; do
    # shellcheck disable=SC2086  # words of a command
    check 3 "$headerdtc" $command '' </dev/null
    expect "$out$err" ': an empty path names no page'
done
deep=deep/$(printf 'd/%.0s' {1..1900})
mkdir -p "$deep"
printf '\xFF\xFE<\0' >"$deep/..asp.asp"
sed -i 's/ExtraFilters = /UserFilters = /' site/drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP
says 3 "$full" generate '' deep "$full"
expect "$err" "/d/..asp.asp: line 1: the page is in UTF-16, which no server page can be"

# Characters that the page's code page lacks are told of, and are no failure.
sed 's/\(XSLFilename" VALUE="\)/\1\&#937;\&#945;\&#937;/' "$full" >site/greek.asp
check 0 "$headerdtc" generate site/greek.asp
greek='HeaderDTC1, line 9: windows-1252 lacks Ω (U+03A9), α (U+03B1): the script has numeric'
expect "$err" "site/greek.asp: $greek"
check 0 "$headerdtc" generate --check --json site/greek.asp
expect "$(sed -n 2p out | jq -r '.messages[]')" "$greek"
expect_lines generate
warns 0 "site/greek.asp: $greek" generate --print site/greek.asp
rm site/greek.asp

# Configuration.
warns 2 "missing.toml" --config missing.toml show "$full"
printf 'colour = "red"\n' >wrong.toml
HEADERDTC_CONFIG=wrong.toml check 2 "$headerdtc" generate site
expect "$err" "wrong.toml:1:1"

finish
