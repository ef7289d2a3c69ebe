#include "translation_site.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using headerdtc::testing::Rows;
using namespace ::testing;

using TranslationScenario = headerdtc::testing::TranslationSite;

constexpr const char* Reminder =
    "Warning: Don't forget to translate the (new) label to other languages";

TEST_F(TranslationScenario, EndsWithTheSameRowsOnEveryDatabase) {
    translations.run(
        "INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID, DATECHANGED, STATUS) VALUES "
        "('SLBDA1999', 'before the range', 1033, 'x', 0), ('SLBDA2001', 'Open', 1033, 'x', 1), "
        "('SLBDA2001', 'Offen', 1031, 'x', 1), ('SLBDA2002', 'Busy', 1033, 'x', 1), "
        "('SLBDB0001', NULL, 1033, NULL, NULL), ('SLBDA2003', 'Wartend', 1031, 'x', 1)");
    translations.run(
        "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL) VALUES "
        "('Orders', 'zeko', 'STATUS', '10', 'SLBDA2001'), "
        "('Orders', 'zeko', 'STATUS', '20', 'SLBDB0001'), "
        "('Orders', 'zeko', 'STATUS', '30', 'SLBDA2001'), "
        "('Orders', 'zeko', 'STATUS', '35', 'SLBDA2003'), "
        "('Orders', 'zeko', 'STATUS', '36', NULL), "
        "('Orders', 'eai', 'STATUS', '10', 'SLBDA2001')");

    onNextDialog(pressing("OKButton"));
    onNextDialog([this](Form& form) {
        auto& labels = control<ComboBox>(form, "LabelsCombo");
        EXPECT_EQ(labels.ListCount(), 3);
        EXPECT_EQ(labels.find("SLBDA1999"), -1);
        EXPECT_NE(labels.find("SLBDB0001"), -1);
        onNextDialog(addingLabel("SLBDA3001", "Κατάσταση 状態 𝄞?"));
        press(form, "AddLabelCommand");
        EXPECT_EQ(labels.ListCount(), 3 + 4);
        labels.choose("SLBDA3001");
        press(form, "OKButton");
        EXPECT_EQ(control<TextBox>(form, "TranslationText").Text(), "Κατάσταση 状態 𝄞?");
    });
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    EXPECT_THAT(
        outside.modalLoop.formsShown,
        ElementsAre("AddI18NFieldQuestionDialog", "SpecifyI18NFieldnameDialog", "AddLabelDialog"));

    openValues([this](Form& form) {
        EXPECT_EQ(values(form).Rows(), 1 + 3) << "35 and 36 have no text";
        EXPECT_EQ(values(form).TextMatrix(rowOf(form, "20"), 3), "") << "NULL";
        EXPECT_EQ(control<ComboBox>(form, "LabelsCombo").ListCount(), 4);
        onNextDialog(addingLabel("SLBDA2002", "In work"));
        press(form, "AddLabelCommand");
        enterValue(form, rowOf(form, "10"), "待");
        values(form).clickCell(rowOf(form, "20"), 3);
        press(form, "DeleteCommand");
        chooseLabel(form, rowOf(form, "30"), "SLBDA2002");
        EXPECT_EQ(values(form).TextMatrix(rowOf(form, "30"), 3), "In work");
        press(form, "AddCommand");
        enterValue(form, values(form).Rows() - 1, "40");
        chooseLabel(form, rowOf(form, "40"), "SLBDA2001");
        press(form, "AddCommand");
        enterValue(form, values(form).Rows() - 1, "50");
        press(form, "DeleteCommand");
        press(form, "OKButton");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_THAT(outside.messages.shown, ElementsAre(Reminder, Reminder));

    EXPECT_EQ(translations.rows("SELECT * FROM I18NTEXT ORDER BY LABEL, LOCALEID",
                                {"LABEL", "TEXT", "LOCALEID", "DATECHANGED", "STATUS"}),
              (Rows{{"SLBDA1999", "before the range", "1033", "x", "0"},
                    {"SLBDA2001", "Offen", "1031", "x", "1"},
                    {"SLBDA2001", "Open", "1033", "x", "1"},
                    {"SLBDA2002", "In work", "1033", "2024-01-02", "0"},
                    {"SLBDA2003", "Wartend", "1031", "x", "1"},
                    {"SLBDA3001", "Κατάσταση 状態 𝄞?", "1033", "2021", "0"},
                    {"SLBDB0001", "", "1033", "", ""}}));
    EXPECT_EQ(translations.rows("SELECT * FROM I18NFIELDNAMES",
                                {"PROVIDERNAME", "BISTYPE", "FIELDNAME", "LABEL"}),
              (Rows{{"Orders", "zeko", "STATUS", "SLBDA3001"}}));
    EXPECT_EQ(translations.rows("SELECT * FROM I18NFIELDVALUES ORDER BY BISTYPE, FIELDVALUE",
                                {"BISTYPE", "FIELDVALUE", "LABEL"}),
              (Rows{{"eai", "10", "SLBDA2001"},
                    {"zeko", "30", "SLBDA2002"},
                    {"zeko", "35", "SLBDA2003"},
                    {"zeko", "36", ""},
                    {"zeko", "40", "SLBDA2001"},
                    {"zeko", "待", "SLBDA2001"}}));
}

TEST_F(TranslationScenario, TheDemosRowsAreOfferedAsTheGuideSays) {
    translations.runFile("rows.sql");
    auto settings = translations.settings;
    if (!translations.isServer()) settings.odbcIni = HEADERDTC_DEMO "/odbc.ini";
    database = OdbcDatabase(settings);
    TranslationStore store(dtc.surroundings);
    EXPECT_TRUE(store.FieldnameTranslationExists("Orders", "zeko", "STATUS"));
    EXPECT_THAT(store.ListFieldValueTranslations("Orders", "zeko", "STATUS"), SizeIs(4));
    EXPECT_THAT(store.ListLabels(), AllOf(SizeIs(20), Not(Contains("SLBDA1999"))));
    EXPECT_THAT(store.ListRangeLabels(), AllOf(SizeIs(15), Contains("SLBDA1999")));
    EXPECT_EQ(translations.rows("SELECT TEXT FROM I18NTEXT WHERE LABEL = 'SLBDB0005'", {"TEXT"}),
              (Rows{{"Zurückgestellt"}}));
}

TEST_F(TranslationScenario, AFieldNameThatIsThereTwiceIsInsertedOnceMore) {
    TranslationStore store(dtc.surroundings);
    for (int i = 0; i < 2; ++i) {
        translations.run(
            "INSERT INTO I18NFIELDNAMES (PROVIDERNAME, BISTYPE, FIELDNAME, LABEL) VALUES "
            "('Orders', 'zeko', 'STATUS', 'SLBDA2001')");
    }
    store.AssignFieldnameLabel("Orders", "zeko", "STATUS", "SLBDA2001");
    EXPECT_EQ(translations.rows("SELECT LABEL FROM I18NFIELDNAMES", {"LABEL"}),
              Rows(3, {"SLBDA2001"}));
}

TEST_F(TranslationScenario, ALabelGivenTheTextThatItHasIsNotTakenForANewOne) {
    TranslationStore store(dtc.surroundings);
    for (int i = 0; i < 3; ++i)
        store.AddLabel("SLBDA4", "Open");
    EXPECT_THAT(outside.messages.shown, ElementsAre(Reminder, Reminder, Reminder));
    EXPECT_EQ(translations.rows("SELECT LABEL FROM I18NTEXT", {"LABEL"}), (Rows{{"SLBDA4"}}));
}

TEST_F(TranslationScenario, TheOneStepAddIsUndoneWhenItsSecondStatementFails) {
    TranslationStore store(dtc.surroundings);
    store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "10", "SLBDA4", "Open");
    EXPECT_THAT(outside.messages.shown, ElementsAre("1 record(s) affected"));
    EXPECT_THROW(
        store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "O'Neill", "SLBDA5", "Open"),
        RuntimeError);
    EXPECT_EQ(translations.rows("SELECT LABEL FROM I18NTEXT", {"LABEL"}), (Rows{{"SLBDA4"}}));
    EXPECT_EQ(translations.rows("SELECT LABEL FROM I18NFIELDVALUES", {"LABEL"}),
              (Rows{{"SLBDA4"}}));
}

