#include "translation_site.h"

#include <chrono>
#include <gmock/gmock.h>
#include <set>
#include <thread>

namespace headerdtc {
namespace {

using namespace ::testing;

// Whatever the database does, the dialogs report it and go on, and the page is not touched.
class DatabaseFaults : public headerdtc::testing::TranslationSite {
  protected:
    DatabaseFaults() {
        outside.messages.onShow = [this](const std::string&) { pages_.insert(page()); };
    }
    void TearDown() override {
        pages_.insert(page());
        EXPECT_EQ(pages_.size(), 1U) << "the page has changed";
    }

    void insertValue(const std::string& value, const std::string& label) {
        translations.run("INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID) VALUES ('" + label +
                         "', 'Text', 1033)");
        translations.run(
            "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL) "
            "VALUES ('Orders', 'zeko', 'STATUS', '" +
            value + "', '" + label + "')");
    }
    // The reports so far, which are then forgotten.
    std::vector<std::string> reports() { return std::exchange(outside.messages.shown, {}); }
    static auto reportOf(const std::string& procedure) {
        return StartsWith("Error in '" + procedure + "': ");
    }
    // Goes through every dialog once, without changing a row.
    void visitEveryDialog() {
        onNextDialog(pressing("OKButton"));
        onNextDialog(pressing("CancelButton"));
        dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
        openValues(pressing("CancelButton"));
    }
    static auto reportsOfEveryDialog() {
        return ElementsAre(reportOf("FieldnameTranslationExists"), reportOf("UpdateLabels"),
                           reportOf("LabelsCombo_LostFocus"), reportOf("Init"));
    }

