#include "i18n/translation_store.h"

#include "support/fake_surroundings.h"
#include "support/prologue.h"

namespace headerdtc::translation_store_test {

// The store over a database that answers every statement with the same rows and, one after the
// other, the given record counts.
class TranslationStoreTest : public Test {
  protected:
    TranslationStoreTest() {
        outside.clock.today = "4/26/2000";
        outside.database.execute = [this](const std::string& statement) {
            if (!failing.empty() && statement.starts_with(failing))
                throw RuntimeError(1064, "syntax");
            testing::FakeRows answer = rows;
            if (!counts.empty()) {
                answer.affected = counts.front();
                counts.pop_front();
            }
            return answer;
        };
    }
    const std::vector<std::string>& log() const { return outside.database.log; }

    testing::FakeSurroundings outside;
    const Surroundings surroundings = outside.all();
    TranslationStore store{surroundings};
    testing::FakeRows rows;
    std::deque<std::int32_t> counts;
    std::string failing;
};

constexpr const char* OpenSuite = "Open DSN=Orvane;UID=suite;PWD=";
constexpr const char* OpenLabel = "Open DSN=Orvane;UID=label;PWD=";

TEST_F(TranslationStoreTest, QueriesOpenAConnectionOfTheirOwnAndCloseIt) {
    rows = {{"PROVIDERNAME", "FIELDVALUE", "LABEL", "label", "TEXT"},
            {{"Orders", "10", "SLBDA2001", "other", "Open"}, {"Orders", "20", "", "", ""}}};
    EXPECT_TRUE(store.FieldnameTranslationExists("Orders", "zeko", "CUSTNO"));
    EXPECT_THAT(store.ListLabels(), ElementsAre("SLBDA2001", ""));
    EXPECT_THAT(store.ListRangeLabels(), ElementsAre("SLBDA2001", ""));
    EXPECT_EQ(store.LabelText("SLBDA2001"), "Open");
    const auto values = store.ListFieldValueTranslations("Orders", "eai", "STATUS");
    ASSERT_EQ(values.size(), 2U);
    EXPECT_EQ(values[0].value, "10");
    EXPECT_EQ(values[0].label, "SLBDA2001");
    EXPECT_EQ(values[0].text, "Open");
    EXPECT_THAT(
        log(),
        ElementsAre(
            OpenSuite,
            "SELECT * FROM I18NFIELDNAMES LEFT OUTER JOIN I18NTEXT ON "
            "I18NFIELDNAMES.LABEL=I18NTEXT.LABEL WHERE PROVIDERNAME='Orders' AND BISTYPE='zeko' "
            "AND FIELDNAME='CUSTNO'",
            "Close", OpenSuite,
            "SELECT * FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL > 'SLBDA1999'", "Close",
            OpenSuite, "SELECT * FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL LIKE 'SLBDA%'",
            "Close", OpenSuite,
            "SELECT TEXT FROM I18NTEXT WHERE LOCALEID = 1033 AND LABEL = 'SLBDA2001'", "Close",
            OpenSuite,
            "SELECT * FROM I18NFIELDVALUES LEFT OUTER JOIN I18NTEXT ON "
            "I18NFIELDVALUES.LABEL=I18NTEXT.LABEL WHERE PROVIDERNAME='Orders' AND BISTYPE='eai' "
            "AND FIELDNAME='STATUS' AND I18NTEXT.LOCALEID = 1033",
            "Close"));
    EXPECT_THAT(outside.database.kindsAsked, ElementsAre(8, 8, 8, 8, 8));

    rows = {};
    EXPECT_FALSE(store.FieldnameTranslationExists("Orders", "zeko", "CUSTNO"));
    EXPECT_EQ(store.LabelText("SLBDA2001"), std::nullopt);
}

// The statements themselves are told in the scenarios of the dialogs.
TEST_F(TranslationStoreTest, WritesLogOnByThemselvesAndThoseOfAFieldValueDoNotLogOff) {
    const auto logOf = [this](std::deque<std::int32_t> affected, const auto& write) {
        outside.database.log.clear();
        counts = std::move(affected);
        write();
        std::string words;
        for (const std::string& entry : log())
            words += entry == OpenSuite ? "suite" : " " + entry.substr(0, entry.find(' '));
        return words;
    };
    const auto assign = [this] { store.AssignFieldnameLabel("P", "zeko", "CUSTNO", "SLBDA2001"); };
    EXPECT_EQ(logOf({1}, assign), "suite UPDATE Close");
    for (const std::int32_t otherThanOne : {0, 2})
        EXPECT_EQ(logOf({otherThanOne, 0}, assign), "suite UPDATE INSERT Close");
    EXPECT_EQ(logOf({}, [&] { store.DeleteFieldValueTranslation("P", "zeko", "STATUS", "10"); }),
              "suite DELETE");
    EXPECT_EQ(logOf({}, [&] { store.ChangeFieldValueTranslation("P", "zeko", "S", "10", "L"); }),
              "suite UPDATE");
    EXPECT_EQ(logOf({}, [&] { store.InsertFieldValueTranslation("P", "zeko", "S", "$", "L"); }),
              "suite INSERT");
    EXPECT_THAT(outside.messages.shown, IsEmpty());

    outside.database.kindsAsked.clear();
    const auto addLabel = [this] { store.AddLabel("SLBDA3", "Red"); };
    EXPECT_EQ(logOf({1}, addLabel), " Open UPDATE Close");
    EXPECT_EQ(log().front(), OpenLabel);
    EXPECT_EQ(logOf({0, 1}, addLabel), " Open UPDATE INSERT Close");
    EXPECT_THAT(outside.messages.shown,
                AllOf(SizeIs(2), Each("Warning: Don't forget to translate the (new) label to other "
                                      "languages")));
    EXPECT_THAT(outside.messages.errors, IsEmpty());
    EXPECT_THAT(outside.database.kindsAsked, IsEmpty());
}

TEST_F(TranslationStoreTest, TheOneStepAddIsOneTransactionAndCommitsAfterItsMessage) {
    std::vector<std::string> logAtMessage;
    outside.messages.onShow = [&](const std::string&) { logAtMessage = log(); };
    counts = {1, 1};
    store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "10", "SLBDA3", "Red");
    EXPECT_THAT(
        log(),
        ElementsAre(OpenSuite, "BeginTrans",
                    "INSERT INTO I18NTEXT (LOCALEID, LABEL, TEXT, STATUS) VALUES (1033, 'SLBDA3', "
                    "'Red' ,0)",
                    "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, "
                    "LABEL)  VALUES ('Orders', 'zeko', 'STATUS', '10', 'SLBDA3')",
                    "CommitTrans", "Close"));
    EXPECT_EQ(logAtMessage.back(), *(log().end() - 3));

    counts = {1, 0};
    store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "10", "SLBDA3", "Red");
    EXPECT_THAT(outside.messages.shown, ElementsAre("1 record(s) affected", "No records affected"));

    outside.database.log.clear();
    failing = "INSERT INTO I18NFIELDVALUES";
    EXPECT_THROW(store.AddFieldValueInOneStep("Orders", "zeko", "STATUS", "10", "SLBDA3", "Red"),
                 RuntimeError);
    EXPECT_EQ(log().size(), 4U) << "neither committed nor closed";
}

TEST_F(TranslationStoreTest, WithoutTheDataSourceComponentAnOperationFailsAsItsCreationDoes) {
    outside.database.execute = nullptr;
    EXPECT_EQ(numberOf([&] { store.ListLabels(); }), 429);
    EXPECT_EQ(numberOf([&] { store.AddLabel("SLBDA3", "Red"); }), 429);
    EXPECT_THAT(log(), ElementsAre());
}

}  // namespace headerdtc::translation_store_test