TEST_F(TranslationScenario, TenThousandValuesAndFiveThousandLabelsOpen) {
    const auto insert = [this](const std::string& head, int count, auto row) {
        for (int first = 0; first < count; first += 1000) {
            std::string statement = head;
            for (int i = first; i < first + 1000; ++i)
                statement += (i == first ? " VALUES " : ", ") +
                             row(std::to_string(100000 + i), std::to_string(100000 + i / 2));
            translations.run(statement);
        }
    };
    insert("INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID, DATECHANGED, STATUS)", 5000,
           [](const std::string& number, const std::string&) {
               return "('SLBDA" + number + "', 'Text " + number + "', 1033, 'x', 0)";
           });
    insert("INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL)",
           10000, [](const std::string& number, const std::string& half) {
               return "('Orders', 'zeko', 'STATUS', '" + number + "', 'SLBDA" + half + "')";
           });
    openValues([&](Form& form) {
        EXPECT_EQ(values(form).Rows(), 10001);
        EXPECT_EQ(control<ComboBox>(form, "LabelsCombo").ListCount(), 5000);
        const int last = rowOf(form, "109999");
        EXPECT_EQ(values(form).TextMatrix(last, 2), "SLBDA104999");
        EXPECT_EQ(values(form).TextMatrix(last, 3), "Text 104999");
        press(form, "CancelButton");
    });
    EXPECT_THAT(outside.messages.shown, ElementsAre());
}

}  // namespace
}  // namespace headerdtc
