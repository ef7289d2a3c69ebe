#include "editor_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Key Enter = Key::of(Key::Kind::Enter);
const Key Escape = Key::of(Key::Kind::Escape);
const Key Up = Key::of(Key::Kind::Up);
const Key Down = Key::of(Key::Kind::Down);
const Key Delete = Key::of(Key::Kind::Delete);

constexpr const char* Warning =
    "Don't push the 'Del' button, for it will throw away the entire DTC";

class CriteriaEditingTest : public FamilyTest {
  protected:
    CriteriaEditingTest() { grid.Rows(4); }

    // Key, operator and value of a row.
    std::string row(int row) const {
        return grid.TextMatrix(row, 1) + "|" + grid.TextMatrix(row, 2) + "|" +
               grid.TextMatrix(row, 3);
    }
    bool anyEditorShows() const {
        return family.KeyFieldsCombo.Visible() || family.OperatorsCombo.Visible() ||
               value.Visible();
    }
    // Leaves whatever is being edited.
    void leave() {
        family.MoveUpCommand.focus();
        EXPECT_FALSE(anyEditorShows());
        EXPECT_THAT(errors(), IsEmpty());
    }

    Grid& grid = family.CriteriaGrid;
    TextBox& value = family.KeyFieldValueText;
};

INSTANTIATE_TEST_SUITE_P(Families, CriteriaEditingTest, ::testing::ValuesIn(BothFamilies),
                         nameOfFamily);

TEST_P(CriteriaEditingTest, AWholeCriterionByMouse) {
    grid.clickCell(2, 1);
    family.KeyFieldsCombo.choose("CUSTNO");
    grid.clickCell(2, 2);
    EXPECT_FALSE(family.KeyFieldsCombo.Visible());
    family.OperatorsCombo.choose("<=");
    grid.doubleClickCell(2, 3);
    value.type("4711");
    leave();
    EXPECT_EQ(row(2), "CUSTNO|<=|4711");
    EXPECT_EQ(row(1), "||");
}

TEST_P(CriteriaEditingTest, TheEditorOfAnotherRowWritesIntoThatRow) {
    grid.clickCell(1, 1);
    family.KeyFieldsCombo.choose("ORDNO");
    grid.clickCell(3, 1);
    family.KeyFieldsCombo.choose("CUSTNO");
    grid.doubleClickCell(2, 3);
    value.type("2");
    grid.doubleClickCell(1, 3);
    value.type("1");
    grid.clickCell(3, 2);
    family.OperatorsCombo.choose(">=");
    dtc.SSTab1.clickTab(0);
    EXPECT_EQ(row(1), "ORDNO||1");
    EXPECT_EQ(row(2), "||2");
    EXPECT_EQ(row(3), "CUSTNO|>=|");
    EXPECT_FALSE(anyEditorShows());
}

TEST_P(CriteriaEditingTest, ByKeysAlone) {
    grid.focus();
    grid.press(Down);
    grid.press(Enter);
    family.KeyFieldsCombo.press(Down);
    grid.press(Key::of(Key::Kind::Right));
    grid.press(Key::of(Key::Kind::Right));
    grid.press(Key::of(U'5'));
    EXPECT_EQ(value.Text(), "5");
    EXPECT_EQ(value.SelStart(), 1);
    value.press(Key::of(U'6'));
    EXPECT_FALSE(value.keyPress(Enter));
    value.press(Enter);
    EXPECT_EQ(row(2), "ORDNO||56");
    EXPECT_EQ(value.Text(), "");
    EXPECT_TRUE(grid.hasFocus());
}

