// What the tools for whole sites ask of a database beyond the control's statements: bound values,
// catalogue functions, an import of translations.

#include "host/catalogue_import/database_tables.h"
#include "host/files/file_error.h"
#include "host/odbc/odbc_connection.h"
#include "host/odbc/odbc_metadata.h"
#include "host/odbc/reading_database.h"
#include "host/translations/translation_import.h"
#include "translation_database.h"

namespace headerdtc::site_tools_database_test {

using Action = ImportStep::Action;

class SiteTools : public Test {
  protected:
    SiteTools() : connection(database.settings) {
        connection.Open(database.settings.connectString, "", "", -1);
    }

    OdbcTable table(const std::string& name) {
        for (const OdbcTable& each : OdbcMetadata(connection.session()).tables(true)) {
            if (equalIgnoringCase(each.name, name)) return each;
        }
        ADD_FAILURE() << "no table " << name;
        return {};
    }

    // In capitals: one of the databases makes small letters of all names.
    std::vector<std::string> columns(const std::string& name) {
        std::vector<std::string> names;
        for (const auto& column : OdbcMetadata(connection.session()).columns(table(name)))
            names.push_back(upperCase(column.name));
        return names;
    }

    std::string text(const std::string& label, const std::string& locale) {
        const auto rows = database.rows("SELECT LABEL, LOCALEID, TEXT FROM I18NTEXT",
                                        {"LABEL", "LOCALEID", "TEXT"});
        for (const auto& row : rows) {
            if (row[0] == label && row[1] == locale) return row[2];
        }
        return "none";
    }

