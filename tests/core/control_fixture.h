#pragma once

#include "core/header_dtc.h"
#include "support/fake_surroundings.h"

#include <gmock/gmock.h>
#include <initializer_list>
#include <string>
#include <vector>

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

// The number of the run-time failure that an action raises, 0 for none.
template <class Action>
int errorOf(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

// One set-up control with "Orders" and "Stock" as data providers, without any behaviours.
struct TestControl {
    TestControl() {
        dtc.procedures.PrepareGeneralTab = [this] {
            fill(dtc.DataProvidersCombo, {"Orders", "Stock"});
            for (const Family which : BothFamilies)
                fill(dtc.family(which).LinkedDataProvidersCombo, {"Orders", "Stock"});
        };
        dtc.UserControl_Initialize();
    }

    testing::FakeSurroundings outside;
    HeaderDTC dtc{outside.all(), outside.modalLoop};
};

class ControlTest : public ::testing::Test, protected TestControl {};

}  // namespace headerdtc