TEST_P(CriteriaEditingTest, UpAndDownInTheValueBoxWriteAndGoToTheNextRow) {
    grid.doubleClickCell(1, 3);
    value.type("one");
    for (const char* typed : {"2", "3"}) {
        value.press(Down);
        grid.press(Key::of(static_cast<char32_t>(typed[0])));
    }
    value.press(Down);
    EXPECT_EQ(grid.Row(), 3);
    grid.press(Enter);
    value.type("three");
    value.press(Up);
    EXPECT_EQ(grid.TextMatrix(2, 0), "*");
    grid.press(Enter);
    value.press(Up);
    EXPECT_EQ(grid.Row(), 1);
    grid.press(Enter);
    EXPECT_EQ(value.SelLength(), 3);
    value.press(Up);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(row(1), "||one");
    EXPECT_EQ(row(2), "||2");
    EXPECT_EQ(row(3), "||three");
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_P(CriteriaEditingTest, RightAfterAddAndRemove) {
    grid.clickCell(1, 3);
    family.AddCriteriumCommand.press();
    grid.press(Key::of(U'4'));
    // The open editor is left for the button before the row goes.
    family.RemoveCriteriumCommand.press();
    EXPECT_EQ(grid.Rows(), 4);
    grid.press(Key::of(U'3'));
    family.AddCriteriumCommand.press();
    EXPECT_EQ(row(3), "||3");
    grid.clickCell(2, 1);
    family.RemoveCriteriumCommand.press();
    grid.press(Enter);
    family.KeyFieldsCombo.choose("CUSTNO");
    leave();
    EXPECT_EQ(row(2), "CUSTNO||3");
    EXPECT_EQ(row(3), "||");
}

TEST_P(CriteriaEditingTest, OnlyACellThatBecomesAnotherIsAnnounced) {
    grid.TextMatrix(1, 3, "4711");
    grid.clickCell(1, 3);
    notices();
    grid.press(Enter);
    value.press(Enter);
    EXPECT_THAT(notices(), IsEmpty());
    grid.press(Enter);
    value.type("4712");
    value.press(Enter);
    EXPECT_THAT(notices(), ElementsAre(named("Criteria")));
}

TEST_P(CriteriaEditingTest, AClickOpensTheCombosAndADoubleClickTheValueBox) {
    grid.TextMatrix(1, 1, "CUSTNO");
    grid.TextMatrix(1, 3, "4711");
    grid.clickCell(1, 1);
    EXPECT_EQ(family.KeyFieldsCombo.Text(), "CUSTNO");
    EXPECT_TRUE(family.KeyFieldsCombo.hasFocus());
    EXPECT_EQ(family.KeyFieldsCombo.Width(), grid.ColWidth(1));
    grid.clickCell(1, 3);
    EXPECT_FALSE(anyEditorShows());
    grid.clickCell(1, 0);
    EXPECT_FALSE(anyEditorShows());
    grid.doubleClickCell(1, 3);
    EXPECT_EQ(value.Text(), "4711");
    EXPECT_EQ(value.SelStart(), 0);
    EXPECT_EQ(value.SelLength(), 4);
}

TEST_P(CriteriaEditingTest, TheLastEqualItemIsPreselectedAndAnUnknownTextKeepsTheChoice) {
    family.KeyFieldsCombo.AddItem("ORDNO");
    grid.TextMatrix(1, 1, "ORDNO");
    grid.clickCell(1, 1);
    EXPECT_EQ(family.KeyFieldsCombo.ListIndex(), 2);
    grid.TextMatrix(2, 1, "GONE");
    grid.clickCell(2, 1);
    EXPECT_EQ(family.KeyFieldsCombo.ListIndex(), 2);
    leave();
    EXPECT_EQ(row(2), "ORDNO||");
}

TEST_P(CriteriaEditingTest, TheDelKeyIsWarnedOfOnceAndEmptiesTheValueBox) {
    grid.clickCell(1, 1);
    EXPECT_THAT(outside.messages.shown, IsEmpty());
    grid.doubleClickCell(1, 3);
    value.type("4711");
    value.SelStart(2);
    value.press(Delete);
    EXPECT_EQ(value.Text(), "");
    grid.doubleClickCell(2, 3);
    EXPECT_THAT(outside.messages.shown, ElementsAre(Warning));
    EXPECT_TRUE(dtc.family(otherFamily(GetParam())).warnAboutDeleteKey);
}

TEST_P(CriteriaEditingTest, EscapeAndScrollingLeaveTheEditorWithItsValueWritten) {
    grid.doubleClickCell(1, 3);
    value.type("kept");
    value.press(Escape);
    EXPECT_EQ(row(1), "||kept");
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_FALSE(anyEditorShows());
    grid.clickCell(2, 1);
    family.KeyFieldsCombo.choose("CUSTNO");
    grid.scroll(2);
    EXPECT_FALSE(anyEditorShows());
    EXPECT_EQ(row(2), "CUSTNO||");
}

// The host takes rows away under an open editor.
TEST_P(CriteriaEditingTest, ARowThatIsGoneFailsExceptForTheEAIKeyField) {
    constexpr const char* NoRow = "Invalid property array index (381)";
    grid.clickCell(3, 1);
    grid.Rows(2);
    family.MoveUpCommand.focus();
    if (GetParam() == Family::EAI) {
        EXPECT_THAT(errors(), IsEmpty());
        EXPECT_FALSE(family.KeyFieldsCombo.Visible());
    } else {
        EXPECT_THAT(errors(), ElementsAre(report("KeyFieldsCombo_LostFocus", NoRow)));
    }
    grid.Rows(4);
    grid.clickCell(3, 2);
    grid.Rows(2);
    family.MoveUpCommand.focus();
    EXPECT_THAT(errors(), ElementsAre(report("OperatorsCombo_LostFocus", NoRow)));
}

// A second press that finds the combo of the first one open.
TEST_P(CriteriaEditingTest, ADoubleClickBesideTheValueClicksAgainInZEKOOnly) {
    int opened = 0;
    grid.TextMatrix(1, 1, "CUSTNO");
    const Subscription counting = family.KeyFieldsCombo.Click.subscribe([&] { ++opened; });
    grid.doubleClickCell(1, 1);
    EXPECT_EQ(opened, GetParam() == Family::ZEKO ? 2 : 1);
}

}  // namespace
}  // namespace headerdtc
