#include "host/doctor/doctor.h"

#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::doctor_test {

class Doctor : public Test {
  protected:
    Doctor() {
        site.write("odbc.ini", "[Harbour]\nDriver = SQLite3\nDatabase = texts.sqlite\n");
        configure("DSN=Harbour;UID=a;PWD=hush");
        makeDatabase(
            "CREATE TABLE I18NTEXT (LABEL, TEXT, LOCALEID, DATECHANGED, STATUS);"
            "CREATE TABLE I18NFIELDNAMES (PROVIDERNAME, BISTYPE, FIELDNAME, LABEL);"
            "CREATE TABLE I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, "
            "LABEL);");
    }

    void configure(const std::string& connectString, const std::string& odbcIni = "odbc.ini",
                   const std::string& labels = "") {
        site.write("headerdtc.toml",
                   "registry = \"velmora.reg\"\n[drives]\nC = \"c\"\n"
                   "[datasource]\ncatalogue = \"catalogue.json\"\n"
                   "[translations]\nconnect_string = \"" +
                       connectString + "\"\nlabel_connect_string = \"" +
                       (labels.empty() ? connectString : labels) + "\"\nodbc_ini = \"" + odbcIni +
                       "\"\n");
    }
    void makeDatabase(const std::string& statements) {
        const std::string file = (site / "texts.sqlite").string();
        ASSERT_EQ(std::system(("sqlite3 '" + file + "' '" + statements + "'").c_str()), 0);
    }

    // "health: detail -> next step" of a link.
    std::string look(const std::string& link, const std::string& place = "") {
        for (const Diagnosis& diagnosis : examineSite(site / place, "", "")) {
            if (diagnosis.link == link)
                return std::string(nameOf(diagnosis.health)) + ": " + diagnosis.detail + " -> " +
                       diagnosis.nextStep;
        }
        return "not told";
    }

    static auto says(const char* health, const char* detail) {
        return AllOf(StartsWith(health), HasSubstr(detail));
    }

    TempSite site;
};

TEST_F(Doctor, FindsNothingBrokenInAWholeSiteAndChangesNothing) {
    const auto stamp = std::filesystem::last_write_time(site / "texts.sqlite");
    for (const Diagnosis& diagnosis : examineSite(site.path(), "", "")) {
        EXPECT_EQ(diagnosis.health, Health::Whole) << diagnosis.link << ": " << diagnosis.detail;
        EXPECT_THAT(diagnosis.detail + diagnosis.nextStep, Not(HasSubstr("hush")));
    }
    EXPECT_EQ(std::filesystem::last_write_time(site / "texts.sqlite"), stamp);
    EXPECT_THAT(look("data source"), HasSubstr("DSN=Harbour;UID=a;PWD=***"));
    EXPECT_THAT(look("template"), HasSubstr("2 of 29 placeholders"));
    EXPECT_THAT(look("table I18NTEXT"), StartsWith("ok: 0 rows"));
    EXPECT_THAT(look("log-on for labels"), StartsWith("not told"));
}

TEST_F(Doctor, SaysWhichConfigurationHoldsAndWhy) {
    site.write("deep/er/page.asp", "");
    EXPECT_THAT(look("configuration", "deep/er/page.asp"),
                says("ok: ", "headerdtc.toml, in the nearest folder above"));
    EXPECT_THAT(look("configuration"), EndsWith("/headerdtc.toml -> "));
    const auto named = examineSite(site.path(), site / "headerdtc.toml", "HEADERDTC_CONFIG");
    EXPECT_THAT(named.front().detail, EndsWith("named by HEADERDTC_CONFIG"));

    site.write("headerdtc.toml", "colour = 1\n");
    const auto broken = examineSite(site.path(), "", "");
    EXPECT_EQ(broken.size(), 1U);
    EXPECT_THAT(broken.front().detail, HasSubstr("headerdtc.toml:1:1:"));

    std::filesystem::remove(site / "headerdtc.toml");
    EXPECT_THAT(look("configuration"), says("warning: no headerdtc.toml", "-> make a site with "));
}

