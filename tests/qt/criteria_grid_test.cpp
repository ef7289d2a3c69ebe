// What the random actions do not see of a criteria grid: where its editors lie, what scrolls.

#include "qt/surface_fixture.h"

namespace headerdtc::criteria_grid_test {

namespace column = criteria_column;

class CriteriaGridTest : public SurfaceTest {
  protected:
    CriteriaGridTest() { openTab(1); }

    // The editor lies over the cell to the pixel.
    void expectOverCell(const Control& editor, int row, int column) {
        settle();
        EXPECT_TRUE(widget(editor).isVisible());
        const QWidget& cells = *widget<QTableView>(grid).viewport();
        EXPECT_EQ(
            QRect(cells.mapFromGlobal(widget(editor).mapToGlobal(QPoint())), widget(editor).size()),
            cellRect(grid, row, column));
    }

    Grid& grid = dtc.EAI.CriteriaGrid;
};

TEST_F(CriteriaGridTest, EditorsFollowResizingColumnsAndRows) {
    EXPECT_TRUE(clickCell(grid, 2, column::Key)) << "the list drops at once";
    surface.resize(1000, 700);
    expectOverCell(dtc.EAI.KeyFieldsCombo, 2, column::Key);
    auto& table = widget<QTableView>(grid);
    EXPECT_EQ(table.horizontalHeader()->length(), table.viewport()->width())
        << "the value column takes the slack";
    grid.ColWidth(column::Key, 3000);
    expectOverCell(dtc.EAI.KeyFieldsCombo, 2, column::Key);
    QFont large = surface.font();
    large.setPointSize(large.pointSize() * 2);
    surface.setFont(large);
    expectOverCell(dtc.EAI.KeyFieldsCombo, 2, column::Key);
    EXPECT_GE(table.rowHeight(1), widget(dtc.EAI.KeyFieldsCombo).minimumSizeHint().height());
    grid.RemoveItem(1);
    expectOverCell(dtc.EAI.KeyFieldsCombo, 1, column::Key);
}

TEST_F(CriteriaGridTest, OnlyAPersonScrolls) {
    QScrollBar& scrollBar = *widget<QTableView>(grid).verticalScrollBar();
    for (int i = 0; i < 30; ++i)
        click(widget(dtc.EAI.AddCriteriumCommand));
    ASSERT_EQ(grid.Rows(), 34);
    EXPECT_TRUE(
        widget<QTableView>(grid).viewport()->rect().contains(cellRect(grid, 33, column::Key)))
        << "the new row shows";
    EXPECT_THAT(events.take(), Not(HasSubstr("EAICriteriaGrid.Scroll")));

    clickCell(grid, 33, column::Value);
    type(surface, "9");
    scrollBar.triggerAction(QScrollBar::SliderToMinimum);
    settle();
    EXPECT_THAT(events.take(), HasSubstr("EAICriteriaGrid.Scroll"));
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_FALSE(dtc.EAI.KeyFieldValueText.Visible());
    EXPECT_EQ(grid.TextMatrix(33, column::Value), "9");

    grid.Row(30);  // by the program
    settle();
    EXPECT_THAT(events.take(), Not(HasSubstr("EAICriteriaGrid.Scroll")));
    EXPECT_GT(grid.TopRow(), 1);
}

TEST_F(CriteriaGridTest, TheHeaderFollowsTheFixedRow) {
    const auto& model = *widget<QTableView>(grid).model();
    grid.Clear();
    writeCriteriaHeaders(grid);
    EXPECT_EQ(model.headerData(column::Value, Qt::Horizontal), "Value");
    grid.TextMatrix(0, column::Operator, "Op");
    EXPECT_EQ(model.headerData(column::Operator, Qt::Horizontal), "Op");
    EXPECT_EQ(model.rowCount(), 3);
    grid.Rows(1);
    EXPECT_EQ(model.rowCount(), 0);
}

}  // namespace headerdtc::criteria_grid_test
