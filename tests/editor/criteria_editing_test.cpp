#include "editor_fixture.h"

namespace headerdtc {
namespace {

using enum Key::Kind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CriteriaEditingTest : public FamilyTest {
  protected:
    CriteriaEditingTest() { grid.Rows(4); }

    // Key, operator and value of every row.
    std::vector<std::string> rows() const {
        std::vector<std::string> rows;
        for (int row = 1; row < grid.Rows(); ++row)
            rows.push_back(grid.TextMatrix(row, 1) + "|" + grid.TextMatrix(row, 2) + "|" +
                           grid.TextMatrix(row, 3));
        return rows;
    }
    bool anyEditorShows() const { return keys.Visible() || operators.Visible() || value.Visible(); }

    Grid& grid = family.CriteriaGrid;
    ComboBox& keys = family.KeyFieldsCombo;
    ComboBox& operators = family.OperatorsCombo;
    TextBox& value = family.KeyFieldValueText;
};

INSTANTIATE_TEST_SUITE_P(Families, CriteriaEditingTest, ::testing::ValuesIn(BothFamilies),
                         nameOfFamily);

TEST_P(CriteriaEditingTest, TheEditorOfAnotherRowWritesIntoThatRow) {
    grid.clickCell(1, 1);
    keys.choose("ORDNO");
    grid.clickCell(3, 1);
    keys.choose("CUSTNO");
    grid.doubleClickCell(2, 3);
    EXPECT_FALSE(keys.Visible());
    value.type("2");
    grid.doubleClickCell(1, 3);
    value.type("1");
    grid.clickCell(3, 2);
    operators.choose(">=");
    dtc.SSTab1.clickTab(0);
    EXPECT_THAT(rows(), ElementsAre("ORDNO||1", "||2", "CUSTNO|>=|"));
    EXPECT_FALSE(anyEditorShows());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_P(CriteriaEditingTest, ByKeysAlone) {
    grid.focus();
    press(grid, Down, Enter);
    press(keys, Down);
    press(grid, Right, Right, U'5');
    EXPECT_EQ(value.Text(), "5");
    EXPECT_EQ(value.SelStart(), 1);
    press(value, U'6');
    EXPECT_FALSE(value.keyPress(Key::of(Enter)));
    press(value, Enter);
    EXPECT_THAT(rows(), ElementsAre("||", "ORDNO||56", "||"));
    EXPECT_EQ(value.Text(), "");
    EXPECT_TRUE(grid.hasFocus());
}

TEST_P(CriteriaEditingTest, UpAndDownInTheValueBoxWriteAndGoToTheNextRow) {
    grid.doubleClickCell(1, 3);
    value.type("one");
    press(value, Down);
    press(grid, U'2');
    press(value, Down);
    press(grid, U'3');
    press(value, Down);
    EXPECT_EQ(grid.Row(), 3);
    press(grid, Enter);
    value.type("three");
    press(value, Up);
    EXPECT_EQ(grid.TextMatrix(2, 0), "*");
    press(grid, Enter);
    press(value, Up);
    press(grid, Enter);
    EXPECT_EQ(value.SelLength(), 3);
    press(value, Up);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_THAT(rows(), ElementsAre("||one", "||2", "||three"));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_P(CriteriaEditingTest, RightAfterAddAndRemove) {
    grid.clickCell(1, 3);
    family.AddCriteriumCommand.press();
    press(grid, U'4');
    // The open editor is left for the button before the row goes.
    family.RemoveCriteriumCommand.press();
    EXPECT_EQ(grid.Rows(), 4);
    press(grid, U'3');
    family.AddCriteriumCommand.press();
    EXPECT_THAT(rows(), ElementsAre("||", "||", "||3", "||"));
    grid.clickCell(2, 1);
    family.RemoveCriteriumCommand.press();
    press(grid, Enter);
    keys.choose("CUSTNO");
    family.MoveUpCommand.focus();
    EXPECT_THAT(rows(), ElementsAre("||", "CUSTNO||3", "||"));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_P(CriteriaEditingTest, OnlyACellThatBecomesAnotherIsAnnounced) {
    grid.TextMatrix(1, 3, "4711");
    grid.clickCell(1, 3);
    notices();
    press(grid, Enter);
    press(value, Enter);
    EXPECT_THAT(notices(), IsEmpty());
    press(grid, Enter);
    value.type("4712");
    press(value, Enter);
    EXPECT_THAT(notices(), ElementsAre(named("Criteria")));
}

TEST_P(CriteriaEditingTest, AClickOpensTheCombosAndADoubleClickTheValueBox) {
    grid.TextMatrix(1, 1, "CUSTNO");
    grid.TextMatrix(1, 3, "4711");
    int opened = 0;
    const Subscription counting = keys.Click.subscribe([&] { ++opened; });
    grid.doubleClickCell(1, 1);
    // The second press finds the combo of the first one open, and clicks again in ZEKO only.
    EXPECT_EQ(opened, GetParam() == Family::ZEKO ? 2 : 1);
    EXPECT_EQ(keys.Text(), "CUSTNO");
    EXPECT_TRUE(keys.hasFocus());
    EXPECT_EQ(keys.Width(), grid.ColWidth(1));
    for (const int column : {3, 0}) {
        grid.clickCell(1, column);
        EXPECT_FALSE(anyEditorShows()) << "column " << column;
    }
    grid.doubleClickCell(1, 3);
    EXPECT_EQ(value.Text(), "4711");
    EXPECT_EQ(value.SelStart(), 0);
    EXPECT_EQ(value.SelLength(), 4);
    EXPECT_EQ(value.Left(), grid.Left() + grid.CellLeft());
    EXPECT_EQ(value.Top(), grid.Top() + grid.CellTop());
}

TEST_P(CriteriaEditingTest, TheLastEqualItemIsPreselectedAndAnUnknownTextKeepsTheChoice) {
    keys.AddItem("ORDNO");
    grid.TextMatrix(1, 1, "ORDNO");
    grid.clickCell(1, 1);
    EXPECT_EQ(keys.ListIndex(), 2);
    grid.TextMatrix(2, 1, "GONE");
    grid.clickCell(2, 1);
    EXPECT_EQ(keys.ListIndex(), 2);
    family.MoveUpCommand.focus();
    EXPECT_THAT(rows(), ElementsAre("ORDNO||", "ORDNO||", "||"));
}

TEST_P(CriteriaEditingTest, TheDelKeyIsWarnedOfOnceAndEmptiesTheValueBox) {
    grid.clickCell(1, 1);
    EXPECT_THAT(outside.messages.shown, IsEmpty());
    grid.doubleClickCell(1, 3);
    value.type("4711");
    value.SelStart(2);
    press(value, Delete);
    EXPECT_EQ(value.Text(), "");
    grid.doubleClickCell(2, 3);
    EXPECT_THAT(messages(),
                ElementsAre("Don't push the 'Del' button, for it will throw away the entire DTC"));
    EXPECT_TRUE(dtc.family(otherFamily(GetParam())).warnAboutDeleteKey);
}

TEST_P(CriteriaEditingTest, EscapeAndScrollingLeaveTheEditorWithItsValueWritten) {
    grid.doubleClickCell(1, 3);
    value.type("kept");
    press(value, Escape);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_FALSE(anyEditorShows());
    grid.clickCell(2, 1);
    keys.choose("CUSTNO");
    grid.scroll(2);
    EXPECT_FALSE(anyEditorShows());
    EXPECT_THAT(rows(), ElementsAre("||kept", "CUSTNO||", "||"));
}

// The host takes rows away under an open editor.
TEST_P(CriteriaEditingTest, ARowThatIsGoneFailsExceptForTheEAIKeyField) {
    constexpr const char* NoRow = "Invalid property array index (381)";
    const auto errorsOfLeavingAGoneCell = [&](int column) {
        grid.Rows(4);
        grid.clickCell(3, column);
        grid.Rows(2);
        family.MoveUpCommand.focus();
        return errors();
    };
    if (GetParam() == Family::EAI) {
        EXPECT_THAT(errorsOfLeavingAGoneCell(1), IsEmpty());
        EXPECT_FALSE(keys.Visible());
    } else {
        EXPECT_THAT(errorsOfLeavingAGoneCell(1),
                    ElementsAre(report("KeyFieldsCombo_LostFocus", NoRow)));
    }
    EXPECT_THAT(errorsOfLeavingAGoneCell(2),
                ElementsAre(report("OperatorsCombo_LostFocus", NoRow)));
}

}  // namespace
}  // namespace headerdtc
