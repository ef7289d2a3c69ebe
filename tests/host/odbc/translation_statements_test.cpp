#include "translation_database.h"

namespace headerdtc::translation_statements_test {

using Statements = TranslationSite;

TEST_F(Statements, EndWithTheSameRowsOnEveryDatabase) {
    outside.clock.today = "2024-01-02";
    translations.run(
        "INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID, DATECHANGED, STATUS) VALUES "
        "('SLBDA1999', 'before the range', 1033, 'x', 0), ('SLBDA2001', 'Open', 1033, 'x', 1), "
        "('SLBDA2001', 'Offen', 1031, 'x', 1), ('SLBDA2002', 'Busy', 1033, 'x', 1), "
        "('SLBDB0001', NULL, 1033, NULL, NULL), ('SLBDA2003', 'Wartend', 1031, 'x', 1)");
    translations.run(
        "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL) VALUES "
        "('Orders', 'zeko', 'STATUS', '10', 'SLBDA2001'), "
        "('Orders', 'zeko', 'STATUS', '20', 'SLBDB0001'), "
        "('Orders', 'zeko', 'STATUS', '35', 'SLBDA2003'), ('Orders', 'zeko', 'STATUS', '36', NULL),"
        "('Orders', 'eai', 'STATUS', '10', 'SLBDA2001')");

    EXPECT_FALSE(store.FieldnameTranslationExists("Orders", "zeko", "STATUS"));
    for (const char* label : {"SLBDA2001", "SLBDA3001"})
        store.AssignFieldnameLabel("Orders", "zeko", "STATUS", label);
    EXPECT_TRUE(store.FieldnameTranslationExists("Orders", "zeko", "STATUS"));
    for (const char* text : {"In work", "In work", "待 𝄞?"})
        store.AddLabel("SLBDA2002", text);
    store.AddLabel("SLBDA3001", "Κατάσταση 状態");
    EXPECT_THAT(outside.messages.shown, AllOf(SizeIs(4), Each(HasSubstr("forget to translate"))));
    EXPECT_THAT(store.ListLabels(),
                UnorderedElementsAre("SLBDA2001", "SLBDA2002", "SLBDA3001", "SLBDB0001"));
    EXPECT_THAT(store.ListRangeLabels(),
                UnorderedElementsAre("SLBDA1999", "SLBDA2001", "SLBDA2002", "SLBDA3001"));
    EXPECT_EQ(store.LabelText("SLBDA2002"), "待 𝄞?");
    EXPECT_EQ(store.LabelText("SLBDB0001"), "") << "NULL";
    EXPECT_EQ(store.LabelText("SLBDA2003"), std::nullopt);

    store.ChangeFieldValueTranslation("Orders", "zeko", "STATUS", "10", "SLBDA2002");
    store.DeleteFieldValueTranslation("Orders", "zeko", "STATUS", "20");
    store.InsertFieldValueTranslation("Orders", "zeko", "STATUS", "待", "SLBDA2001");
    std::vector<std::string> values;
    for (const auto& [value, label, text] :
         store.ListFieldValueTranslations("Orders", "zeko", "STATUS"))
        values.push_back(value + " " + label + " " + text);
    EXPECT_THAT(values, UnorderedElementsAre("10 SLBDA2002 待 𝄞?", "待 SLBDA2001 Open"))
        << "35 and 36 have no text";

    EXPECT_EQ(translations.rows("SELECT * FROM I18NTEXT ORDER BY LABEL, LOCALEID",
                                {"LABEL", "TEXT", "LOCALEID", "DATECHANGED", "STATUS"}),
              (Rows{{"SLBDA1999", "before the range", "1033", "x", "0"},
                    {"SLBDA2001", "Offen", "1031", "x", "1"},
                    {"SLBDA2001", "Open", "1033", "x", "1"},
                    {"SLBDA2002", "待 𝄞?", "1033", "2024-01-02", "0"},
                    {"SLBDA2003", "Wartend", "1031", "x", "1"},
                    {"SLBDA3001", "Κατάσταση 状態", "1033", "2021", "0"},
                    {"SLBDB0001", "", "1033", "", ""}}));
    EXPECT_EQ(translations.rows("SELECT * FROM I18NFIELDNAMES",
                                {"PROVIDERNAME", "BISTYPE", "FIELDNAME", "LABEL"}),
              (Rows{{"Orders", "zeko", "STATUS", "SLBDA3001"}}));
    EXPECT_THAT(
        translations.rows("SELECT * FROM I18NFIELDVALUES", {"BISTYPE", "FIELDVALUE", "LABEL"}),
        UnorderedElementsAreArray(Rows{{"eai", "10", "SLBDA2001"},
                                       {"zeko", "10", "SLBDA2002"},
                                       {"zeko", "35", "SLBDA2003"},
                                       {"zeko", "36", ""},
                                       {"zeko", "待", "SLBDA2001"}}));
}

TEST_F(Statements, TheDemosRowsAreOfferedAsTheGuideSays) {
    translations.runFile("rows.sql");
    auto settings = translations.settings;
    if (!translations.isServer()) settings.odbcIni = HEADERDTC_SOURCE_DIR "/demo/odbc.ini";
    database = OdbcDatabase(settings);
    EXPECT_THAT(store.ListFieldValueTranslations("Orders", "zeko", "STATUS"), SizeIs(4));
    EXPECT_THAT(store.ListLabels(), AllOf(SizeIs(20), Not(Contains("SLBDA1999"))));
    EXPECT_EQ(store.LabelText("SLBDB0005"), std::nullopt);
}

TEST_F(Statements, TheOneStepAddIsUndoneWhenItsSecondStatementFails) {
    store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "10", "SLBDA4", "Open");
    EXPECT_THAT(outside.messages.shown, ElementsAre("1 record(s) affected"));
    EXPECT_THROW(
        store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "O'Neill", "SLBDA5", "Open"),
        RuntimeError);
    for (const char* table : {"I18NTEXT", "I18NFIELDVALUES"})
        EXPECT_EQ(translations.rows(std::string("SELECT LABEL FROM ") + table, {"LABEL"}),
                  (Rows{{"SLBDA4"}}));
}

