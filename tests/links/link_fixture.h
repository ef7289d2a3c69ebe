#pragma once

#include "core/control_fixture.h"
#include "links/links.h"

#include <string>

namespace headerdtc {

// One control with the behaviours of the link tabs, and one family's link tab in front.
class LinksTest : public ControlTest {
  protected:
    explicit LinksTest(Family which = Family::ZEKO) : family(dtc.family(which)) {
        outside.dataSources.providers = {
            {.name = "Orders",
             .zekoFields = {{"1", "ORDNO"}, {"2", "CUSTNO"}},
             .zekoKeyFields = {"ORDNO"},
             .eaiGroups = {{"ORDERS", {"ORDNO"}}, {"LINES", {"ORDNO", "ITEM"}}},
             .eaiKeyFields = {"ORDNO"}},
            {.name = "Stock",
             .zekoFields = {{"1", "ITEM"}},
             .zekoKeyFields = {"ITEM", "PLACE"},
             .eaiGroups = {{"STOCK", {"ITEM"}}},
             .eaiKeyFields = {"ITEM", "PLACE"}},
        };
        open(which);
    }

    void open(Family which) {
        dtc.SSTab1.clickTab(traitsOf(which).linkTabPage);
        dtc.procedures.PrepareLinkTab(which);
    }
    std::string named(std::string_view role) const { return familyName(family.family, role); }

    Links links{dtc};
    FamilyControls& family;
};

// The same scenario on the link tab of each family.
class FamilyLinksTest : public LinksTest, public ::testing::WithParamInterface<Family> {
  protected:
    FamilyLinksTest() : LinksTest(GetParam()) {}
    const bool eai = GetParam() == Family::EAI;
};

}  // namespace headerdtc
