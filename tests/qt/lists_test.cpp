#include "qt/surface_fixture.h"

namespace headerdtc::lists_test {

class ListsTest : public SurfaceTest {
  protected:
    ListsTest() { openTab(1); }

    std::vector<int> shownAsSelected(const ListBox& list) {
        std::vector<int> items;
        for (const QModelIndex& index :
             widget<qt::SelectionList>(list).selectionModel()->selectedIndexes())
            items.push_back(index.row());
        std::sort(items.begin(), items.end());
        return items;
    }

    ListBox& fields = dtc.EAI.FieldsList;
};

TEST_F(ListsTest, EachActionOnTheSelectionIsOneSelectOfTheModel) {
    ListBox& twin = plain.dtc.EAI.FieldsList;
    plain.dtc.SSTab1.clickTab(1);
    plain.events.take();
    const std::pair<std::function<void()>, std::vector<int>> actions[] = {
        {[&] { clickItem(fields, 1); }, {1}},
        {[&] { clickItem(fields, 3, Qt::ShiftModifier); }, {1, 2, 3}},
        {[&] { clickItem(fields, 2, Qt::ControlModifier); }, {1, 3}},
        {[&] { press(Qt::Key_Down); }, {3}},
        {[&] { press(Qt::Key_Up, Qt::ShiftModifier); }, {2, 3}},
        {[&] { press(Qt::Key_A, Qt::ControlModifier); }, {0, 1, 2, 3, 4}},
        {[&] { press(Qt::Key_Z); }, {}},  // a letter that no item begins with leads nowhere
    };
    for (const auto& [act, selected] : actions) {
        act();
        if (!selected.empty()) twin.select(selected, fields.ListIndex());
        EXPECT_EQ(events.take(), plain.events.take());
        EXPECT_EQ(selectedItemsOf(fields), selectedItemsOf(twin));
    }
    EXPECT_EQ(fields.ListIndex(), 2);
    EXPECT_EQ(qtFocused(), "EAIFieldsList");
}

TEST_F(ListsTest, PressesBesideTheItemsLeaveTheSelection) {
    clickItem(fields, 1);
    QWidget& area = *widget<qt::SelectionList>(fields).viewport();
    click(area, {20, area.height() - 5});
    EXPECT_THAT(selectedItemsOf(fields), ElementsAre("B"));
    events.take();
    doubleClick(area, {20, area.height() - 5});
    EXPECT_THAT(events.take(), HasSubstr("EAIFieldsList.DblClick"));
}

TEST_F(ListsTest, WhatAProgramSelectsShowsAndRaisesNothingMore) {
    fields.Selected(0, true);
    fields.Selected(4, true);
    settle();
    EXPECT_THAT(shownAsSelected(fields), ElementsAre(0, 4));
    fields.RemoveItem(0);
    fields.AddItem("Z", 1);
    settle();
    EXPECT_THAT(shownAsSelected(fields), ElementsAre(4));
    EXPECT_EQ(events.take(), "");
    // The focus that comes by Tab selects nothing either.
    widget(dtc.EAI.FieldsList).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(events.take(), "SSTab1.LostFocus, EAIFieldsList.GotFocus");
    EXPECT_EQ(fields.ListIndex(), -1);
}

// As a screen reader does, which Qt tells of everything at once.
TEST_F(ListsTest, WhoeverReadsWhileItemsComeAndGoReadsWhatIsThere) {
    const auto& view = widget<qt::SelectionList>(fields);
    const QAbstractItemModel& items = *view.model();
    int readings = 0;
    const auto read = [&] {
        ++readings;
        for (int row = 0; row < items.rowCount(); ++row)
            EXPECT_FALSE(items.index(row, 0).data().toString().isEmpty()) << row;
    };
    QObject::connect(&items, &QAbstractItemModel::rowsAboutToBeInserted, read);
    QObject::connect(&items, &QAbstractItemModel::rowsAboutToBeRemoved, read);
    QObject::connect(&items, &QAbstractItemModel::modelAboutToBeReset, read);
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, read);
    clickItem(fields, 4);
    for (const auto& change : std::vector<std::function<void()>>{
             [this] { fields.RemoveItem(4); }, [this] { fields.AddItem("X"); },
             [this] { fields.Selected(1, true); }, [this] { fields.Clear(); }}) {
        change();
        settle();
    }
    EXPECT_GE(readings, 5);
}

TEST_F(ListsTest, AListOfMarksTogglesThemOneByOne) {
    openTab(I18NTabPage);
    ListBox& marks = dtc.EAI.I18NFieldnamesList;
    fill(marks, {"A", "B", "C"});
    settle();
    clickItem(marks, 0);
    // The hand is not quite steady.
    QWidget& area = *widget<qt::SelectionList>(marks).viewport();
    const QPoint place = area.mapTo(&surface, itemAt(marks, 2));
    QTest::mousePress(windowOf(area), Qt::LeftButton, {}, place);
    QTest::mouseMove(windowOf(area), place + QPoint(2, 1));
    QTest::mouseRelease(windowOf(area), Qt::LeftButton, {}, place + QPoint(2, 1));
    settle();
    EXPECT_THAT(selectedItemsOf(marks), ElementsAre("A", "C"));
    events.take();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Home, Qt::Key_Down})
        press(key);
    EXPECT_EQ(events.take(), "") << "keys only move";
    EXPECT_EQ(marks.ListIndex(), 1);
    press(Qt::Key_Space);
    clickItem(marks, 0);
    EXPECT_THAT(selectedItemsOf(marks), ElementsAre("B", "C"));
    EXPECT_THAT(shownAsSelected(marks), ElementsAre(1, 2));
}

TEST_F(ListsTest, ASingleSelectionListKeepsItsItemSelected) {
    openTab(0);
    fill(dtc.IncludeASPList, {"a.asp", "b.asp"});
    settle();
    clickItem(dtc.IncludeASPList, 1);
    clickItem(dtc.IncludeASPList, 1, Qt::ControlModifier);
    EXPECT_THAT(selectedItemsOf(dtc.IncludeASPList), ElementsAre("b.asp"));
    EXPECT_THAT(shownAsSelected(dtc.IncludeASPList), ElementsAre(1));
}

TEST_F(ListsTest, ListsAsLongAsTheyCanBeOpenScrollAndEmpty) {
    while (fields.ListCount() < MaxListCount)
        fields.AddItem("FIELD" + std::to_string(fields.ListCount()));
    settle();
    QScrollBar& scrollBar = *widget<qt::SelectionList>(fields).verticalScrollBar();
    scrollBar.setValue(scrollBar.maximum());
    settle();
    auto& view = widget<qt::SelectionList>(fields);
    EXPECT_GT(view.indexAt(view.viewport()->rect().center()).row(), 32700);

    clickItem(fields, MaxListCount - 1);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(fields.SelCount(), MaxListCount);
    click(widget(dtc.EAI.AddField));
    EXPECT_EQ(fields.ListCount(), 0);
    EXPECT_EQ(dtc.EAI.SelectedFieldsList.ListCount(), MaxListCount);
}

}  // namespace headerdtc::lists_test
