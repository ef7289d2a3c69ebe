#include "core/common_dialog.h"
#include "core/control_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> headersOf(const Grid& grid) {
    std::vector<std::string> headers;
    headers.reserve(static_cast<std::size_t>(grid.Cols()));
    for (int column = 0; column < grid.Cols(); ++column)
        headers.push_back(grid.TextMatrix(0, column));
    return headers;
}

std::vector<int> widthsOf(const Grid& grid) {
    std::vector<int> widths;
    widths.reserve(static_cast<std::size_t>(grid.Cols()));
    for (int column = 0; column < grid.Cols(); ++column)
        widths.push_back(grid.ColWidth(column));
    return widths;
}

class SetUpTest : public ControlTest {};

TEST_F(SetUpTest, BothFamiliesAreSetUpAlike) {
    for (const Family which : BothFamilies) {
        const FamilyControls& family = dtc.family(which);
        EXPECT_THAT(itemsOf(family.OperatorsCombo), ElementsAre("==", "<=", ">="));
        EXPECT_THAT(headersOf(family.CriteriaGrid), ElementsAre("", "Key", "", "Value", ""));
        EXPECT_THAT(widthsOf(family.CriteriaGrid), ElementsAre(200, 1800, 550, 2052, 255));
        EXPECT_EQ(family.CriteriaGrid.RowHeightMin(), 323);
        EXPECT_THAT(headersOf(family.LinksGrid), ElementsAre("", "From", "To"));
        EXPECT_THAT(widthsOf(family.LinksGrid), ElementsAre(200, 2315, 2315));
        EXPECT_EQ(family.CriteriaGrid.Rows(), 2);
        EXPECT_EQ(family.LinksGrid.Rows(), 2);
        EXPECT_EQ(family.criteriaRows.current, -1);
        EXPECT_EQ(family.linkRows.previous, -1);
        EXPECT_TRUE(family.warnAboutDeleteKey);
    }
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "xsl/Generic.xsl");
    EXPECT_EQ(dtc.SSTab1.Tab(), 0);
    EXPECT_EQ(dtc.DataProvidersCombo.ListCount(), 2);
    EXPECT_TRUE(outside.messages.shown.empty());
}

TEST_F(SetUpTest, AFailureIsReportedUnderItsShortNameAndLeavesWhatWasSetUp) {
    HeaderDTC other(outside.all(), outside.modalLoop);
    other.procedures.PrepareGeneralTab = [] {
        throw RuntimeError(ErrorNumber::CannotCreateObject);
    };
    other.UserControl_Initialize();
    EXPECT_THAT(outside.messages.errors,
                ElementsAre("Error in 'Initialize': ActiveX component can't create object (429)"));
    EXPECT_EQ(other.XSLFilenameText.Text(), "xsl/Generic.xsl");
}

TEST_F(SetUpTest, EveryControlHasANameOfItsOwn) {
    for (const Control* control : dtc.surface.controls())
        EXPECT_EQ(dtc.surface.find(control->name()), control) << control->name();
    EXPECT_NE(dtc.surface.find("ZEKOMoveUpLinkdFieldCommand"), nullptr);
    EXPECT_NE(dtc.surface.find("EAIMoveUpLinkedField"), nullptr);
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

TEST_F(SetCriteriumValueTest, StoresTheTrimmedNameInDictionariesAndGrid) {
    dtc.SetCriteriumValue(2, 1, "  getCust ", "function getCust()", USERSCRIPT);
    EXPECT_EQ(dtc.ZEKO.CriteriaType.item("getCust"), USERSCRIPT);
    EXPECT_EQ(dtc.userDefinedScripts->item("getCust"), "function getCust()");
    EXPECT_EQ(dtc.ZEKO.CriteriaGrid.TextMatrix(1, 3), "getCust");
    EXPECT_THAT(prepared, ElementsAre(Family::ZEKO));
    EXPECT_EQ(valueWhenPrepared, "getCust");
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 0);
    EXPECT_EQ(dtc.nrOfUserDefinedScripts, 0);
}

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

TEST_F(SetCriteriumValueTest, AnUnknownFamilyReachesTheScriptsOnly) {
    dtc.SetCriteriumValue(3, 1, "f", "text", USERSCRIPT);
    EXPECT_EQ(dtc.userDefinedScripts->item("f"), "text");
    EXPECT_EQ(dtc.EAI.CriteriaType.Count() + dtc.ZEKO.CriteriaType.Count(), 0);
    EXPECT_TRUE(prepared.empty());
}

TEST_F(SetCriteriumValueTest, ARowThatIsNotThereFailsAfterTheDictionaries) {
    EXPECT_EQ(errorOf([&] { dtc.SetCriteriumValue(2, 2, "f", "text", USERSCRIPT); }), 381);
    EXPECT_TRUE(dtc.ZEKO.CriteriaType.Exists("f"));
    EXPECT_TRUE(prepared.empty());
}

TEST(CommonDialogTest, SettingsAndFileSurviveACancelledShowing) {
    testing::ScriptedFileDialog window;
    window.answers = {"C:\\SITES\\MAIN\\a.asp"};
    CommonDialog dialog(window, "Browse");
    dialog.InitDir = "C:\\SITES\\MAIN\\";
    dialog.Filter = "Pages|*.asp";
    dialog.ShowOpen();
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "C:\\SITES\\MAIN\\a.asp");
    ASSERT_EQ(window.requests.size(), 2U);
    EXPECT_EQ(window.requests[1].title, "Browse");
    EXPECT_EQ(window.requests[1].initialDirectory, "C:\\SITES\\MAIN\\");
    EXPECT_EQ(window.requests[1].filter, "Pages|*.asp");
}

}  // namespace
}  // namespace headerdtc