  private:
    // What is stored in the page, but for the marks in the lists that are clicked here.
    std::vector<std::pair<std::string, PropertyValue>> page() {
        headerdtc::testing::OrderedPropertyBag bag;
        dtc.UserControl_WriteProperties(bag);
        std::erase_if(bag.entries, [](const auto& entry) {
            return entry.first.find("ZEKOI18NField") != std::string::npos;
        });
        return bag.entries;
    }
    std::set<std::vector<std::pair<std::string, PropertyValue>>> pages_ = {page()};
};

TEST_F(DatabaseFaults, AnApostropheFailsUnderTheNameOfItsProcedure) {
    dtc.ZEKO.I18NFieldnamesList.AddItem("3 - O'Neill");
    dtc.ZEKO.I18NFieldValuesList.AddItem("3 - O'Neill");
    insertValue("10", "SLBDA2001");

    onNextDialog(pressing("OKButton"));
    onNextDialog([this](Form& form) {
        EXPECT_THAT(reports(), ElementsAre(reportOf("FieldnameTranslationExists")));
        control<ComboBox>(form, "LabelsCombo").type("it's");
        press(form, "OKButton");
        EXPECT_THAT(reports(), ElementsAre(reportOf("LabelsCombo_LostFocus"),
                                           reportOf("AddLabelCommand_Click")));
        EXPECT_TRUE(form.Visible());
        press(form, "CancelButton");
    });
    dtc.ZEKO.I18NFieldnamesList.select({2}, 2);

    onNextDialog([this](Form& form) {
        EXPECT_THAT(reports(), ElementsAre(reportOf("Init")));
        EXPECT_EQ(values(form).Rows(), 2);
        press(form, "CancelButton");
    });
    dtc.ZEKO.I18NFieldValuesList.select({2}, 2);

    openValues([this](Form& form) {
        for (const auto& [label, text] : {std::pair("it's", "x"), {"x", "it's"}}) {
            onNextDialog([this, label = label, text = text](Form& add) {
                addingLabel(label, text)(add);
                EXPECT_TRUE(add.Visible());
            });
            press(form, "AddLabelCommand");
            EXPECT_THAT(reports(), ElementsAre(reportOf("OKButton_Click")));
        }
        // The deletion comes first and stays, the insertion fails.
        enterValue(form, 1, "it's");
        press(form, "OKButton");
        EXPECT_THAT(reports(), ElementsAre(reportOf("OKButton_Click")));
        EXPECT_TRUE(form.Visible());
        EXPECT_THAT(translations.rows("SELECT LABEL FROM I18NFIELDVALUES", {"LABEL"}), IsEmpty());
        enterValue(form, 1, "20");
        press(form, "OKButton");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_THAT(reports(), IsEmpty());
    EXPECT_EQ(translations.rows("SELECT FIELDVALUE FROM I18NFIELDVALUES", {"FIELDVALUE"}),
              (headerdtc::testing::Rows{{"20"}}));
}

TEST_F(DatabaseFaults, AMissingTableOrColumnIsReportedByEveryProcedureThatNeedsIt) {
    insertValue("10", "SLBDA2001");
    translations.run("ALTER TABLE I18NFIELDNAMES RENAME TO I18NHIDDEN");
    translations.run("ALTER TABLE I18NTEXT RENAME COLUMN LABEL TO HIDDEN");
    visitEveryDialog();
    EXPECT_THAT(reports(), reportsOfEveryDialog());

    translations.run("ALTER TABLE I18NTEXT RENAME COLUMN HIDDEN TO LABEL");
    translations.run("ALTER TABLE I18NFIELDVALUES RENAME COLUMN FIELDVALUE TO HIDDEN");
    openValues(pressing("CancelButton"));
    EXPECT_THAT(reports(), ElementsAre("Error in 'Init': Item cannot be found in the collection "
                                       "corresponding to the requested name or ordinal. (3265)"));
}

TEST_F(DatabaseFaults, ADataSourceOrUserThatIsNotThereIsReportedWithoutThePassword) {
    auto settings = translations.settings;
    settings.connectString = "DSN=Nowhere;UID=WWWappsOrvane;PWD=geheim";
    database = OdbcDatabase(settings);
    visitEveryDialog();
    const auto missing = reports();
    EXPECT_THAT(missing, reportsOfEveryDialog());
    for (const auto& report : missing)
        EXPECT_THAT(report, AllOf(HasSubstr("Data source name not found"), HasSubstr("[Nowhere]"),
                                  HasSubstr(settings.odbcIni.string()), Not(HasSubstr("geheim"))));

    if (!translations.isServer()) return;
    settings.connectString = "DSN=Orvane;UID=nobody;PWD=geheim";
    database = OdbcDatabase(settings);
    visitEveryDialog();
    const auto refused = reports();
    EXPECT_THAT(refused, reportsOfEveryDialog());
    EXPECT_THAT(refused[0], AllOf(HasSubstr("nobody"), Not(HasSubstr("geheim"))));
}

TEST_F(DatabaseFaults, ATextOfAMegabyteComesBackWhole) {
    // The demo's columns are shorter: there the database refuses it.
    if (translations.kind == "postgresql")
        translations.run("ALTER TABLE I18NTEXT ALTER COLUMN TEXT TYPE TEXT");
    if (translations.kind == "mariadb")
        translations.run("ALTER TABLE I18NTEXT MODIFY TEXT LONGTEXT COLLATE utf8mb4_bin");
    std::string text;
    for (int i = 0; text.size() < 1'000'000; ++i)
        text += std::to_string(i) + " κατάσταση 状態 \U0001F600 ";
    TranslationStore store(dtc.surroundings);
    store.AddLabel("SLBDA3", text);
    EXPECT_TRUE(store.LabelText("SLBDA3") == text);
    EXPECT_THAT(store.ListLabels(), ElementsAre("SLBDA3"));
}

TEST_F(DatabaseFaults, ALockedRowEndsInAReportAfterTheStatementsTime) {
    insertValue("10", "SLBDA2001");
    auto settings = translations.settings;
    settings.statementTimeout = std::chrono::seconds(1);
    database = OdbcDatabase(settings);
    const auto other = translations.connect();
    other->BeginTrans();
    other->Execute("UPDATE I18NTEXT SET STATUS = 7", nullptr, -1);
    const auto add = [this] {
        onNextDialog([this](Form& form) {
            onNextDialog(addingLabel("SLBDA2001", "New"));
            press(form, "AddLabelCommand");
            press(form, "CancelButton");
        });
        dtc.ZEKO.I18NFieldValuesList.select({1}, 1);
        return reports();
    };
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(add(), ElementsAre(reportOf("OKButton_Click")));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(15));
    other->CommitTrans();
    EXPECT_THAT(add(), ElementsAre(HasSubstr("Don't forget to translate")));
}

// Each operation in turn, some of which fail.
TEST_F(DatabaseFaults, AThousandOperationsLeaveNoConnectionBehind) {
    insertValue("10", "SLBDA2001");
    auto refused = translations.settings;
    refused.connectString = "DSN=Orvane;UID=nobody;PWD=geheim";
    OdbcDatabase refusing(refused);
    Surroundings refusedSurroundings{outside.messages,    outside.fileDialog, outside.registry,
                                     outside.dataSources, refusing,           outside.textFiles,
                                     outside.clock,       outside.changes};
    TranslationStore store(dtc.surroundings);
    TranslationStore refusedStore(refusedSurroundings);
    const std::vector<std::function<void()>> operations = {
        [&] { store.FieldnameTranslationExists("Orders", "zeko", "STATUS"); },
        [&] { store.FieldnameTranslationExists("Orders", "zeko", "O'Neill"); },
        [&] { store.ListLabels(); },
        [&] { store.LabelText("SLBDA2001"); },
        [&] { store.ListFieldValueTranslations("Orders", "zeko", "STATUS"); },
        [&] { store.InsertFieldValueTranslation("Orders", "zeko", "ORDNO", "1", "SLBDA2001"); },
        [&] { store.ChangeFieldValueTranslation("Orders", "zeko", "ORDNO", "1", "it's"); },
        [&] { store.DeleteFieldValueTranslation("Orders", "zeko", "ORDNO", "1"); },
        [&] { store.AddLabel("SLBDA2001", "Text"); },
        [&] { refusedStore.ListLabels(); },
    };
    const int before = translations.connectionCount();
    int most = 0;
    for (int i = 0; i < 1000; ++i) {
        try {
            operations[static_cast<std::size_t>(i) % operations.size()]();
        } catch (const RuntimeError&) {
            EXPECT_THAT(i % 10, ::testing::AnyOf(1, 6, 9));
        }
        if (i % 100 == 99) most = std::max(most, translations.connectionCount());
    }
    // A server takes a moment to forget one that has been closed.
    EXPECT_LE(most, before + 3);
    for (int i = 0; i < 100 && translations.connectionCount() > before; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_LE(translations.connectionCount(), before);
}

}  // namespace
}  // namespace headerdtc
