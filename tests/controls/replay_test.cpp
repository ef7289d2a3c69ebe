#include "controls_fixture.h"

// Views keep a copy in step by the changes that they are told. Here the copy is plain data, changed
// only by what the events say, and compared with the model after every one of many random
// operations, failing ones included.
namespace headerdtc::replay_test {

// Carries a change over to the copy; `read` gives the entry that the model has at an index.
template <class Entry, class Read>
void replay(std::vector<Entry>& copy, ItemsChange change, Read read) {
    const auto first = copy.begin() + change.first;
    using Kind = ItemsChange::Kind;
    const auto count = static_cast<std::size_t>(change.count);
    if (change.kind == Kind::Removed) return void(copy.erase(first, first + change.count));
    if (change.kind == Kind::Inserted) copy.insert(first, count, Entry{});
    if (change.kind == Kind::Reset) copy.assign(count, Entry{});
    for (int i = change.first; i < change.first + change.count; ++i)
        copy[static_cast<std::size_t>(i)] = read(i);
}

class Dice {
  public:
    explicit Dice(unsigned seed) : random_(seed) {}
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    // An index, now and then one that is not there.
    int index(int count) { return below(count + 3) - 1; }

  private:
    std::minstd_rand random_;
};

constexpr int Operations = 20'000;

// Items, the current one and those that are marked. No text is given twice, so that the current
// item is known wherever it goes.
template <class List>
void replayItems(List& list, unsigned seed, bool areMarked = false) {
    using Item = std::pair<std::string, bool>;
    const auto itemAt = [&](int i) {
        if constexpr (std::is_same_v<List, ListBox>)
            return Item(list.List(i), areMarked && list.Selected(i));
        return Item(list.List(i), false);
    };
    Dice dice(seed);
    std::vector<Item> copy;
    std::string current;
    const auto view = list.itemsChanged.subscribe([&](const ItemsChange& change) {
        replay(copy, change, itemAt);
        // Told in the new state: a view asks for the rest at once.
        ASSERT_LT(list.ListIndex(), list.ListCount());
        ASSERT_EQ(copy.size(), static_cast<std::size_t>(list.ListCount()));
    });
    for (int i = 0; i < Operations && !Test::HasFatalFailure(); ++i) {
        const std::string text = std::to_string(i);
        const int index = dice.index(list.ListCount());
        numberOf([&] {
            const int operation = dice.below(areMarked ? 8 : 7);
            if (operation == 0) return list.AddItem(text);
            if (operation < 3) return list.AddItem(text, index);
            if (operation < 5) return list.RemoveItem(index);
            if (dice.below(80) == 0) return list.Clear();
            if (operation == 5) {
                list.List(index, text);
                if (index == list.ListIndex()) current = text;
            } else if (operation == 6) {
                list.ListIndex(index);
                current = index < 0 ? "" : copy.at(static_cast<std::size_t>(index)).first;
            } else if constexpr (std::is_same_v<List, ListBox>) {
                const bool isMarked = dice.below(2) == 0;
                list.Selected(index, isMarked);
                copy.at(static_cast<std::size_t>(index)).second = isMarked;
            }
        });
        std::vector<Item> items;
        for (int at = 0; at < list.ListCount(); ++at)
            items.push_back(itemAt(at));
        ASSERT_EQ(copy, items) << "after operation " << i;
        const auto place = std::find_if(copy.begin(), copy.end(),
                                        [&](const Item& item) { return item.first == current; });
        const bool there = place != copy.end();
        ASSERT_EQ(list.ListIndex(), there ? place - copy.begin() : -1) << "after operation " << i;
        ASSERT_EQ(list.Text(), there ? current : "");
        if constexpr (std::is_same_v<List, ListBox>) {
            ASSERT_EQ(list.SelCount(), std::ssize(selectedItemsOf(list)));
        }
    }
}

class ReplayTest : public ControlsTest {};

TEST_F(ReplayTest, ItemsTheirMarksAndTheCurrentOneAreKeptInStep) {
    using Selection = ListBox::Selection;
    for (const auto selection : {Selection::Single, Selection::Multiple}) {
        ListBox list(surface, "List", selection);
        replayItems(list, 7, selection == Selection::Multiple);
    }
    ComboBox combo(surface, "Combo", ComboBox::Style::DropDownList);
    replayItems(combo, 11);
}

TEST_F(ReplayTest, AGridIsKeptInStepByItsChanges) {
    Grid grid(surface, "Grid", 3);
    Dice dice(17);
    using Row = std::vector<std::string>;
    const auto rowOf = [&](int row) {
        return Row{grid.TextMatrix(row, 0), grid.TextMatrix(row, 1), grid.TextMatrix(row, 2)};
    };
    std::vector<Row> copy{rowOf(0), rowOf(1)};
    int currentRow = grid.Row();
    const auto view = grid.gridChanged.subscribe([&](const GridChange& change) {
        using Items = ItemsChange::Kind;
        const auto replayAs = [&](Items kind) {
            replay(copy, ItemsChange{kind, change.firstRow, change.rowCount}, rowOf);
        };
        if (change.kind == GridChange::Kind::RowsInserted) replayAs(Items::Inserted);
        if (change.kind == GridChange::Kind::RowsRemoved) replayAs(Items::Removed);
        if (change.kind == GridChange::Kind::CellsChanged) replayAs(Items::Changed);
        if (change.kind == GridChange::Kind::CurrentCell) currentRow = change.firstRow;
    });
    for (int i = 0; i < Operations; ++i) {
        const int row = dice.index(grid.Rows());
        numberOf([&] {
            const int operation = dice.below(7);
            if (operation == 0) return grid.Rows(grid.Rows() + 1 + dice.below(3));
            if (operation == 1) return grid.Rows(grid.Rows() - dice.below(3));
            if (operation == 2) return grid.RemoveItem(row);
            if (operation == 3) return grid.Row(row);
            if (dice.below(120) == 0) return grid.Clear();
            grid.TextMatrix(row, dice.index(3), std::to_string(i));
        });
        ASSERT_EQ(copy.size(), static_cast<std::size_t>(grid.Rows()));
        for (int r = 0; r < grid.Rows(); ++r)
            ASSERT_EQ(copy[static_cast<std::size_t>(r)], rowOf(r)) << "after operation " << i;
        ASSERT_EQ(currentRow, grid.Row());
    }
}

// The operations above only fail; here is how.
TEST_F(ReplayTest, WhatIsNotThereIsRefusedByItsNumberAndWithoutAnEvent) {
    ListBox multi(surface, "Multi", ListBox::Selection::Multiple);
    ListBox single(surface, "Single", ListBox::Selection::Single);
    ComboBox combo(surface, "Combo", ComboBox::Style::Editable);
    Grid grid(surface, "Grid", 3);
    fill(multi, {"A", "B"});
    fill(single, {"a", "b"});
    fill(combo, {"x"});
    events.listenTo(surface);
    for (const int index : {-1, 2, 40000}) {
        const std::vector<int> both{0, 1}, some{0, index};
        const std::pair<int, std::function<void()>> refused[] = {
            {381, [&] { static_cast<void>(multi.List(index)); }},
            {381, [&] { multi.List(index, "x"); }},
            {381, [&] { multi.RemoveItem(index); }},
            {381, [&] { static_cast<void>(multi.Selected(index)); }},
            {381, [&] { multi.Selected(index, true); }},
            {381, [&] { multi.Selected(some, true); }},
            {381, [&] { multi.AddItem("x", index < 0 ? index : index + 1); }},
            {380, [&] { multi.ListIndex(index < 0 ? -2 : index); }},
            {5, [&] { single.Selected(both, true); }},
            {381, [&] { combo.List(index, "x"); }},
            {381, [&] { combo.RemoveItem(index); }},
            {380, [&] { combo.ListIndex(index < 0 ? -2 : index); }},
            {380, [&] { combo.SelStart(-1); }},
            {380, [&] { combo.SelLength(-1); }},
            {381, [&] { grid.TextMatrix(index, 0, "x"); }},
            {381, [&] { grid.TextMatrix(1, index < 0 ? index : index + 1, "x"); }},
            {381, [&] { grid.TextArray(index < 0 ? index : 6, "x"); }},
            {381, [&] { static_cast<void>(grid.TextArray(index < 0 ? index : 1L << 40)); }},
            {381, [&] { grid.Row(index); }},
            {381, [&] { grid.Col(index < 0 ? index : 3); }},
            {381, [&] { grid.RemoveItem(index); }},
            {5, [&] { grid.RemoveItem(0); }},  // the header
            {380, [&] { grid.Rows(index < 0 ? 0 : 32768); }},
            {381, [&] { grid.ColWidth(index < 0 ? index : 3, 100); }},
            {380, [&] { grid.ColWidth(0, -1); }},
            {380, [&] { grid.RowHeightMin(-1); }},
        };
        for (const auto& [number, action] : refused)
            EXPECT_EQ(numberOf(action), number) << "for " << index;
        EXPECT_EQ(multi.ListOrEmpty(index), "");
    }
    EXPECT_THAT(itemsOf(multi), ElementsAre("A", "B"));
    EXPECT_EQ(grid.Rows(), 2);
    while (multi.ListCount() < MaxListCount)
        multi.AddItem("full");
    EXPECT_EQ(numberOf([&] { multi.AddItem("one more"); }), 6);
    EXPECT_EQ(events.take(), "");
}

}  // namespace headerdtc::replay_test
