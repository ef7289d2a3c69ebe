#pragma once

#include "core/control_fixture.h"
#include "editor/editor.h"

namespace headerdtc {

// A control with the behaviours of the editor, and two data providers: "Orders" with twelve ZEKO
// fields and two EAI groups, "Stock" with one field of each kind.
class EditorTest : public ::testing::Test, protected BareControl {
  protected:
    EditorTest() {
        testing::FakeProvider orders{
            .name = "Orders",
            .zekoKeyFields = {"ORDNO", "CUSTNO"},
            .eaiGroups = {{"HEAD", {"ORDNO", "CUSTNO"}}, {"LINE", {"ITEM"}}},
            .eaiKeyFields = {"ORDNO", "CUSTNO"}};
        for (int number = 1; number <= 12; ++number)
            orders.zekoFields.emplace_back(std::to_string(number), "F" + std::to_string(number));
        outside.dataSources.providers = {orders,
                                         {.name = "Stock",
                                          .zekoFields = {{"1", "ITEM"}},
                                          .zekoKeyFields = {"ITEM"},
                                          .eaiGroups = {{"ITEMS", {"ITEM"}}},
                                          .eaiKeyFields = {"ITEM"}}};
    }

    void start() { dtc.UserControl_Initialize(); }
    void choose(const char* provider) {
        dtc.SSTab1.clickTab(0);
        dtc.DataProvidersCombo.choose(provider);
    }

    Editor editor{dtc};
};

// The same scenario for each family, on the family's own tab, where "Orders" is shown.
class FamilyTest : public EditorTest, public ::testing::WithParamInterface<Family> {
  protected:
    FamilyTest() {
        start();
        choose("Orders");
        dtc.SSTab1.clickTab(family.traits.tabPage);
        notices();
    }
    std::string named(std::string_view role) const { return familyName(GetParam(), role); }
    std::string report(std::string_view role, const char* failure) const {
        return "Error in '" + named(role) + "': " + failure;
    }

    FamilyControls& family = dtc.family(GetParam());
};

}  // namespace headerdtc
