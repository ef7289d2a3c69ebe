#include "controls_fixture.h"

namespace headerdtc::grid_test {

class GridTest : public ControlsTest {
  protected:
    GridTest() {
        grid.Rows(4);
        for (int i = 0; i < 12; ++i)
            grid.TextArray(i, std::to_string(i));
        events.listenTo(surface);
    }
    Grid grid{surface, "Grid", 3};
    TextBox editor{surface, "Editor"};
};

// ---- what a program does ------------------------------------------------------------------------

TEST_F(GridTest, RowsComeAndGoWhileTheCurrentOneKeepsItsNumberAsLongAsItCan) {
    grid.Row(2);
    events.take();
    grid.Rows(5);
    EXPECT_EQ(grid.TextMatrix(4, 2), "");
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.TextMatrix(1, 0), "6");
    grid.Rows(2);
    EXPECT_EQ(grid.Row(), 1);
    grid.Rows(1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(events.take(), "");
}

TEST_F(GridTest, AProgramMovingTheCellEntersItAndFocusesAgainUnderTheAuthorsHands) {
    grid.Row(2);
    grid.Row(2);
    grid.Col(0);
    EXPECT_EQ(events.take(),
              "Grid.EnterCell, Grid.RowColChange, Grid.EnterCell, Grid.RowColChange");
    grid.SetFocus();
    EXPECT_EQ(eventsOf([&] { grid.Row(1); }), "Grid.EnterCell, Grid.RowColChange, Grid.GotFocus");
}

TEST_F(GridTest, TheCellsPlaceFollowsWidthsHeightAndScrolling) {
    grid.RowHeightMin(300);
    for (int column = 0; column < 3; ++column)
        grid.ColWidth(column, 100 * (column + 1));
    grid.Row(3);
    grid.Col(2);
    EXPECT_EQ(grid.CellLeft(), 300);
    EXPECT_EQ(grid.CellTop(), 900);
    events.take();
    grid.scroll(3);
    grid.scroll(99);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_EQ(grid.CellTop(), 300);
    EXPECT_EQ(events.take(), "Grid.Scroll");
    grid.Rows(2);
    EXPECT_EQ(grid.TopRow(), 1);
}

// ---- what a person does -------------------------------------------------------------------------

TEST_F(GridTest, EnteringACellClosesTheOpenEditorBeforeTheGridHasTheFocus) {
    EXPECT_EQ(eventsOf([&] { grid.clickCell(1, 1); }), "Grid.EnterCell, Grid.GotFocus, Grid.Click");
    editor.SetFocus();
    EXPECT_EQ(eventsOf([&] { grid.clickCell(3, 2); }),
              "Grid.EnterCell, Editor.LostFocus, Grid.RowColChange, Grid.GotFocus, Grid.Click");
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(eventsOf([&] { grid.doubleClickCell(2, 1); }),
              "Grid.EnterCell, Grid.RowColChange, Grid.GotFocus, Grid.Click, Grid.DblClick")
        << "GotFocus comes though the grid had the focus";
    Form dialog(desktop, "Dialog", Form::Kind::Dialog);
    const auto open = grid.Click.subscribe([&] { dialog.ShowModal(); });
    EXPECT_EQ(eventsOf([&] { grid.doubleClickCell(2, 1); }),
              "Grid.EnterCell, Grid.GotFocus, Grid.Click")
        << "a dialog that the first press opens takes the second";
}

TEST_F(GridTest, ACellThatIsNotThereIsRefused) {
    editor.SetFocus();
    for (const auto& [row, column] : {std::pair{0, 1}, {-1, 1}, {4, 1}, {1, 3}, {1, -1}})
        EXPECT_TRUE(isRefused([&, r = row, c = column] { grid.clickCell(r, c); }))
            << row << ", " << column;
    grid.Enabled(false);
    EXPECT_TRUE(isRefused([&] { grid.clickCell(1, 1); }));
    EXPECT_TRUE(isRefused([&] { grid.scroll(2); }));
    EXPECT_TRUE(editor.hasFocus());
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(GridTest, ArrowsEnterTheCellBesideUpToTheEdgesAndOtherKeysReachTheHandlers) {
    press(grid, Down);
    EXPECT_EQ(events.take(), "Grid.GotFocus, Grid.EnterCell, Grid.RowColChange, Grid.GotFocus");
    press(grid, Right);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(eventsOf([&] { press(grid, Right); }), "");
    press(grid, Up, Up);
    EXPECT_EQ(grid.Row(), 1) << "not into the header";
    EXPECT_EQ(eventsOf([&] { press(grid, U'5', Enter, Delete); }),
              "Grid.KeyPress 53, Grid.KeyPress 13");
}

}  // namespace headerdtc::grid_test
