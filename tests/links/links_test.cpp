// What no person can bring about in a scenario: lists that are full.

#include "links/links.h"

#include "core/control_fixture.h"

namespace headerdtc::links_test {

class LinksTest : public ControlTest, public WithParamInterface<Family> {
  protected:
    Links links{dtc};
    FamilyControls& family = dtc.family(GetParam());
};

INSTANTIATE_TEST_SUITE_P(, LinksTest, ValuesIn(BothFamilies), nameOfFamily);

TEST_P(LinksTest, TheLongestListsGoThereAndBack) {
    ListBox &available = family.LinkedFieldsList, &selected = family.SelectedLinkedFieldsList;
    dtc.SSTab1.Tab(family.traits.linkTabPage);
    std::vector<int> all;
    for (int i = 0; i < MaxListCount; ++i) {
        available.AddItem("F" + std::to_string(i));
        all.push_back(i);
    }
    family.AddLinkedField.Enabled(true);
    available.select(all, 0);
    family.AddLinkedField.press();
    EXPECT_EQ(selected.List(MaxListCount - 1), "F32766");
    EXPECT_EQ(available.ListCount(), 0);
    selected.select({}, 1);
    family.MoveUpLinkedField.press();
    EXPECT_THAT(errors(),
                ElementsAre("Error in '" + familyName(GetParam(), "MoveUpLinkdFieldCommand_Click") +
                            "': Overflow (6)"))
        << "under the name of the ZEKO button";
    selected.select(all, 0);
    family.RemoveLinkedField.press();
    EXPECT_EQ(available.List(0), "F32766");
    EXPECT_EQ(available.List(MaxListCount - 1), "F0");
    EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace headerdtc::links_test
