#include "qt/surface_fixture.h"

#include <QAbstractButton>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <random>
#include <sstream>

namespace headerdtc {
namespace {

// One after another, what a person does at the window and the same done to models that no window
// shows. Both must raise the same events and come to the same state.
class RandomActionsTest : public SurfaceTest, public ::testing::WithParamInterface<unsigned> {
  protected:
    // An editor that lies over a cell is in the mouse's way; rows may be scrolled out of sight.
    bool isOutOfReach(int row, int column) {
        const QWidget& cells = *widget<QTableView>(grid).viewport();
        const QPoint place = cellRect(grid, row, column).center();
        return !cells.rect().contains(place) || cells.childAt(place);
    }
    void clickCell(int row, int column) {
        if (isOutOfReach(row, column)) return;
        done << "cell " << row << "," << column;
        SurfaceTest::clickCell(grid, row, column);
        plainly([&] { twin.EAI.CriteriaGrid.clickCell(row, column); });
    }
    void doubleClickValue(int row) {
        if (isOutOfReach(row, criteria_column::Value)) return;
        done << "dblcell " << row;
        doubleClick(*widget<QTableView>(grid).viewport(),
                    cellRect(grid, row, criteria_column::Value).center());
        plainly([&] { twin.EAI.CriteriaGrid.doubleClickCell(row, criteria_column::Value); });
    }
    void pressKey(Qt::Key qtKey, const Key& key) {
        Control* active = twin.surface.ActiveControl();
        // What the window does by itself: Tab goes on from a control that lost the focus, and a
        // list searches for what is typed.
        if (!active && key.kind == Key::Kind::Tab) return;
        if (dynamic_cast<ListBox*>(active) && key.kind == Key::Kind::Character) return;
        done << "key " << qtKey;
        press(qtKey, key.shift ? Qt::ShiftModifier : Qt::NoModifier);
        plainly([&] {
            if (!active) return twin.surface.press(key);
            Grid& criteria = twin.EAI.CriteriaGrid;
            const bool isEnter = key.kind == Key::Kind::Enter;
            const bool onButton = active == &criteria && criteria.Col() == criteria_column::Script;
            if (onButton && isEnter) return criteria.clickCell(criteria.Row(), criteria.Col());
            active->press(key);
            const bool inList =
                active == &twin.EAI.KeyFieldsCombo || active == &twin.EAI.OperatorsCombo;
            if (!inList || (!isEnter && key.kind != Key::Kind::Escape)) return;
            criteria.focus();
            if (isEnter) criteria.press(Key::of(Key::Kind::Right));
        });
    }
    void clickItem(ListBox& list, ListBox& twinList, int item) {
        if (item >= list.ListCount() || !list.isShowing()) return;
        done << list.name() << " " << item;
        SurfaceTest::clickItem(list, item);
        plainly([&] { twinList.select({item}, item); });
    }
    void clickButton(Button& button, Button& twinButton) {
        if (!button.isShowing()) return;
        done << button.name();
        click(widget(button));
        plainly([&] { twinButton.press(); });
    }
    void clickTab(int page) {
        done << "tab " << page;
        auto& bar = *widget<QTabWidget>(dtc.SSTab1).tabBar();
        click(bar, bar.tabRect(page).center());
        plainly([&] { twin.SSTab1.clickTab(page); });
    }
    template <class Action>
    void plainly(Action action) {
        try {
            action();
        } catch (const ActionRefused&) {
        } catch (const RuntimeError&) {
        }
    }