TEST_F(Statements, WhatIsMissingIsSaidWithoutThePassword) {
    translations.run("ALTER TABLE I18NTEXT RENAME COLUMN TEXT TO HIDDEN");
    translations.run("INSERT INTO I18NTEXT (LABEL, LOCALEID) VALUES ('SLBDA1', 1033)");
    translations.run("INSERT INTO I18NFIELDVALUES VALUES ('P', 'eai', 'F', '1', 'SLBDA1')");
    EXPECT_EQ(numberOf([&] { store.ListFieldValueTranslations("P", "eai", "F"); }), 3265);
    EXPECT_THAT(errorOf<RuntimeError>([&] { store.LabelText("SLBDA1"); }), Not(IsEmpty()));
    logOn("DSN=Nowhere;UID=WWWappsOrvane;PWD=geheim");
    EXPECT_THAT(errorOf<RuntimeError>([&] { store.ListLabels(); }),
                AllOf(HasSubstr("Data source name not found"), HasSubstr("[Nowhere]"),
                      HasSubstr(translations.settings.odbcIni.string()), Not(HasSubstr("geheim"))));
    if (!translations.isServer()) return;
    logOn("DSN=Orvane;UID=nobody;PWD=geheim");
    EXPECT_THAT(errorOf<RuntimeError>([&] { store.ListLabels(); }),
                AllOf(HasSubstr("nobody"), Not(HasSubstr("geheim"))));
}

TEST_F(Statements, ATextOfAMegabyteComesBackWhole) {
    // The demo's columns are shorter: there the database refuses it.
    if (translations.kind == "postgresql")
        translations.run("ALTER TABLE I18NTEXT ALTER COLUMN TEXT TYPE TEXT");
    if (translations.kind == "mariadb")
        translations.run("ALTER TABLE I18NTEXT MODIFY TEXT LONGTEXT COLLATE utf8mb4_bin");
    std::string text;
    for (int i = 0; text.size() < 1'000'000; ++i)
        text += std::to_string(i) + " κατάσταση 状態 \U0001F600 ";
    store.AddLabel("SLBDA3", text);
    EXPECT_TRUE(store.LabelText("SLBDA3") == text);
    EXPECT_THAT(store.ListLabels(), ElementsAre("SLBDA3"));
}

TEST_F(Statements, ALockedRowIsWaitedForNoLongerThanAStatementMayTake) {
    store.AddLabel("SLBDA2001", "Text");
    auto settings = translations.settings;
    settings.statementTimeout = std::chrono::seconds(1);
    database = OdbcDatabase(settings);
    const auto other = translations.connect();
    other->BeginTrans();
    other->Execute("UPDATE I18NTEXT SET STATUS = 7", nullptr, -1);
    EXPECT_THROW(store.AddLabel("SLBDA2001", "New"), RuntimeError);
    other->CommitTrans();
    database = OdbcDatabase(translations.settings);
    store.AddLabel("SLBDA2001", "New");
    EXPECT_EQ(store.LabelText("SLBDA2001"), "New");
}

TEST_F(Statements, FailedAndDoneTheyLeaveNoConnectionBehind) {
    const int before = translations.connectionCount();
    for (int i = 0; i < 100; ++i) {
        store.AddLabel("SLBDA2001", "Text");
        EXPECT_THROW(store.AddLabel("SLBDA2001", "it's"), RuntimeError);
        EXPECT_THROW(store.FieldnameTranslationExists("Orders", "zeko", "O'Neill"), RuntimeError);
        store.DeleteFieldValueTranslation("Orders", "zeko", "ORDNO", "1");
    }
    // A server takes a moment to forget one that has been closed, that of the last question too.
    int after = translations.connectionCount();
    for (int i = 0; i < 1000 && after > before; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        after = translations.connectionCount();
    }
    EXPECT_LE(after, before);
}

}  // namespace headerdtc::translation_statements_test
