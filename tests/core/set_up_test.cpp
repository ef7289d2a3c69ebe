#include "core/control_fixture.h"

namespace headerdtc::set_up_test {

class SetUpTest : public ControlTest {};

TEST_F(SetUpTest, AFailureIsReportedUnderItsShortNameAndLeavesWhatWasSetUp) {
    HeaderDTC other(outside.all(), outside.modalLoop);
    other.procedures.PrepareGeneralTab = [] {
        throw RuntimeError(ErrorNumber::CannotCreateObject);
    };
    other.UserControl_Initialize();
    EXPECT_THAT(errors(),
                ElementsAre("Error in 'Initialize': ActiveX component can't create object (429)"));
    EXPECT_EQ(other.XSLFilenameText.Text(), "xsl/Generic.xsl");
}

TEST_F(SetUpTest, ScriptsAreHandedOutAndReplacedAsOneObject) {
    const auto scripts = std::make_shared<ScriptDictionary>();
    dtc.UserDefinedScripts(scripts);
    dtc.UserDefinedScripts()->Add("f", "text");
    EXPECT_EQ(scripts->Count(), 1);
    EXPECT_EQ(numberOf([&] { dtc.UserDefinedScripts(nullptr); }), 91);
    EXPECT_THAT(notices(), ElementsAre("UserDefinedScripts"));
}

class SetCriteriumValueTest : public ControlTest {
  protected:
    SetCriteriumValueTest() {
        dtc.procedures.PrepareFamilyTab = [this](Family which) {
            prepared.push_back(which);
            valueWhenPrepared = dtc.family(which).CriteriaGrid.TextMatrix(1, 3);
        };
    }
    std::vector<Family> prepared;
    std::string valueWhenPrepared;
};

TEST_F(SetCriteriumValueTest, AScriptIsReplacedAndAnotherTypeRemovesIt) {
    dtc.SetCriteriumValue(1, 1, "f", "old", USERSCRIPT);
    dtc.SetCriteriumValue(1, 1, "g", "other", USERSCRIPT);
    dtc.SetCriteriumValue(1, 1, "f", "new", USERSCRIPT);
    EXPECT_EQ(dtc.userDefinedScripts->begin()->first, "g");
    EXPECT_EQ(dtc.userDefinedScripts->item("f"), "new");
    dtc.SetCriteriumValue(1, 1, "f", "ignored", INCLUDEFUNCTION);
    EXPECT_FALSE(dtc.userDefinedScripts->Exists("f"));
    EXPECT_EQ(dtc.EAI.CriteriaType.item("f"), INCLUDEFUNCTION);
}

TEST_F(SetCriteriumValueTest,
       AnUnknownFamilyReachesTheScriptsOnlyAndAMissingRowTheDictionariesToo) {
    dtc.SetCriteriumValue(3, 1, "f", "text", USERSCRIPT);
    EXPECT_EQ(dtc.userDefinedScripts->item("f"), "text");
    EXPECT_EQ(dtc.EAI.CriteriaType.Count() + dtc.ZEKO.CriteriaType.Count(), 0);
    EXPECT_EQ(numberOf([&] { dtc.SetCriteriumValue(2, 2, "f", "text", USERSCRIPT); }), 381);
    EXPECT_TRUE(dtc.ZEKO.CriteriaType.Exists("f"));
    EXPECT_THAT(prepared, IsEmpty());
}

}  // namespace headerdtc::set_up_test
