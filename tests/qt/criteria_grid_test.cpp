#include "qt/surface_fixture.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

namespace headerdtc {
namespace {

namespace column = criteria_column;
using ::testing::Contains;
using ::testing::Not;

class CriteriaGridTest : public SurfaceTest {
  protected:
    CriteriaGridTest() {
        openTab(1);
        plain.dtc.SSTab1.clickTab(1);
        plain.events.take();
    }

    // The editor lies over the cell to the pixel.
    void expectOverCell(const Control& editor, int row, int column) {
        settle();
        EXPECT_TRUE(widget(editor).isVisible());
        EXPECT_EQ(widget(editor).geometry(), cellRect(grid, row, column));
    }
    void expectSameEvents() {
        settle();
        EXPECT_EQ(events.take(), plain.events.take());
    }

    Grid& grid = dtc.EAI.CriteriaGrid;
    Grid& twin = plain.dtc.EAI.CriteriaGrid;
};

TEST_F(CriteriaGridTest, ACriterionIsBuiltInPlaceWithTheEventsOfTheModels) {
    clickCell(grid, 2, column::Key);
    twin.clickCell(2, column::Key);
    expectSameEvents();
    expectOverCell(dtc.EAI.KeyFieldsCombo, 2, column::Key);
    EXPECT_EQ(qtFocused(), "EAIKeyFieldsCombo");

    press(Qt::Key_Down);
    plain.dtc.EAI.KeyFieldsCombo.press(Key::of(Key::Kind::Down));
    clickCell(grid, 2, column::Operator);
    twin.clickCell(2, column::Operator);
    expectSameEvents();
    EXPECT_EQ(grid.TextMatrix(2, column::Key), "ORDNO");
    expectOverCell(dtc.EAI.OperatorsCombo, 2, column::Operator);

    type(surface, ">");
    plain.dtc.EAI.OperatorsCombo.press(Key::of(U'>'));
    clickCell(grid, 2, column::Value);
    twin.clickCell(2, column::Value);
    expectSameEvents();
    EXPECT_EQ(grid.TextMatrix(2, column::Operator), ">=");

    type(surface, "57");
    for (const char32_t c : U"57") {
        if (c)
            (c == U'5' ? static_cast<Control&>(twin) : plain.dtc.EAI.KeyFieldValueText)
                .press(Key::of(c));
    }
    expectSameEvents();
    expectOverCell(dtc.EAI.KeyFieldValueText, 2, column::Value);
    press(Qt::Key_Return);
    plain.dtc.EAI.KeyFieldValueText.press(Key::of(Key::Kind::Enter));
    expectSameEvents();
    EXPECT_EQ(grid.TextMatrix(2, column::Value), "57");
    EXPECT_EQ(qtFocused(), "EAICriteriaGrid");
    EXPECT_FALSE(widget(dtc.EAI.KeyFieldValueText).isVisible());
}

TEST_F(CriteriaGridTest, ADoubleClickIsOneClickAndOneDblClick) {
    grid.TextMatrix(1, column::Value, "10");
    twin.TextMatrix(1, column::Value, "10");
    doubleClick(*widget<QTableView>(grid).viewport(), cellRect(grid, 1, column::Value).center());
    twin.doubleClickCell(1, column::Value);
    expectSameEvents();
    expectOverCell(dtc.EAI.KeyFieldValueText, 1, column::Value);
    EXPECT_EQ(widget<QLineEdit>(dtc.EAI.KeyFieldValueText).selectedText(), "10");
}

// The open editor must not lose the focus to Qt before the model has entered the cell.
TEST_F(CriteriaGridTest, AClickOnAnotherRowWritesTheEditedOne) {
    clickCell(grid, 1, column::Value);
    twin.clickCell(1, column::Value);
    type(surface, "7");
    twin.press(Key::of(U'7'));
    clickCell(grid, 3, column::Value);
    twin.clickCell(3, column::Value);
    expectSameEvents();
    EXPECT_EQ(grid.TextMatrix(1, column::Value), "7");
    EXPECT_EQ(grid.TextMatrix(3, column::Value), "");
    EXPECT_EQ(grid.TextMatrix(3, column::Marker), "*");
    EXPECT_EQ(qtFocused(), "EAICriteriaGrid");
}

TEST_F(CriteriaGridTest, ArrowsEnterCellsAndTheValueBoxKnowsDownAndDel) {
    clickCell(grid, 1, column::Operator);
    clickCell(grid, 1, column::Value);
    press(Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.TextMatrix(2, column::Marker), "*");
    type(surface, "12");
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    EXPECT_EQ(dtc.EAI.KeyFieldValueText.Text(), "");
    EXPECT_EQ(widget<QLineEdit>(dtc.EAI.KeyFieldValueText).text(), "");
    type(surface, "3");
    press(Qt::Key_Down);
    EXPECT_EQ(grid.TextMatrix(2, column::Value), "3");
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(qtFocused(), "EAICriteriaGrid");
}

TEST_F(CriteriaGridTest, EnterOnAButtonCellClicksIt) {
    clickCell(grid, 1, column::Value);
    press(Qt::Key_Right);
    events.take();
    press(Qt::Key_Return);
    EXPECT_THAT(events.take(), Contains("EAICriteriaGrid.Click"));
}

TEST_F(CriteriaGridTest, EditorsFollowResizingColumnsAndRows) {
    clickCell(grid, 2, column::Key);
    surface.resize(1000, 700);
    expectOverCell(dtc.EAI.KeyFieldsCombo, 2, column::Key);
    auto& table = widget<QTableView>(grid);
    const int used = table.horizontalHeader()->length();
    EXPECT_EQ(used, table.viewport()->width()) << "the value column takes the slack";
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
    for (int i = 0; i < 30; ++i)
        click(widget(dtc.EAI.AddCriteriumCommand));
    EXPECT_EQ(grid.Rows(), 34);
    EXPECT_TRUE(
        widget<QTableView>(grid).viewport()->rect().contains(cellRect(grid, 33, column::Key)))
        << "the new row shows";
    EXPECT_THAT(events.take(), Not(Contains("EAICriteriaGrid.Scroll")));

    clickCell(grid, 33, column::Value);
    type(surface, "9");
    widget<QTableView>(grid).verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    settle();
    EXPECT_THAT(events.take(), Contains("EAICriteriaGrid.Scroll"));
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_FALSE(dtc.EAI.KeyFieldValueText.Visible());
    EXPECT_EQ(grid.TextMatrix(33, column::Value), "9");

    // Scrolled further up than there is, then down by the program.
    widget<QTableView>(grid).verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    events.take();
    grid.Row(30);
    settle();
    EXPECT_THAT(events.take(), Not(Contains("EAICriteriaGrid.Scroll")));
    EXPECT_GT(grid.TopRow(), 1);
}

TEST_F(CriteriaGridTest, TheHeaderFollowsTheFixedRow) {
    const auto& model = *widget<QTableView>(grid).model();
    EXPECT_EQ(model.headerData(column::Value, Qt::Horizontal), "Value");
    grid.Clear();
    writeCriteriaHeaders(grid);
    grid.TextMatrix(0, column::Operator, "Op");
    EXPECT_EQ(model.headerData(column::Operator, Qt::Horizontal), "Op");
    EXPECT_EQ(model.rowCount(), 3);
    grid.Rows(1);
    EXPECT_EQ(model.rowCount(), 0);
}

}  // namespace
}  // namespace headerdtc
