#!/usr/bin/env bash
# translation_scenario.sh HEADERDTC PROJECT: an author translates a page of the demo site through
# automation; the rows at the end are the same on every database. Beside a private server (see
# with-server.sh) on that, otherwise on the demo's SQLite file.
set -euo pipefail
headerdtc=$1
project=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$project/demo" "$folder/site"
cd "$folder/site"
unset HEADERDTC_CONFIG

rows="SELECT 'text', LABEL, TEXT, LOCALEID, STATUS FROM I18NTEXT WHERE LABEL = 'SLBDA3000';
SELECT 'name', BISTYPE, FIELDNAME, LABEL FROM I18NFIELDNAMES
 WHERE PROVIDERNAME = 'Customers' AND BISTYPE = 'zeko' ORDER BY FIELDNAME;
SELECT 'value', BISTYPE, FIELDNAME, FIELDVALUE, LABEL FROM I18NFIELDVALUES
 WHERE PROVIDERNAME = 'Customers' AND BISTYPE = 'zeko' ORDER BY FIELDVALUE;"

setting() { sed -n "s/^ *$1 *= *//p" "$HEADERDTC_SERVER_INI" | head -n 1; }
case ${HEADERDTC_SERVER:-sqlite} in
    sqlite)
        rm -f translations.sqlite*
        ./make-translations >/dev/null
        query() { sqlite3 translations.sqlite "$rows"; }
        ;;
    postgresql)
        sql=(psql -q -h 127.0.0.1 -p "$(setting Port)" -U WWWappsOrvane orvane)
        query() { "${sql[@]}" -At -F '|' -c "$rows"; }
        ;;
    mariadb)
        sql=(mariadb --default-character-set=utf8mb4 -h 127.0.0.1 -P "$(setting Port)"
            -u WWWappsOrvane orvane)
        query() { "${sql[@]}" -N -B -e "$rows" | tr '\t' '|'; }
        ;;
esac
if [[ -n ${HEADERDTC_SERVER:-} ]]; then
    cat "translations/schema-$HEADERDTC_SERVER.sql" translations/rows.sql | "${sql[@]}" >/dev/null
    sed -i "s|^odbc_ini = .*|odbc_ini = \"$HEADERDTC_SERVER_INI\"|" headerdtc.toml
fi

"$headerdtc" automate customers/regions/overview.asp \
    <"$project/tests/scenarios/translations.jsonl" >"$folder/replies"
if grep -nE '"ok":false|Error in' "$folder/replies"; then
    echo "FAILED: a step was refused or reported an error"
    exit 1
fi
grep -q '"text":"Turnover this year"' "$folder/replies" || {
    echo "FAILED: the label's English text was not shown"
    exit 1
}
query | diff - "$project/tests/scenarios/translations.rows" || {
    echo "FAILED: the rows at the end are others than expected"
    exit 1
}
"$headerdtc" generate --check customers
echo "All as expected on ${HEADERDTC_SERVER:-sqlite}."
