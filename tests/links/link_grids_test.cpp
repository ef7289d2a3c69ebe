#include "link_fixture.h"

namespace headerdtc {
namespace {

using enum Key::Kind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int From = links_column::From;
constexpr int To = links_column::To;

// Three links "A0" -> "X0" to "A2" -> "X2" in rows 1 to 3, and editors that offer these and more.
class LinkGridsTest : public FamilyLinksTest {
  protected:
    LinkGridsTest() {
        fill(family.FromLinkFieldsCombo, {"A0", "A1", "A2", "A3"});
        fill(family.ToLinkFieldsCombo, {"X0", "X1", "X2", "X3"});
        grid.Rows(4);
        for (int row = 1; row <= 3; ++row) {
            grid.TextMatrix(row, From, "A" + std::to_string(row - 1));
            grid.TextMatrix(row, To, "X" + std::to_string(row - 1));
        }
    }

    ComboBox& editorOf(int column) {
        return column == From ? family.FromLinkFieldsCombo : family.ToLinkFieldsCombo;
    }
    // Rows whose marker column has the "*".
    std::vector<int> markedRows() const {
        std::vector<int> rows;
        for (int row = 0; row < grid.Rows(); ++row) {
            if (grid.TextMatrix(row, 0) == "*") rows.push_back(row);
        }
        return rows;
    }
    // Picks the offered field of that number in the editor that stands open and leaves it.
    void pickAndLeave(int column, int number) {
        ComboBox& editor = editorOf(column);
        ASSERT_TRUE(editor.Visible());
        ASSERT_TRUE(editor.hasFocus());
        EXPECT_EQ(editor.Top(), grid.Top() + grid.CellTop());
        editor.choose(number);
        family.AddLink.focus();
        EXPECT_FALSE(editor.Visible());
    }
    // The numbers of the fields in a column, row by row.
    std::string fieldsOf(int column) {
        std::string numbers;
        for (int row = 1; row < grid.Rows(); ++row)
            numbers += grid.TextMatrix(row, column).substr(1);
        return numbers;
    }

