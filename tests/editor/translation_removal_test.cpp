#include "editor/translation_removal.h"

#include "editor_fixture.h"

#include <random>

namespace headerdtc {
namespace {

// Entry for entry, as the rule is stated.
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

class TranslationRemovalTest : public ControlTest {
  protected:
    using Lists = std::vector<std::vector<std::string>>;

    static Lists contents(const FamilyControls& family) {
        return {itemsOf(family.I18NFieldnamesList), itemsOf(family.LinkedFieldsList),
                itemsOf(family.I18NFieldValuesList)};
    }
    std::string randomField(int kinds) {
        const int kind = std::uniform_int_distribution(0, kinds)(random);
        return kind == 0 ? std::string() : "field" + std::to_string(kind);
    }
    void fillAlike(int most, int kinds) {
        for (ListBox FamilyControls::*list :
             {&FamilyControls::I18NFieldnamesList, &FamilyControls::LinkedFieldsList,
              &FamilyControls::I18NFieldValuesList}) {
            (dtc.EAI.*list).Clear();
            (dtc.ZEKO.*list).Clear();
            for (int i = std::uniform_int_distribution(0, most)(random); i > 0; --i) {
                const std::string field = randomField(kinds);
                (dtc.EAI.*list).AddItem(field);
                (dtc.ZEKO.*list).AddItem(field);
            }
        }
    }

    std::mt19937 random{20240102};  // NOLINT: the same cases every time
};

TEST_F(TranslationRemovalTest, GivesWhatTheScansGive) {
    int failures = 0;
    for (int round = 0; round < 5000; ++round) {
        const int kinds = 1 + round % 7;
        fillAlike(2 + round % 40, kinds);
        const int linkedBefore = dtc.EAI.LinkedFieldsList.ListCount();
        ChangedProperties changed;
        {
            TranslationRemoval removal(dtc.EAI, changed);
            for (int field = round % 12; field >= 0; --field) {
                const std::string text = randomField(kinds);
                const int error = numberOf([&] { removal.remove(text); });
                ASSERT_EQ(error, numberOf([&] { removeByScanning(dtc.ZEKO, text); }));
                failures += error != 0;
            }
        }
        ASSERT_EQ(contents(dtc.EAI), contents(dtc.ZEKO)) << "round " << round;
        ASSERT_EQ(changed.names().size(),
                  dtc.EAI.LinkedFieldsList.ListCount() < linkedBefore ? 1U : 0U);
    }
    EXPECT_GT(failures, 100);
}

}  // namespace
}  // namespace headerdtc
