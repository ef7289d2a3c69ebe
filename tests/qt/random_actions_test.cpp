#include "host/automation/control_state.h"
#include "qt/surface_fixture.h"

#include <nlohmann/json.hpp>

namespace headerdtc::random_actions_test {

// One after another, what a person does at the window and the same done to models that no window
// shows. Both must raise the same events and come to the same state.
class RandomActionsTest : public SurfaceTest, public WithParamInterface<unsigned> {
  protected:
    // An editor that lies over a cell is in the mouse's way; rows may be scrolled out of sight.
    bool isOutOfReach(int row, int column) {
        const QWidget& cells = *widget<QTableView>(grid).viewport();
        const QPoint place = cellRect(grid, row, column).center();
        return !cells.rect().contains(place) ||
               surface.childAt(cells.mapTo(&surface, place)) != &cells;
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
    void clickItem(ListBox& list, int item) {
        if (item >= list.ListCount() || !list.isShowing()) return;
        done << list.name() << " " << item;
        SurfaceTest::clickItem(list, item);
        plainly([&] { twinOf(list).select({item}, item); });
    }
    void clickButton(Button& button) {
        if (!button.isShowing()) return;
        done << button.name();
        click(widget(button));
        plainly([&] { twinOf(button).press(); });
    }
    template <class Kind>
    Kind& twinOf(const Kind& control) {
        return dynamic_cast<Kind&>(*twin.surface.find(control.name()));
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
        FamilyControls& family = dtc.EAI;
        const bool isThere = dtc.SSTab1.Tab() == 1;
        const int row = roll(1, std::min(4, grid.Rows() - 1));
        const int action = roll(0, 13);
        if (action < 3 && !isThere) return clickTab(1);
        if (action < 2) return clickCell(row, roll(0, 3));
        if (action == 2) return doubleClickValue(row);
        if (action == 3) return clickItem(family.FieldsList, roll(0, 4));
        if (action == 4) return clickItem(family.SelectedFieldsList, roll(0, 4));
        if (action == 5) return clickButton(family.AddField);
        if (action == 6) return clickButton(family.MoveUpCommand);
        if (action == 7 && grid.Rows() < 6 && roll(0, 3) == 0)
            return clickButton(family.AddCriteriumCommand);
        if (action == 7) return clickTab(roll(0, 2));
        const auto& [qtKey, key] = keys[static_cast<std::size_t>(roll(0, 10))];
        pressKey(qtKey, key);
    }

    static std::string stateOf(HeaderDTC& control) {
        const Control* active = control.surface.ActiveControl();
        std::string state = active ? active->name() : "no focus";
        for (Control* each : control.surface.controls()) {
            auto seen = controlState(*each);
            // A window selects what is in a box that Tab leads to.
            if (each != &control.EAI.KeyFieldValueText) seen.erase("selStart");
            if (each != &control.EAI.KeyFieldValueText) seen.erase("selLength");
            state += "\n" + each->name() + " " + seen.dump();
        }
        return state;
    }

    int roll(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }

    std::mt19937 random{GetParam()};
    std::ostringstream done;
    Grid& grid = dtc.EAI.CriteriaGrid;
    HeaderDTC& twin = plain.dtc;
    using Kind = Key::Kind;
    const std::vector<std::pair<Qt::Key, Key>> keys = {
        {Qt::Key_Up, {Kind::Up}},         {Qt::Key_Down, {Kind::Down}},
        {Qt::Key_Left, {Kind::Left}},     {Qt::Key_Right, {Kind::Right}},
        {Qt::Key_Return, {Kind::Enter}},  {Qt::Key_Escape, {Kind::Escape}},
        {Qt::Key_Delete, {Kind::Delete}}, {Qt::Key_Backspace, {Kind::Backspace}},
        {Qt::Key_Tab, {Kind::Tab}},       {Qt::Key_Backtab, {Kind::Tab, 0, true}},
        {Qt::Key_5, Key::of(U'5')}};
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

INSTANTIATE_TEST_SUITE_P(Seeds, RandomActionsTest, Range(1U, 21U));

}  // namespace headerdtc::random_actions_test
