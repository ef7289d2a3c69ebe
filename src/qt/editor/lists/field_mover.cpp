#include "qt/editor/lists/field_mover.h"

#include <algorithm>
#include <cstdlib>

namespace headerdtc::qt {
namespace {

std::vector<int> itemsToMove(const ListBox& list) {
    std::vector<int> items;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) items.push_back(i);
    }
    if (items.empty() && list.ListIndex() >= 0) items.push_back(list.ListIndex());
    return items;
}

bool isUpwards(FieldMove move) {
    return move == FieldMove::Up || move == FieldMove::ToTop;
}

struct Way {
    int from, to;
};

// In the order in which they are gone: none passes another that is moved too.
std::vector<Way> waysOf(const ListBox& list, FieldMove move) {
    std::vector<int> items = itemsToMove(list);
    if (!isUpwards(move)) std::reverse(items.begin(), items.end());
    std::vector<Way> ways;
    const int last = list.ListCount() - 1;
    for (const int item : items) {
        const auto gone = static_cast<int>(ways.size());
        const int end = isUpwards(move) ? gone : last - gone;
        const bool toEnd = move == FieldMove::ToTop || move == FieldMove::ToBottom;
        const int beside = isUpwards(move) ? std::max(item - 1, end) : std::min(item + 1, end);
        ways.push_back({item, toEnd ? end : beside});
    }
    return ways;
}

}  // namespace

long pressesFor(const ListBox& list, FieldMove move) {
    long presses = 0;
    for (const Way& way : waysOf(list, move))
        presses += std::abs(way.to - way.from);
    return presses;
}

void moveItems(ListBox& list, Button& up, Button& down, FieldMove move) {
    const std::vector<Way> ways = waysOf(list, move);
    if (pressesFor(list, move) == 0) return;
    Button& button = isUpwards(move) ? up : down;
    const int focused = list.ListIndex();
    int focus = ways.front().to;
    std::vector<int> moved;
    for (const Way& way : ways) {
        moved.push_back(way.to);
        if (way.from == focused) focus = way.to;
        if (way.from == way.to) continue;
        list.select({way.from}, way.from);
        for (int i = std::abs(way.to - way.from); i > 0; --i)
            button.press();
    }
    std::sort(moved.begin(), moved.end());
    list.select(moved, focus);
}

}  // namespace headerdtc::qt
