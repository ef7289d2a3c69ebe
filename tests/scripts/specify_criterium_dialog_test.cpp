#include "scripts/specify_criterium_dialog.h"

#include "script_fixture.h"

namespace headerdtc {
namespace {

using enum Key::Kind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* NotApplicable = "(Not applicable)";
constexpr const char* StoredFunction =
    "Function f()\r\n\r\n  x = 1\r\n\r\n  y = 2\r\nEnd Function 'f()";

// The dialog as the person before it sees it, by the names of its controls.
struct Shown {
    Form& form;
    template <class Kind>
    Kind& control(const char* name) {
        return dynamic_cast<Kind&>(*form.find(name));
    }
    TextBox& name = control<TextBox>("NameText");
    TextBox& body = control<TextBox>("ScriptBodyText");
    TextBox& overview = control<TextBox>("ScriptText");
    OptionButton& constant = control<OptionButton>("ConstantOption");
    OptionButton& included = control<OptionButton>("IncludedScriptOption");
    OptionButton& local = control<OptionButton>("LocalScriptOption");
    Button& ok = control<Button>("OKButton");
    Button& cancel = control<Button>("CancelButton");
};

class SpecifyCriteriumDialogTest : public ScriptsTest {
  protected:
    // Opens the dialog for row 1 and lets the person act before it.
    void open(int tab, const std::string& name, const std::string& script, std::int32_t type,
              std::function<void(Shown&)> act) {
        outside.modalLoop.scripts.emplace_back([&](Form& form) {
            Shown shown{form};
            act(shown);
        });
        dtc.procedures.ShowSpecifyCriteriumDialog(tab, 1, name, script, type);
    }
    static void agree(Shown& dialog) { dialog.ok.press(); }
};

TEST_F(SpecifyCriteriumDialogTest, AnEmptyCellGivesAnEditableNameAndAnEmptyBody) {
    for (const std::int32_t type : {0, 1, 2, 9}) {
        open(1, "", StoredFunction, type, [&](Shown& dialog) {
            EXPECT_TRUE(dialog.name.hasFocus());
            EXPECT_EQ(dialog.body.Text(), "");
            EXPECT_EQ(dialog.body.Enabled(), type == USERSCRIPT);
            EXPECT_FALSE(dialog.overview.Enabled());
            EXPECT_EQ(dialog.local.Value(), type == USERSCRIPT);
        });
    }
}

TEST_F(SpecifyCriteriumDialogTest, AValueWithoutAScriptSaysSoUntilTheKindIsLocal) {
    for (const std::int32_t type : {CONSTANT, INCLUDEFUNCTION}) {
        open(1, "100", "", type, [&](Shown& dialog) {
            const auto expectNoScript = [&] {
                for (const TextBox* box : {&dialog.body, &dialog.overview}) {
                    EXPECT_EQ(box->Text(), NotApplicable);
                    EXPECT_FALSE(box->Enabled());
                }
            };
            EXPECT_FALSE(dialog.name.Enabled());
            expectNoScript();
            dialog.local.pick();
            EXPECT_EQ(dialog.body.Text(), "");
            EXPECT_TRUE(dialog.body.Enabled());
            EXPECT_FALSE(dialog.overview.Enabled());
            (type == CONSTANT ? dialog.constant : dialog.included).pick();
            expectNoScript();
        });
    }
}

TEST_F(SpecifyCriteriumDialogTest, AStoredFunctionShowsItsBodyAndIsStoredTheSameFromThenOn) {
    std::string script = StoredFunction;
    for (int round = 0; round < 2; ++round) {
        open(2, "f", script, USERSCRIPT, [](Shown& dialog) {
            EXPECT_EQ(dialog.body.Text(), "  x = 1\r\n  y = 2\r\n");
            agree(dialog);
        });
        script = dtc.userDefinedScripts->item("f");
        EXPECT_EQ(script, "Function f()\r\n\r\n  x = 1\r\n  y = 2\r\n\r\nEnd Function 'f()");
    }
}

TEST_F(SpecifyCriteriumDialogTest, ALocalScriptIsStoredTrimmedWithTheNameOfItsLastBodyChange) {
    open(2, "", "", CONSTANT, [](Shown& dialog) {
        dialog.name.type("before");
        dialog.local.pick();
        dialog.body.type("x = 1");
        dialog.name.type(" after ");
        agree(dialog);
    });
    EXPECT_EQ(dtc.userDefinedScripts->item("after"),
              "Function before()\r\n\r\nx = 1\r\nEnd Function 'before()");
    EXPECT_EQ(dtc.ZEKO.CriteriaType.item("after"), USERSCRIPT);
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(1, criteria_column::Value), "after");
}

TEST_F(SpecifyCriteriumDialogTest, OkStoresTheKindThatIsPickedOrElseTheOneGiven) {
    open(1, "f", StoredFunction, USERSCRIPT, [](Shown& dialog) {
        dialog.included.pick();
        agree(dialog);
    });
    EXPECT_EQ(dtc.EAI.CriteriaType.item("f"), INCLUDEFUNCTION);
    open(1, "x", "", 7, agree);
    EXPECT_EQ(dtc.EAI.CriteriaType.item("x"), 7);
    EXPECT_EQ(dtc.userDefinedScripts->Count(), 0);
}

TEST_F(SpecifyCriteriumDialogTest, CancelAndEscapeLeaveTheConfiguration) {
    const auto openAndLeave = [this](auto leave) {
        open(1, "", "", USERSCRIPT, [&](Shown& dialog) {
            dialog.name.type("f");
            press(dialog.body, U'x', Enter);
            EXPECT_EQ(dialog.body.Text(), "x\r\n");
            leave(dialog);
        });
    };
    openAndLeave([](Shown& dialog) { press(dialog.body, Escape); });
    openAndLeave([](Shown& dialog) { dialog.cancel.press(); });
    EXPECT_EQ(dtc.userDefinedScripts->Count(), 0);
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 0);
    EXPECT_EQ(dtc.EAI.CriteriaGrid.TextMatrix(1, criteria_column::Value), "");
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_F(SpecifyCriteriumDialogTest, AFailureOfOkReachesTheLauncherAndClosesTheDialog) {
    dtc.EAI.CriteriaGrid.Rows(1);
    EXPECT_EQ(numberOf([&] { open(1, "x", "", CONSTANT, agree); }), 381);
    EXPECT_THAT(dtc.desktop.modalForms(), IsEmpty());
    EXPECT_THAT(messages(), IsEmpty());
}

}  // namespace
}  // namespace headerdtc