    Grid& grid = family.LinksGrid;
};

INSTANTIATE_TEST_SUITE_P(Families, LinkGridsTest, ::testing::ValuesIn(BothFamilies), nameOfFamily);

TEST_P(LinkGridsTest, APickLandsInTheClickedRowWhileAnotherEditorIsOpen) {
    for (const int column : {From, To}) {
        for (const int other : {From, To}) {
            grid.clickCell(3, other);
            grid.clickCell(1, column);
            pickAndLeave(column, 3);
            EXPECT_EQ(fieldsOf(column), "312");
            grid.clickCell(1, column);
            pickAndLeave(column, 0);
        }
    }
    EXPECT_EQ(fieldsOf(From), "012");
    EXPECT_EQ(fieldsOf(To), "012");
}

TEST_P(LinkGridsTest, APickLandsInTheRowThatKeysEntered) {
    grid.focus();
    for (const int column : {From, To}) {
        press(grid, Enter);
        pickAndLeave(column, 3);
        EXPECT_EQ(fieldsOf(column), "312");
        press(grid, Down);
        EXPECT_THAT(markedRows(), ElementsAre(2));
        press(grid, Enter);
        pickAndLeave(column, 0);
        EXPECT_EQ(fieldsOf(column), "302");
        press(grid, Up, Right);
    }
}

// The grid was only given the focus, so no row has been left yet.
TEST_P(LinkGridsTest, TheFirstEditOfAllStaysInItsRowWhenAnotherIsClicked) {
    grid.focus();
    press(grid, Enter);
    press(editorOf(From), Down);
    grid.clickCell(3, From);
    EXPECT_EQ(fieldsOf(From), "112");
}

TEST_P(LinkGridsTest, AddOpensARowThatTakesTheNextPicks) {
    grid.clickCell(1, From);
    family.AddLink.press();
    EXPECT_EQ(grid.Rows(), 5);
    EXPECT_THAT(markedRows(), ElementsAre(4));
    press(grid, Enter);
    pickAndLeave(From, 3);
    grid.clickCell(4, To);
    pickAndLeave(To, 3);
    EXPECT_EQ(fieldsOf(From), "0123");
    EXPECT_EQ(fieldsOf(To), "0123");
    EXPECT_THAT(notices(), ElementsAre("NrOfLinked" + named("Fields"), named("LinkFromFields"),
                                       named("LinkToFields")));
}

TEST_P(LinkGridsTest, RemoveTakesTheMarkedRowAndTheNextPickLandsWhereItIsMade) {
    grid.clickCell(2, To);
    family.RemoveLink.press();
    EXPECT_EQ(fieldsOf(To), "02");
    EXPECT_THAT(markedRows(), ElementsAre(2));
    press(grid, Enter);
    pickAndLeave(To, 3);
    EXPECT_EQ(fieldsOf(To), "03");
    family.RemoveLink.press();
    EXPECT_THAT(markedRows(), ElementsAre(1));
    grid.clickCell(1, From);
    pickAndLeave(From, 3);
    EXPECT_EQ(fieldsOf(From), "3");
}

TEST_P(LinkGridsTest, TheLastLinkIsEmptiedAndKeepsItsRow) {
    grid.Rows(2);
    grid.clickCell(1, From);
    family.RemoveLink.press();
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.TextMatrix(1, From) + grid.TextMatrix(1, To), "");
    EXPECT_EQ(grid.TextMatrix(0, From), "From");
    EXPECT_EQ(grid.TextMatrix(0, To), "To");
    EXPECT_THAT(markedRows(), ElementsAre(1));
    EXPECT_THAT(notices(), ElementsAre(named("LinkFromFields"), named("LinkToFields")));
}

TEST_P(LinkGridsTest, WithoutAMarkedRowRemoveReportsAsTheCriteriaGridDoes) {
    family.RemoveLink.press();
    EXPECT_THAT(errors(), ElementsAre("Error in '" + named("RemoveCriteriumCommand_Click") +
                                      "': Invalid property array index (381)"));
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_P(LinkGridsTest, TheScrollBarNarrowsTheToColumnOnce) {
    const int width = grid.ColWidth(To);
    for (int i = 0; i < 4; ++i)
        family.AddLink.press();
    EXPECT_EQ(grid.ColWidth(To), width - 255);
    for (int i = 0; i < 5; ++i)
        family.RemoveLink.press();
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.ColWidth(To), width);
}

TEST_P(LinkGridsTest, AnEditOfARowThatHasGoneIsDroppedByFromAndReportedByTo) {
    grid.clickCell(3, From);
    grid.Rows(2);
    family.AddLink.focus();
    EXPECT_THAT(errors(), IsEmpty());
    // Only EAI moves the "*" when it completes a From edit.
    EXPECT_EQ(markedRows().size(), eai ? 1U : 0U);
    grid.Rows(4);
    grid.clickCell(3, To);
    grid.Rows(2);
    family.AddLink.focus();
    EXPECT_THAT(errors(), ElementsAre("Error in '" + named("ToLinkFieldsCombo_LostFocus") +
                                      "': Invalid property array index (381)"));
}

// What completes an edit beside leaving the editor.
TEST_P(LinkGridsTest, OnlyZekoFromWaitsForTheFocusAndOnlyEaiToHeedsAnyKey) {
    grid.clickCell(1, From);
    editorOf(From).choose(3);
    EXPECT_EQ(editorOf(From).Visible(), !eai);
    EXPECT_EQ(grid.TextMatrix(1, From), eai ? "A3" : "A0");
    grid.clickCell(1, To);
    press(editorOf(To), Escape);
    EXPECT_EQ(editorOf(To).Visible(), !eai);
    grid.clickCell(2, To);
    editorOf(To).choose(3);
    EXPECT_FALSE(editorOf(To).Visible());
    EXPECT_THAT(notices(), ElementsAre(named("LinkFromFields"), named("LinkToFields")));
}

}  // namespace
}  // namespace headerdtc