    TranslationDatabase database;
    OdbcConnection connection;
};

TEST_F(SiteTools, BoundValuesArriveAsTheyAre) {
    const std::string texts[] = {"it's \"so\" -- ; ? %", "\xD0\x9F\xD1\x80 \xE2\x82\xAC", "",
                                 std::string(1000, 'x'), "\xF0\x9D\x84\x9E clef"};
    OdbcSession& session = connection.session();
    int locale = 1;
    for (const std::string& each : texts) {
        const bool isBeyondUtf8Of3 = database.kind == "mariadb" && each.starts_with('\xF0');
        if (isBeyondUtf8Of3) continue;  // its schema may keep to three bytes
        const auto inserted = session.execute(
            "INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID) VALUES (?, ?, ?)", {"L'1", each, locale});
        EXPECT_EQ(session.rowCount(inserted), 1);
        session.free(inserted);
        EXPECT_EQ(text("L'1", std::to_string(locale)), each);
        const auto missed = session.execute("UPDATE I18NTEXT SET TEXT = ? WHERE LABEL = ?",
                                            {each, "no such label"});
        EXPECT_EQ(session.rowCount(missed), 0);
        session.free(missed);
        ++locale;
    }
}

TEST_F(SiteTools, CatalogueFunctionsTellTablesColumnsAndKeys) {
    database.run("DROP TABLE IF EXISTS QUAY_A");
    database.run("DROP TABLE IF EXISTS QUAYXA");
    database.run(
        "CREATE TABLE QUAY_A (DEPTH INTEGER, NAME VARCHAR(20) NOT NULL, SIDE INTEGER NOT "
        "NULL, PRIMARY KEY (SIDE, NAME))");
    database.run("CREATE TABLE QUAYXA (OTHER INTEGER)");
    OdbcMetadata metadata(connection.session());
    EXPECT_THAT(columns("I18NTEXT"),
                ElementsAre("LABEL", "TEXT", "LOCALEID", "DATECHANGED", "STATUS"));
    EXPECT_THAT(columns("QUAY_A"), ElementsAre("DEPTH", "NAME", "SIDE"));
    std::vector<std::string> key;
    for (const auto& column : metadata.primaryKey(table("QUAY_A")))
        key.push_back(upperCase(column));
    // The other drivers number the columns as they stand in the table.
    if (database.kind == "postgresql") {
        EXPECT_THAT(key, ElementsAre("SIDE", "NAME"));
    } else {
        EXPECT_THAT(key, UnorderedElementsAre("SIDE", "NAME"));
    }
    EXPECT_THAT(metadata.primaryKey(table("I18NFIELDNAMES")), IsEmpty());
    EXPECT_EQ(longestText(connection), 1000);
    database.run("DROP TABLE QUAY_A");
    database.run("DROP TABLE QUAYXA");
}

TEST_F(SiteTools, TablesOfOneNameHaveToBeToldApart) {
    if (database.kind != "postgresql") GTEST_SKIP() << "its tables are all of one schema";
    database.run("CREATE SCHEMA quays");
    database.run("CREATE TABLE quays.i18ntext (berth INTEGER)");
    const auto namesIn = [&](const std::string& pattern) {
        std::vector<std::string> names;
        for (const auto& each :
             readDatabaseTables(database.settings.connectString, database.settings, {pattern}))
            names.push_back(each.name);
        return names;
    };
    EXPECT_THROW(namesIn("i18n*"), RuntimeError);
    EXPECT_THAT(namesIn("quays.i18n*"), ElementsAre("i18ntext"));
    EXPECT_EQ(namesIn("public.i18n*").size(), 3U);
    database.run("DROP SCHEMA quays CASCADE");
}

// The control's own question, with what pages store and authors type in the place of the label.
TEST_F(SiteTools, AReplayAsksAndNeverWritesWhateverTheNamesAre) {
    database.runFile("rows.sql");
    auto settings = database.settings;
    if (database.kind == "mariadb")
        settings.connectString += ";OPTION=67108866";  // many statements
    const auto before = TranslationTable::read(connection).entries.size();
    ReadingDatabase reading(settings);
    const auto ask = [&](const std::string& statement) {
        reading.refused = false;
        const auto asking = reading.createConnection();
        asking->Open(settings.connectString, "", "", -1);
        try {
            asking->Execute(statement, nullptr, -1);
        } catch (const RuntimeError&) {
            return reading.refused ? "refused" : "failed";
        }
        return "asked";
    };
    const auto labelled = [](const std::string& label) {
        return "SELECT TEXT FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL = '" + label + "'";
    };
    for (const char* label :
         {"SLBDA2000", "A;B", "a -- b; /* c", "x'' OR LABEL = ''into;", "x' OR '1' = '1"})
        EXPECT_STREQ(ask(labelled(label)), "asked") << label;
    EXPECT_STREQ(ask(labelled("O'Neill")), "failed");
    for (const char* label :
         {"x'; DELETE FROM I18NTEXT; --", "x';DELETE FROM I18NTEXT",
          "\\'; DELETE FROM I18NTEXT; -- ", "x' OR \"'\" = ' ; DELETE FROM I18NTEXT; --",
          "x' /* ' */; DELETE FROM I18NTEXT -- '", "x' OR $$'$$ = '; DELETE FROM I18NTEXT; --",
          "x' # '\n; DELETE FROM I18NTEXT -- '", "x' OR `'` = '; DELETE FROM I18NTEXT; --",
          "x' -- '\n; DELETE FROM I18NTEXT; -- '",
          "x'; SET default_transaction_read_only = off; DELETE FROM I18NTEXT; --",
          "x'; SET SESSION TRANSACTION READ WRITE; DELETE FROM I18NTEXT; -- ",
          "x'; PRAGMA query_only = OFF; DELETE FROM I18NTEXT; --", "x' INTO OUTFILE '/tmp/x",
          "x' FOR UPDATE; --"})
        EXPECT_STREQ(ask(labelled(label)), "refused") << label;
    for (const char* statement :
         {"DELETE FROM I18NTEXT", " SELECT 1", "WITH a AS (SELECT 1) SELECT 2"})
        EXPECT_STREQ(ask(statement), "refused") << statement;
    EXPECT_EQ(TranslationTable::read(connection).entries.size(), before);

    // The other wall by itself: the server's.
    OdbcConnection session(reading.settings());
    session.Open(settings.connectString, "", "", -1);
    EXPECT_THROW(session.Execute("DELETE FROM I18NTEXT", nullptr, -1), RuntimeError);
    EXPECT_EQ(TranslationTable::read(connection).entries.size(), before);
}

TEST_F(SiteTools, AnImportGivesExactlyTheEditedTexts) {
    database.runFile("rows.sql");
    const auto before = TranslationTable::read(connection);
    const auto file = TranslationFile::parse("edited.csv",
                                             "key,source (1033),1031,1036\r\n"
                                             "SLBDA2000,Customer,Kundin,\r\n"        // changed
                                             "SLBDA2001,Name,\"N'am\"\"e\",Nom\r\n"  // added, twice
                                             "SLBDA2003,Country,Land,\r\n");         // as it is
    connection.BeginTrans();
    const auto plan = planImport(file, TranslationTable::read(connection), 1000);
    applyImport(connection, "edited.csv", plan, "1/2/2024");
    connection.CommitTrans();

    auto expected = before.entries;
    expected["SLBDA2000"].texts["1031"] = "Kundin";
    expected["SLBDA2001"].texts["1031"] = "N'am\"e";
    expected["SLBDA2001"].texts["1036"] = "Nom";
    const auto after = TranslationTable::read(connection);
    ASSERT_EQ(after.entries.size(), expected.size());
    for (const auto& [label, entry] : after.entries)
        EXPECT_EQ(entry.texts, expected[label].texts) << label;
    EXPECT_THAT(
        database.rows("SELECT DATECHANGED FROM I18NTEXT WHERE TEXT = 'Kundin'", {"DATECHANGED"}),
        ElementsAre(ElementsAre("1/2/2024")));

    // One that finds another text is undone whole.
    database.run(
        "UPDATE I18NTEXT SET TEXT = 'Kunde' WHERE LABEL = 'SLBDA2000' AND LOCALEID = 1031");
    connection.BeginTrans();
    EXPECT_THAT(errorOf<FileError>([&] { applyImport(connection, "edited.csv", plan, "today"); }),
                HasSubstr("edited.csv:3: SLBDA2001 1031: "));
    connection.Close();
    EXPECT_EQ(text("SLBDA2000", "1031"), "Kunde");
}

// Blanks at the ends are part of a label, unless they only fill up its column.
TEST_F(SiteTools, AnImportFindsLabelsAsTheyAreAndNamesTheLineThatTheDatabaseRefuses) {
    database.run("INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID) VALUES (' Q ', 'Quay', 1033)");
    const auto import = [&](const std::string& csv) {
        const auto file = TranslationFile::parse("edited.csv", csv);
        connection.BeginTrans();
        applyImport(connection, "edited.csv",
                    planImport(file, TranslationTable::read(connection), 0), "today");
        connection.CommitTrans();
    };
    import(replaceAll(exportTranslations(TranslationTable::read(connection), {.locales =
                                                                              { "1031" }}),
                      "Quay,,", "Quay,Kai,"));
    EXPECT_EQ(text(" Q ", "1031"), "Kai");

    database.run("DROP TABLE I18NTEXT");
    database.run(
        "CREATE TABLE I18NTEXT (LABEL CHAR(20), TEXT VARCHAR(1000) NOT NULL, LOCALEID INTEGER, "
        "DATECHANGED VARCHAR(20), STATUS INTEGER, CHECK (TEXT <> 'Dock'))");
    database.run("INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID) VALUES ('Q', 'Quay', 1033)");
    database.run("INSERT INTO I18NFIELDNAMES VALUES ('Ships', 'zeko', 'IMO', 'Q')");
    EXPECT_THAT(TranslationTable::read(connection).entries.at("Q").places,
                ElementsAre("Ships zeko IMO"));
    import("key,1031\nQ,Kai\n");
    import("key,1031\nQ,Pier\n");
    EXPECT_THAT(database.rows("SELECT TEXT FROM I18NTEXT WHERE LOCALEID = 1031", {"TEXT"}),
                ElementsAre(ElementsAre("Pier")));
    EXPECT_THAT(errorOf<FileError>([&] { import("key,1031\n\nQ,Dock\n"); }),
                HasSubstr("edited.csv:3: Q 1031: "));
}

}  // namespace headerdtc::site_tools_database_test
