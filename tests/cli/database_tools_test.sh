#!/usr/bin/env bash
# database_tools_test.sh HEADERDTC PROJECT: the commands on translations and on the catalogue, as a
# user would run them, on the site of a harbour office.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
# shellcheck source=tests/cli/harbour_site.sh
. "$project/tests/cli/harbour_site.sh"
harbour_site site
texts() { sqlite3 site/texts.sqlite "SELECT LABEL, LOCALEID, TEXT FROM I18NTEXT ORDER BY 1, 2"; }

# ---- translations -------------------------------------------------------------------------------
sqlite3 site/texts.sqlite <<'END'
INSERT INTO I18NTEXT VALUES
    ('H1', 'Ship', 1033, '1/2/2000', 0), ('H1', 'Schiff', 1031, '1/2/2000', 0),
    ('H2', 'Free berths:', 1033, '1/2/2000', 0), ('H2', 'Freie Plätze', 1031, '1/2/2000', 0),
    ('H3', 'Say "hi", pilot', 1033, '1/2/2000', 0);
INSERT INTO I18NFIELDNAMES VALUES ('Ships', 'zeko', 'IMO', 'H1'), ('Ships', 'zeko', 'FLAG', 'H9'),
    ('Ships', 'zeko', 'BERTH', '');
END
says 1 '1031 H2: "Freie Plätze" does not end with ":" like the source [end-punctuation]' translations check site
expect "$out" '1031 H3: is not translated: "Say "hi", pilot" [missing]'
expect "$out" 'H9: has no text in any language, but translates Ships zeko FLAG [unknown-label]'
expect "$out" 'Ships zeko BERTH is translated by an empty label [empty-label]'
expect "$out" '1031: 2 translated, 1 missing, 1 faults'
tells 1 translations-check translations check --json site
[[ $(jq -r 'select(.rule == "missing").locale' out) == 1031 ]] || fail "not of that language: $out"
check 0 "$headerdtc" translations check --baseline known.json --update-baseline site
says 0 '1031: 2 translated, 1 missing, 0 faults' translations check --baseline known.json site
cp site/headerdtc.toml kept.toml
printf '[check]\nempty-label = "off"\nend-punctuation = "off"\n' >>site/headerdtc.toml
check 1 "$headerdtc" translations check site
[[ $out == *missing]* && $out != *empty-label* && $out == *' 0 faults' ]] || fail "not only those are off: $out"
mv kept.toml site/headerdtc.toml

check 0 "$headerdtc" translations export --bom -o texts.csv --locale 1031 --locale 1036 site
head -c 3 texts.csv | cmp -s - <(printf '\xEF\xBB\xBF') || fail "no byte-order mark"
expect "$(cat texts.csv)" 'key,source (1033),1031,1036,comment,state'
expect "$(cat texts.csv)" 'H3,"Say ""hi"", pilot",,,,'
before=$(texts)
says 0 '0 added, 0 changed, 6 unchanged, 0 refused; nothing was written' translations import texts.csv site
[[ $(texts) == "$before" ]] || fail "an unedited file changed the database"

# Edited as by a translator: exactly those cells change, and a dry run changes none.
sed -i 's/H1,Ship,Schiff,,/H1,Ship,Boot,"Le ""Navire""",/; s/,Freie Plätze,,/,Freie Plätze:,,/' texts.csv
says 0 'line 2: H1 1031 changed: "Schiff" is now "Boot"' translations import --dry-run texts.csv site
expect "$out" 'line 2: H1 1036 added: "Le "Navire""'
[[ $(texts) == "$before" ]] || fail "a dry run wrote"
tells 0 translations-import translations import --json texts.csv site
diff <(echo "$before") <(texts) >changed
[[ $(grep -c '^>' changed) == 3 ]] || fail "not exactly three texts changed: $(cat changed)"
expect "$(cat changed)" '> H1|1036|Le "Navire"'

# Changed in the database meanwhile: refused, and nothing else is written either.
cp texts.csv later.csv
check 0 "$headerdtc" translations export -o later.csv site
sqlite3 site/texts.sqlite "UPDATE I18NTEXT SET TEXT = 'Kahn' WHERE LABEL = 'H1' AND LOCALEID = 1031"
sed -i "s/H1,Ship,Boot/H1,Ship,Dampfer/; s/,Freie Plätze:/,Plätze:/" later.csv
before=$(texts)
says 1 'line 2: H1 1031 refused: it was changed in the database since the export' translations import later.csv site
expect "$out" 'nothing was written'
[[ $(texts) == "$before" ]] || fail "a refused import wrote"
check 1 "$headerdtc" translations import --skip-refused later.csv site
expect "$(texts)" 'H2|1031|Plätze:'
expect "$(texts)" 'H1|1031|Kahn'

