#include "translation_database.h"

#include <clocale>

namespace headerdtc::odbc_database_test {

constexpr int Unspecified = -1;

// The ADO face, on SQLite.
class OdbcDatabaseTest : public Test {
  protected:
    std::unique_ptr<Recordset> execute(const std::string& statement) {
        return connection->Execute(statement, nullptr, Unspecified);
    }
    std::string valueOf(const std::string& expression) {
        return execute("SELECT " + expression + " AS X")->Item("X").Value();
    }

    headerdtc::testing::TranslationDatabase translations;
    std::unique_ptr<Connection> connection = translations.connect();
};

TEST_F(OdbcDatabaseTest, EveryValueComesAsText) {
    EXPECT_EQ(valueOf("NULL"), "");
    EXPECT_EQ(valueOf("''"), "");
    EXPECT_EQ(valueOf("-17"), "-17");
    EXPECT_EQ(valueOf("CAST(2.5 AS DOUBLE)"), "2.5");
    EXPECT_EQ(valueOf("DATE('2024-01-02')"), "2024-01-02");
    EXPECT_EQ(valueOf("'Ωμέγα 日本 \U0001F600'"), "Ωμέγα 日本 \U0001F600");
    // Around the first piece that is fetched.
    for (const std::size_t length : {1U, 254U, 255U, 256U, 257U, 510U, 511U, 512U, 70000U})
        EXPECT_EQ(valueOf("'" + std::string(length, 'x') + "'"), std::string(length, 'x'));
}

TEST_F(OdbcDatabaseTest, TextDoesNotDependOnTheLocaleOfTheProcess) {
    for (const char* locale : {"C.UTF-8", "C"}) {
        ASSERT_NE(std::setlocale(LC_ALL, locale), nullptr);
        connection = translations.connect();
        EXPECT_EQ(valueOf("'Ω \U0001F600'"), "Ω \U0001F600");
        EXPECT_THAT([&] { execute("SELECT Ω\U0001F600"); },
                    ThrowsMessage<RuntimeError>(HasSubstr("Ω\U0001F600")));
    }
}

TEST_F(OdbcDatabaseTest, ColumnsAreFoundByNameWithoutCaseTheFirstOfAName) {
    const auto rows =
        execute("SELECT 1 AS A, 2 AS LABEL, 3 AS label, 4 AS B UNION SELECT 5, 6, 7, 8");
    EXPECT_EQ(rows->Item("b").Value(), "4");
    EXPECT_EQ(rows->Item("Label").Value(), "2");
    EXPECT_EQ(rows->Item("a").Value(), "1");
    EXPECT_EQ(numberOf([&] { rows->Item("C"); }), 3265);
    rows->MoveNext();
    EXPECT_EQ(rows->Item("A").Value(), "5");
    rows->MoveNext();
    EXPECT_TRUE(rows->EndOfFile());
    EXPECT_EQ(numberOf([&] { rows->Item("A"); }), 3021);
}

TEST_F(OdbcDatabaseTest, RecordsAffectedAreTheDrivers) {
    const std::pair<const char*, int> statements[] = {
        {"INSERT INTO I18NFIELDNAMES VALUES ('P', 'eai', 'F', 'L'), ('P', 'zeko', 'F', 'L')", 2},
        {"UPDATE I18NFIELDNAMES SET LABEL = 'L' WHERE BISTYPE = 'eai'", 1},
        {"UPDATE I18NFIELDNAMES SET LABEL = 'L' WHERE BISTYPE = 'x'", 0},
        {"DELETE FROM I18NFIELDNAMES WHERE BISTYPE = 'x'", 0}};
    for (const auto& [statement, affected] : statements) {
        std::int32_t count = -1;
        EXPECT_TRUE(connection->Execute(statement, &count, Unspecified)->EndOfFile());
        EXPECT_EQ(count, affected) << statement;
    }
}

TEST_F(OdbcDatabaseTest, AFailureCarriesTheDriversTextAndNumberOnOneLine) {
    const auto wrong = [&] { execute("SELECT *\nFROM 'it's"); };
    EXPECT_EQ(numberOf(wrong), 1);
    EXPECT_THAT(wrong,
                ThrowsMessage<RuntimeError>(AllOf(HasSubstr("[SQLite]"), Not(HasSubstr("\n")))));
    // A driver that quotes a whole text of a megabyte.
    EXPECT_EQ(numberOf([&] { execute("SELECT '" + std::string(1'000'000, 'x')); }), 1);
    EXPECT_EQ(valueOf("1"), "1") << "the connection is of use all the same";
}

TEST_F(OdbcDatabaseTest, AClosedConnectionTakesItsRecordsetsAlong) {
    auto rows = execute("SELECT 1 AS A");
    connection->Close();
    EXPECT_EQ(numberOf([&] { rows->EndOfFile(); }), 3704);
    EXPECT_EQ(numberOf([&] { rows->Item("A"); }), 3704);
    EXPECT_EQ(numberOf([&] { execute("SELECT 1"); }), 3704);
    EXPECT_EQ(numberOf([&] { connection->Close(); }), 3704);
    connection->Open(translations.settings.connectString, "", "", Unspecified);
    EXPECT_EQ(numberOf([&] { connection->Open("", "", "", Unspecified); }), 3705);
    rows = execute("SELECT 2 AS A");
    connection.reset();
    EXPECT_EQ(rows->Item("A").Value(), "2") << "the log-on lasts as long as somebody needs it";
}

TEST_F(OdbcDatabaseTest, ATransactionIsCommittedOrUndoneWithItsConnection) {
    const auto count = [this] {
        return translations.rows("SELECT COUNT(*) AS N FROM I18NFIELDNAMES", {"N"})[0][0];
    };
    const char* insert = "INSERT INTO I18NFIELDNAMES VALUES ('P', 'eai', 'F', 'L')";
    connection->BeginTrans();
    execute(insert);
    connection.reset();
    EXPECT_EQ(count(), "0");
    connection = translations.connect();
    connection->BeginTrans();
    execute(insert);
    connection->CommitTrans();
    EXPECT_EQ(count(), "1");
    execute(insert);
    EXPECT_EQ(count(), "2") << "committed by itself again";
}

TEST_F(OdbcDatabaseTest, TheSitesFolderMayHaveANameOfAnyLanguage) {
    const auto folder = translations.settings.siteFolder / "Σελίδες é x";
    std::filesystem::create_directory(folder);
    std::filesystem::rename(translations.settings.siteFolder / "translations.sqlite",
                            folder / "translations.sqlite");
    translations.settings.siteFolder = folder;
    EXPECT_TRUE(translations.rows("SELECT * FROM I18NTEXT", {}).empty());
}

TEST_F(OdbcDatabaseTest, WithoutAFileOfTheSiteOdbcFindsDataSourcesByItself) {
    const headerdtc::testing::TempFolder folder;
    const auto file = translations.settings.siteFolder / "translations.sqlite";
    setenv("ODBCINI",
           folder.write("own.ini", "[OrvaneOwn]\nDriver = SQLite3\nDatabase = " + file.string())
               .c_str(),
           1);
    translations.settings.odbcIni.clear();
    translations.settings.connectString = "DSN=OrvaneOwn;UID=WWWappsOrvane;PWD=";
    EXPECT_TRUE(translations.rows("SELECT * FROM I18NTEXT", {}).empty());
    translations.settings.connectString = "DSN=OrvaneNowhere;UID=WWWappsOrvane;PWD=";
    EXPECT_THROW(translations.connect(), RuntimeError);
    unsetenv("ODBCINI");
}

TEST_F(OdbcDatabaseTest, OnlyTheTranslationDatabaseHasAConnectString) {
    OdbcDatabase database(translations.settings);
    EXPECT_EQ(database.GetConnectString(8), translations.settings.connectString);
    EXPECT_EQ(numberOf([&] { database.GetConnectString(7); }), 5);
}

}  // namespace headerdtc::odbc_database_test
