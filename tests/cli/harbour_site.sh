# shellcheck shell=bash disable=SC2034,SC2154
# harbour_site FOLDER: makes the site of a harbour office, its pages by the command itself. Sourced by
# the scenario tests; $headerdtc is the command.

harbour_page() {  # harbour_page PAGE <steps
    "$headerdtc" new "$1" >>made.log && "$headerdtc" automate "$1" >>made.log
}

harbour_site() {
    mkdir -p "$1"/{traffic/today,c/Suite/Orvane/include,c/Suite/Include,c/Suite/xsl}
    cat >"$1/headerdtc.toml" <<'END'
code_page = "utf-8"
registry = "suite.reg"

[drives]
C = "c"

[datasource]
catalogue = "providers.json"

[translations]
connect_string = "DSN=Harbour;UID=office;PWD=quayside"
label_connect_string = "DSN=Harbour;UID=office;PWD=quayside"
odbc_ini = "odbc.ini"
END
    cat >"$1/suite.reg" <<'END'
REGEDIT4

[HKEY_LOCAL_MACHINE\SOFTWARE\Zarvik\Zarvik Velmora]
"InstallDir"="C:\\Suite"
END
    cp "$project/tests/support/harbour.json" "$1/providers.json"
    cat >"$1/odbc.ini" <<'END'
[Harbour]
Driver = SQLite3
Database = texts.sqlite
END
    sqlite3 "$1/texts.sqlite" <"$project/demo/translations/schema-sqlite.sql"
    cat >"$1/c/Suite/Orvane/include/DTC_TEMPLATE.ASP" <<'END'
<EXTRA_INCLUDES><%
	Set <DATAPROVIDER_VARNAME> = Server.CreateObject("Velmora.DataProvider")
	<DATAPROVIDER_VARNAME>.Open "<DATAPROVIDER>"
	<ADD_ZEKO_RETURN_FIELDS>
	<SPECIFY_ZEKO_CRITERIA>
	<SPECIFY_ZEKO_I18N_FIELDS>
	mStyle = "<PATH_TO_ROOT><XSL_FILENAME>"
%>
END
    printf '<%%\nFunction HighWater()\nEnd Function\n%%>\n' >"$1/c/Suite/Include/Tides.asp"
    echo '<xsl/>' >"$1/c/Suite/xsl/Generic.xsl"

    harbour_page "$1/traffic/ships.asp" <<'END'
{"do":"choose","control":"DataProvidersCombo","text":"Ships"}
{"do":"type","control":"IncludeASPText","text":"Include/Tides.asp"}
{"do":"click","control":"IncludeASPAddCommand"}
{"do":"tab","index":2}
{"do":"select","control":"ZEKOFieldsList","items":[0,2]}
{"do":"click","control":"ZEKOAddField"}
{"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":1}
{"do":"choose","control":"ZEKOKeyFieldsCombo","text":"BERTH"}
{"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":2}
{"do":"choose","control":"ZEKOOperatorsCombo","text":"=="}
{"do":"dblcell","control":"ZEKOCriteriaGrid","row":1,"column":3}
{"do":"type","control":"ZEKOKeyFieldValueText","text":"HighWater"}
{"do":"key","control":"ZEKOKeyFieldValueText","key":"Enter"}
{"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":4}
{"do":"click","control":"SpecifyCriteriumDialog.IncludedScriptOption"}
{"do":"click","control":"SpecifyCriteriumDialog.OKButton"}
{"do":"save"}
END
    harbour_page "$1/traffic/today/berths.asp" <<'END'
{"do":"choose","control":"DataProvidersCombo","text":"Berths"}
{"do":"tab","index":2}
{"do":"select","control":"ZEKOFieldsList","items":[0,1]}
{"do":"click","control":"ZEKOAddField"}
{"do":"save"}
END
}