TEST_F(Doctor, NamesTheFirstBrokenLinkOfTheInstallation) {
    site.writeTemplate("<PATH_TO_ROT> <DATAPROVIDER> <DATAPROVIDR> <TABLE> <A_B c> <A_B");
    EXPECT_THAT(look("template"), says("warning: ", "unknown: <DATAPROVIDR>, <PATH_TO_ROT> "));
    std::filesystem::remove(site / "c/Suite/Orvane/include/DTC_TEMPLATE.ASP");
    EXPECT_THAT(look("template"), says("broken: ", "/DTC_TEMPLATE.ASP -> "));
    std::filesystem::remove_all(site / "c/Suite");
    EXPECT_THAT(look("install directory"), StartsWith("broken: C:\\SUITE\\ would be "));
    EXPECT_THAT(look("template"), StartsWith("skipped: "));
    std::filesystem::remove_all(site / "c");
    EXPECT_THAT(look("drive C"), StartsWith("broken: there is no folder "));
    site.write("velmora.reg", "REGEDIT4\r\n\r\n");
    EXPECT_THAT(look("registry export"),
                AllOf(HasSubstr("has no HKLM"), HasSubstr("-> export the key")));
    EXPECT_THAT(look("install directory"), StartsWith("skipped: "));
    site.write("velmora.reg",
               "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Zarvik\\Zarvik "
               "Velmora]\r\n\"InstallDir\"=\"C:\\\\Suite\"\r\n");
    EXPECT_THAT(look("registry export"), HasSubstr("-> take WOW6432Node\\ out"));
    site.write("catalogue.json", R"({"providers": [{"name": "Ships"}]})");
    EXPECT_THAT(look("catalogue"), HasSubstr("\"Ships\" has neither"));
    site.write("catalogue.json", R"({"providers": [{"name": "Ships", "zeko": {"fields":
        [{"number": 1, "name": "IMO"}], "keyFields": ["FLAG"]}}]})");
    EXPECT_THAT(look("catalogue"), HasSubstr("the key field FLAG of \"Ships\" is none"));
    site.write("catalogue.json", "{\"providers\": []}");
    EXPECT_THAT(look("catalogue"), StartsWith("warning: "));
    site.write("catalogue.json", "{\"providers\": 1}");
    EXPECT_THAT(look("catalogue"), says("broken: ", "catalogue.json:1:"));
}

TEST_F(Doctor, FollowsAConnectStringToItsTables) {
    makeDatabase("DROP TABLE I18NFIELDNAMES; CREATE TABLE I18NFIELDNAMES (PROVIDERNAME);");
    EXPECT_THAT(look("table I18NFIELDNAMES"), StartsWith("broken: "));
    EXPECT_THAT(look("table I18NTEXT"), StartsWith("ok: "));

    site.write("labels.sqlite", "");
    site.write("odbc.ini",
               "[Harbour]\nDriver = SQLite3\nDatabase = texts.sqlite\n"
               "[Labels]\nDriver = SQLite3\nDatabase = labels.sqlite\n");
    configure("DSN=Harbour;PWD=hush", "odbc.ini", "DSN=Labels");
    EXPECT_THAT(look("table I18NTEXT for labels"), StartsWith("broken: "));
    site.write("texts.sqlite", std::string(4096, 'x'));
    EXPECT_THAT(look("table I18NTEXT"), HasSubstr("-> the file is no SQLite database"));

    std::filesystem::remove(site / "texts.sqlite");
    EXPECT_THAT(look("data source"), AllOf(StartsWith("broken: "), HasSubstr("texts.sqlite"),
                                           HasSubstr("-> put the file there")));
    configure("DRIVER=SQLite3;Database=" + (site / "texts.sqlite").string() + ";PWD=hush");
    EXPECT_THAT(look("data source"),
                AllOf(StartsWith("broken: "), HasSubstr("texts.sqlite"), Not(HasSubstr("hush"))));
    EXPECT_THAT(look("tables"), StartsWith("skipped: "));
    EXPECT_FALSE(site.has("texts.sqlite"));

    site.write("odbc.ini", "[Harbour]\nDriver = SQLite3\nDatabas = texts.sqlite\n");
    configure("DSN=Harbour;PWD=hush");
    EXPECT_THAT(look("data source"),
                AllOf(StartsWith("broken: "), HasSubstr("odbc.ini:1 has no Database"),
                      HasSubstr("is Databas in line 3 meant")));

    configure("DRIVER={No Such Driver};PWD=hush");
    EXPECT_THAT(look("driver"), StartsWith("broken: the driver \"No Such Driver\""));
    site.write("odbc.ini", "[Harbour]\nDriver = PostgreSQL Nonsense\n");
    configure("DSN=Harbour;PWD=hush");
    EXPECT_THAT(look("driver"), EndsWith("apt install odbc-postgresql"));
    configure("DSN=Port;PWD=hush");
    EXPECT_THAT(look("data source"),
                AllOf(StartsWith("broken: "), HasSubstr("DSN=Port;PWD=*** -> "),
                      HasSubstr("there is no [Port] in ")));
    configure("DSN=Port;PWD=hush", "nowhere.ini");
    EXPECT_THAT(look("data source"), AllOf(HasSubstr("nowhere.ini"), Not(HasSubstr("hush"))));
    configure("");
    EXPECT_THAT(look("data source"), StartsWith("warning: \"connect_string\" is empty"));
    EXPECT_EQ(look("driver"), "not told");
}

}  // namespace headerdtc::doctor_test
