#include "core/handler_tools.h"

#include "core/control_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;

class HandlerToolsTest : public ControlTest {
  protected:
    HandlerToolsTest() {
        dtc.SSTab1.Tab(2);
        fill(list, {"A", "B", "C"});
    }
    ListBox& list = dtc.ZEKO.SelectedFieldsList;
    Grid& grid = dtc.ZEKO.CriteriaGrid;
};

TEST_F(HandlerToolsTest, AfterARemovalTheItemAtTheOldPlaceOrTheLastOneIsSelected) {
    selectAfterRemoval(list, 1);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_THAT(selectedItemsOf(list), ElementsAre("B"));
    EXPECT_TRUE(list.hasFocus());
    list.RemoveItem(2);
    selectAfterRemoval(list, 2);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(errorOf([&] { selectAfterRemoval(list, -1); }), 381);
    list.Clear();
    selectAfterRemoval(list, 5);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(HandlerToolsTest, MovingKeepsTheIndexOnTheMovedItemAndStopsAtTheEnds) {
    list.ListIndex(1);
    EXPECT_TRUE(moveItemUp(list));
    EXPECT_THAT(itemsOf(list), ElementsAre("B", "A", "C"));
    EXPECT_EQ(list.Text(), "B");
    EXPECT_FALSE(moveItemUp(list));
    EXPECT_TRUE(moveItemDown(list));
    EXPECT_TRUE(moveItemDown(list));
    EXPECT_FALSE(moveItemDown(list));
    EXPECT_THAT(itemsOf(list), ElementsAre("A", "C", "B"));
    EXPECT_EQ(list.ListIndex(), 2);
    list.ListIndex(-1);
    EXPECT_FALSE(moveItemUp(list));
    EXPECT_FALSE(moveItemDown(list));
}

TEST_F(HandlerToolsTest, TheScrollBarTakesAndReturnsItsRoomOnce) {
    const int width = grid.ColWidth(3);
    for (int pass = 0; pass < 2; ++pass) {
        for (int rows = 3; rows <= 9; ++rows) {
            ScrollBarRoom room(grid, 3, 255);
            grid.Rows(rows);
            room.adjust();
        }
        EXPECT_TRUE(GridNeedsScrollBar(grid));
        EXPECT_EQ(grid.ColWidth(3), width - 255);
        for (int rows = 8; rows >= 2; --rows) {
            ScrollBarRoom room(grid, 3, 255);
            grid.Rows(rows);
            room.adjust();
        }
        EXPECT_EQ(grid.ColWidth(3), width);
    }
}

TEST_F(HandlerToolsTest, TheAsteriskLeavesARowThatIsStillThere) {
    RowTracker tracker;
    grid.Rows(4);
    moveAsterisk(grid, tracker, 1);
    moveAsterisk(grid, tracker, 3);
    EXPECT_EQ(grid.TextMatrix(1, 0), "");
    EXPECT_EQ(grid.TextMatrix(3, 0), "*");
    grid.Rows(3);
    moveAsterisk(grid, tracker, 2);
    EXPECT_EQ(tracker.previous, 3);
    EXPECT_EQ(grid.TextMatrix(2, 0), "*");
}

TEST_F(HandlerToolsTest, AnEditorIsLaidOverTheCurrentCell) {
    grid.Rows(4);
    grid.Row(2);
    grid.Col(3);
    layOverCell(dtc.ZEKO.KeyFieldValueText, grid);
    const TextBox& editor = dtc.ZEKO.KeyFieldValueText;
    EXPECT_EQ(editor.Left(), grid.Left() + 200 + 1800 + 550);
    EXPECT_EQ(editor.Top(), grid.Top() + 2 * 323);
    EXPECT_EQ(editor.Width(), 2052);
    EXPECT_TRUE(editor.hasFocus());
}

}  // namespace
}  // namespace headerdtc
