#pragma once

#include "controls/keys.h"
#include "controls/list_box.h"

#include <string>
#include <vector>

// What every test of controls needs: filling and reading lists, pressing keys.
namespace headerdtc {

template <class List>
void fill(List& list, std::initializer_list<const char*> items) {
    for (const char* item : items)
        list.AddItem(item);
}

template <class List>
std::vector<std::string> itemsOf(const List& list) {
    std::vector<std::string> items;
    for (int i = 0; i < list.ListCount(); ++i)
        items.push_back(list.List(i));
    return items;
}

inline std::vector<std::string> selectedItemsOf(const ListBox& list) {
    std::vector<std::string> items;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) items.push_back(list.List(i));
    }
    return items;
}

// Presses keys one after the other: press(box, Key::Kind::Left, U'x').
template <class Target, class... Keys>
void press(Target& target, Keys... keys) {
    (target.press(Key::of(keys)), ...);
}

}  // namespace headerdtc
