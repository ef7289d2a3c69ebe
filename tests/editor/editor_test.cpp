// What no person can bring about in a scenario: a scrolled grid, controls that a host has disabled.

#include "editor/editor.h"

#include "core/control_fixture.h"
#include "editor/translation_removal.h"

namespace headerdtc::editor_test {

class EditorTest : public ControlTest, public WithParamInterface<Family> {
  protected:
    EditorTest() {
        dtc.SSTab1.Tab(family.traits.tabPage);
        grid.Rows(4);
        notices();
    }

    Editor editor{dtc};
    FamilyControls& family = dtc.family(GetParam());
    Grid& grid = family.CriteriaGrid;
};

INSTANTIATE_TEST_SUITE_P(, EditorTest, ValuesIn(BothFamilies), nameOfFamily);

TEST_P(EditorTest, AnEditorStandsInItsCellAndScrollingLeavesItWithItsValueWritten) {
    grid.doubleClickCell(2, 3);
    EXPECT_EQ(family.KeyFieldValueText.Left(), grid.Left() + grid.CellLeft());
    EXPECT_EQ(family.KeyFieldValueText.Top(), grid.Top() + grid.CellTop());
    family.KeyFieldValueText.type("kept");
    grid.scroll(2);
    EXPECT_FALSE(family.KeyFieldValueText.Visible());
    EXPECT_EQ(grid.TextMatrix(2, 3), "kept");
    // An editor whose row has gone stays until then.
    grid.scroll(1);
    grid.clickCell(3, 2);
    grid.Rows(3);
    family.MoveUpCommand.focus();
    EXPECT_TRUE(family.OperatorsCombo.Visible());
    grid.scroll(2);
    EXPECT_FALSE(family.OperatorsCombo.Visible());
    errors();
    family.KeyFieldsCombo.Enabled(false);
    grid.clickCell(1, 1);
    EXPECT_THAT(errors(), ElementsAre("Error in 'CriteriaGridEdit': "
                                      "Invalid procedure call or argument (5)"));
}

// ---- comparison with the rule as it is stated, entry for entry ----------------------------------

void removeByScanning(FamilyControls& family, const std::string& field) {
    const int names = family.I18NFieldnamesList.ListCount();
    for (int j = 0; j < names; ++j) {
        for (ListBox* list : {&family.I18NFieldnamesList, &family.LinkedFieldsList}) {
            if (list->ListOrEmpty(j) == field) list->RemoveItem(j);
        }
    }
    const int values = family.I18NFieldValuesList.ListCount();
    for (int j = 0; j < values; ++j) {
        if (family.I18NFieldValuesList.ListOrEmpty(j) == field)
            family.I18NFieldValuesList.RemoveItem(j);
    }
}

TEST(TranslationRemovalTest, GivesWhatTheScansGive) {
    TestControl control;
    std::mt19937 random{20240102};  // NOLINT: the same cases every time
    const auto below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    const auto randomField = [&](int kinds) {
        const int kind = below(kinds + 1);
        return kind == 0 ? std::string() : "field" + std::to_string(kind);
    };
    constexpr ListBox FamilyControls::*Lists[] = {&FamilyControls::I18NFieldnamesList,
                                                  &FamilyControls::LinkedFieldsList,
                                                  &FamilyControls::I18NFieldValuesList};
    FamilyControls &quick = control.dtc.EAI, &plain = control.dtc.ZEKO;
    int failures = 0;
    for (int round = 0; round < 5000; ++round) {
        const int kinds = 1 + round % 7;
        for (const auto list : Lists) {
            (quick.*list).Clear();
            (plain.*list).Clear();
            for (int i = below(3 + round % 40); i > 0; --i) {
                (quick.*list).AddItem(randomField(kinds));
                (plain.*list).AddItem((quick.*list).List((plain.*list).ListCount()));
            }
        }
        const int linkedBefore = quick.LinkedFieldsList.ListCount();
        ChangedProperties changed;
        {
            TranslationRemoval removal(quick, changed);
            for (int field = round % 12; field >= 0; --field) {
                const std::string text = randomField(kinds);
                const int error = numberOf([&] { removal.remove(text); });
                ASSERT_EQ(error, numberOf([&] { removeByScanning(plain, text); }));
                failures += error != 0;
            }
        }
        for (const auto list : Lists)
            ASSERT_EQ(itemsOf(quick.*list), itemsOf(plain.*list)) << "round " << round;
        ASSERT_EQ(changed.names().empty(), quick.LinkedFieldsList.ListCount() == linkedBefore);
    }
    EXPECT_GT(failures, 100);
}

}  // namespace headerdtc::editor_test