printf 'key,1031\nH1,Gr\xfc\xdfe\n' >latin.csv
warns 3 'latin.csv: it is no UTF-8' translations import latin.csv site
mv site/texts.sqlite kept
check 3 "$headerdtc" translations check site
mv kept site/texts.sqlite

# ---- renamed with the pages, or not at all -------------------------------------------------------
fields() { sqlite3 site/texts.sqlite 'SELECT PROVIDERNAME, FIELDNAME FROM I18NFIELDNAMES ORDER BY 2' | xargs; }
tells 1 rename rename --field Ships IMO HULL --translations --json site
expect "$out" '"names":1,"values":0'
check 0 "$headerdtc" rename --field Ships IMO HULL --translations --apply site
[[ $(fields) == 'Ships|BERTH Ships|FLAG Ships|HULL' ]] || fail "not that field: $(fields)"
warns 3 'I18NFIELDNAMES has a row of Ships zeko FLAG already' rename --field Ships HULL FLAG --translations --apply site
ln site/traffic/ships.asp twin
check 3 "$headerdtc" rename --provider Ships Vessels --translations --apply site
rm twin
[[ $(fields) == 'Ships|BERTH Ships|FLAG Ships|HULL' ]] || fail "tables and pages parted: $(fields)"
check 0 "$headerdtc" rename --field Ships '1 - HULL' '1 - IMO' --translations --apply site
check 0 "$headerdtc" generate --check site

# ---- catalogue ----------------------------------------------------------------------------------
sqlite3 data.sqlite 'CREATE TABLE SHIP (IMO INTEGER PRIMARY KEY, FLAG TEXT, LENGTH REAL);
    CREATE TABLE BERTHS (BERTH TEXT, SIDE TEXT, DEPTH REAL, PRIMARY KEY (BERTH, SIDE));
    CREATE VIEW LONG_SHIP AS SELECT IMO FROM SHIP;'
connect="DRIVER=SQLite3;Database=$folder/data.sqlite;PWD=quayside"
cp site/providers.json before.json
says 1 '+ Ships: EAI SHIP.LENGTH' catalogue check --connect "$connect" site
expect "$out" '- Ships: ZEKO 3 - BERTH' '+ Berths: ZEKO 3 - SIDE'
expect "$out" '~ Berths: ZEKO key fields BERTH, SIDE (were BERTH)'
tells 1 catalogue-check catalogue check --json --connect "$connect" site
check 0 "$headerdtc" catalogue import --dry-run --connect "$connect" site
cmp -s site/providers.json before.json || fail "a dry run wrote the catalogue"
check 0 env HEADERDTC_CONNECT="$connect" "$headerdtc" catalogue import --table ship site
expect "$out" '+ Ships: EAI SHIP.LENGTH'
[[ $out != *Berths* ]] || fail "a table that was not asked for"
tells 0 catalogue-import catalogue import --json --connect "$connect" site
check 0 "$headerdtc" catalogue check --connect "$connect" site
expect_empty "$out"
# What is gone is told of the pages that have it.
says 1 'return field "3 - BERTH" is not offered by "Ships"' check site/traffic/ships.asp

# Views where they are named; a list in the place of a database.
says 1 '+ LONG_SHIP: EAI LONG_SHIP.IMO' catalogue check --connect "$connect" --table 'long*' site
printf '%s\n' provider,family,number,field,key Ships,ZEKO,1,IMO,1 Ships,ZEKO,4,OWNER, >fields.csv
check 0 env HEADERDTC_CONNECT=DSN=Nowhere "$headerdtc" catalogue import --list fields.csv site
expect "$out" '+ Ships: ZEKO 4 - OWNER'
check 0 "$headerdtc" catalogue check --list - site <fields.csv
cp fields.csv first.csv
echo Ships,ZEKO,one,IMO >>fields.csv
warns 3 'fields.csv:4: "one" is no number' catalogue check --list fields.csv site
check 0 "$headerdtc" init --yes --catalogue first.csv port
[[ $(jq -c '.providers[].zeko.fields[].name' port/catalogue.json | xargs) == 'IMO OWNER' ]] || fail "not that list"
check 3 "$headerdtc" catalogue check --connect "DSN=Nowhere;PWD=quayside" site
warns 3 "no such table" catalogue check --connect "$connect" --table nothing site
check 3 "$headerdtc" catalogue import --connect "DRIVER=SQLite3;Database=none.sqlite" site
[[ ! -e none.sqlite ]] || fail "a database was made that was not there"
warns 2 "--list FILE or --connect" catalogue check site

finish