    void actSomehow() {
        FamilyControls& here = dtc.EAI;
        FamilyControls& there = twin.EAI;
        const int row = roll(1, std::min(4, grid.Rows() - 1));
        switch (roll(0, 13)) {
            case 0:
            case 1:
                return dtc.SSTab1.Tab() == 1 ? clickCell(row, roll(0, 3)) : clickTab(1);
            case 2:
                return dtc.SSTab1.Tab() == 1 ? doubleClickValue(row) : clickTab(1);
            case 3:
                return clickItem(here.FieldsList, there.FieldsList, roll(0, 4));
            case 4:
                return clickItem(here.SelectedFieldsList, there.SelectedFieldsList, roll(0, 4));
            case 5:
                return clickButton(here.AddField, there.AddField);
            case 6:
                return clickButton(here.MoveUpCommand, there.MoveUpCommand);
            case 7:
                if (grid.Rows() < 6 && roll(0, 3) == 0)
                    return clickButton(here.AddCriteriumCommand, there.AddCriteriumCommand);
                return clickTab(roll(0, 2));
            default: {
                const auto& [qtKey, key] = keys[static_cast<std::size_t>(roll(0, 10))];
                return pressKey(qtKey, key);
            }
        }
    }

    static std::string stateOf(HeaderDTC& control) {
        std::ostringstream state;
        const Control* active = control.surface.ActiveControl();
        state << "focus " << (active ? active->name() : "none") << " tab " << control.SSTab1.Tab();
        FamilyControls& family = control.EAI;
        for (ListBox* list : {&family.FieldsList, &family.SelectedFieldsList}) {
            state << "\n" << list->name() << " " << list->ListIndex() << ":";
            for (int i = 0; i < list->ListCount(); ++i)
                state << " " << list->List(i) << (list->Selected(i) ? "*" : "");
        }
        const Grid& criteria = family.CriteriaGrid;
        state << "\ncell " << criteria.Row() << "," << criteria.Col() << ":";
        for (int cell = 0; cell < criteria.Rows() * criteria.Cols(); ++cell)
            state << "|" << criteria.TextArray(cell);
        const TextBox& box = family.KeyFieldValueText;
        state << "\nbox '" << box.Text() << "' " << box.SelStart() << "+" << box.SelLength();
        for (const Control* control : {static_cast<Control*>(&family.KeyFieldsCombo),
                                       static_cast<Control*>(&family.OperatorsCombo),
                                       static_cast<Control*>(&family.KeyFieldValueText),
                                       static_cast<Control*>(&family.AddField)})
            state << " " << control->Visible() << control->Enabled();
        return state.str();
    }

    int roll(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }

    std::mt19937 random{GetParam()};
    std::ostringstream done;
    Grid& grid = dtc.EAI.CriteriaGrid;
    HeaderDTC& twin = plain.dtc;
    const std::vector<std::pair<Qt::Key, Key>> keys = {
        {Qt::Key_Up, Key::of(Key::Kind::Up)},
        {Qt::Key_Down, Key::of(Key::Kind::Down)},
        {Qt::Key_Left, Key::of(Key::Kind::Left)},
        {Qt::Key_Right, Key::of(Key::Kind::Right)},
        {Qt::Key_Return, Key::of(Key::Kind::Enter)},
        {Qt::Key_Escape, Key::of(Key::Kind::Escape)},
        {Qt::Key_Delete, Key::of(Key::Kind::Delete)},
        {Qt::Key_Backspace, Key::of(Key::Kind::Backspace)},
        {Qt::Key_Tab, Key::of(Key::Kind::Tab)},
        {Qt::Key_Backtab, {Key::Kind::Tab, 0, true}},
        {Qt::Key_5, Key::of(U'5')},
    };
};

TEST_P(RandomActionsTest, TheWindowRaisesTheEventsOfTheModels) {
    openTab(1);
    twin.SSTab1.clickTab(1);
    plain.events.take();
    for (int step = 0; step < 150; ++step) {
        done.str("");
        actSomehow();
        ASSERT_EQ(events.take(), plain.events.take()) << "step " << step << ": " << done.str();
        ASSERT_EQ(stateOf(dtc), stateOf(twin)) << "step " << step << ": " << done.str();
        // A combo box over a cell shows all that Qt's focus has to say about it.
        if (!focused().empty()) {
            ASSERT_EQ(qtFocused(), focused()) << done.str();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomActionsTest, ::testing::Range(1U, 21U));

}  // namespace
}  // namespace headerdtc
