// Long lists: finding, counting, moving in one stroke.

#include "host/page/page_session.h"
#include "host/page/quiet_host.h"
#include "qt/editor/lists/list_finder.h"
#include "qt/editor/window_fixture.h"
#include "qt/surface/selection_list.h"
#include "support/event_recorder.h"

namespace headerdtc::qt::lists_test {

class Lists : public WindowTest {
  protected:
    static constexpr int FieldCount = 2000;

    // A provider with more fields than anybody scrolls through, some of them chosen.
    Lists() {
        auto catalogue = nlohmann::json::parse(R"({"providers": [{"name": "Parts",
            "zeko": {"fields": [], "keyFields": ["P1"]},
            "eai": {"groups": [{"name": "PART", "fields": []}], "keyFields": []}}]})");
        auto& parts = catalogue["providers"][0];
        for (int i = 1; i <= FieldCount; ++i) {
            const std::string number = std::to_string(i * 7919 % FieldCount);
            parts["zeko"]["fields"].push_back({{"number", i}, {"name", "P" + number}});
            parts["eai"]["groups"][0]["fields"].push_back("F" + number + "X");
        }
        site.write("catalogue.json", catalogue.dump());
        editor = &open("page.asp", Site::page(""));
        dtc().DataProvidersCombo.choose("Parts");
        showTab(2);
    }

    HeaderDTC& dtc() { return WindowTest::dtc(*editor); }
    void showTab(int page) {
        dtc().SSTab1.clickTab(page);
        settle();
    }
    SelectionList& view(const ListBox& list) {
        return *editor->controls().surface()->findChild<SelectionList*>(
            QString::fromStdString(list.name()));
    }
    // A key where the focus is.
    static void key(int which, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(which), held);
        settle();
    }
    void addFields(std::initializer_list<int> items) {
        dtc().ZEKO.FieldsList.select(std::vector<int>(items), *items.begin());
        dtc().ZEKO.AddField.press();
        settle();
    }
    QString countOf(const ListBox& list) {
        settle();
        return editor->findChild<QLabel*>(QString::fromStdString(list.name()) + "Count")->text();
    }
    static std::vector<std::string> itemsOf(const ListBox& list) {
        std::vector<std::string> items;
        for (int i = 0; i < list.ListCount(); ++i)
            items.push_back(list.List(i).substr(list.List(i).find_first_not_of(' ')));
        return items;
    }

    PageEditor* editor = nullptr;
};

TEST_F(Lists, AnyFieldIsReachedInFiveKeys) {
    for (const Family which : {Family::ZEKO, Family::EAI}) {
        showTab(traitsOf(which).tabPage);
        ListBox& list = dtc().family(which).FieldsList;
        ASSERT_EQ(FieldCount, list.ListCount());
        for (int item = 0; item < FieldCount; item += 97) {
            view(list).setFocus();
            settle();
            // A number of the field, or of its place.
            const std::string keys = (which == Family::ZEKO ? "" : "#") + std::to_string(item + 1);
            ASSERT_LE(keys.size(), 5U);
            for (const char c : keys)
                QTest::keyClick(QApplication::focusWidget(), c);
            settle();
            ASSERT_EQ(item, list.ListIndex()) << keys;
            ASSERT_EQ(1, list.SelCount());
            ASSERT_EQ(item, view(list).currentIndex().row());
            key(Qt::Key_Escape);
        }
        EXPECT_EQ(FieldCount, list.ListCount());
    }
}

TEST_F(Lists, MatchesAreWalkedThroughAndEnterAdds) {
    ListBox& list = dtc().ZEKO.FieldsList;
    view(list).setFocus();
    settle();
    QTest::keyClick(&view(list), Qt::Key_F, Qt::ControlModifier);
    auto* text = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(nullptr, text);
    EXPECT_FALSE(window->findChild<QWidget*>("FindBar") &&
                 window->findChild<QWidget*>("FindBar")->isVisible());
    QTest::keyClicks(text, "p123");
    settle();
    const std::vector<int> matches = findInList(list, "P123");
    EXPECT_THAT(list.List(matches.front()), HasSubstr(" - P123"));
    EXPECT_EQ(matches.front(), list.ListIndex());
    key(Qt::Key_Down);
    EXPECT_EQ(matches[1], list.ListIndex());
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(matches.back(), list.ListIndex());
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_THAT(itemsOf(dtc().ZEKO.SelectedFieldsList), ElementsAre(HasSubstr(" - P123")));
    // The focus stays, and the next one follows.
    EXPECT_EQ(text, QApplication::focusWidget());
    QTest::keyClicks(text, "nowhere");
    EXPECT_EQ(
        "Not found",
        editor->findChild<QLabel*>(QString::fromStdString(list.name()) + "FindCount")->text());
    key(Qt::Key_Escape);
    EXPECT_EQ(&view(list), QApplication::focusWidget());
    EXPECT_TRUE(list.hasFocus());
}

// Marking a field for translation is a choice of its own, which finding must not make.
TEST_F(Lists, FindingAFieldToTranslateMarksNothing) {
    addFields({0, 1, 2, 3});
    showTab(3);
    ListBox& names = dtc().ZEKO.I18NFieldnamesList;
    view(names).setFocus();
    settle();
    QTest::keyClicks(QApplication::focusWidget(), "3");
    settle();
    EXPECT_EQ(0, names.SelCount());
    key(Qt::Key_Escape);
    EXPECT_EQ(0, names.SelCount());
}

TEST_F(Lists, CountsSayHowManyAreMarked) {
    EXPECT_EQ("2000", countOf(dtc().ZEKO.FieldsList));
    addFields({0, 5, 9});
    EXPECT_EQ("1 of 1997", countOf(dtc().ZEKO.FieldsList));
    dtc().ZEKO.SelectedFieldsList.select({0, 2}, 2);
    EXPECT_EQ("2 of 3", countOf(dtc().ZEKO.SelectedFieldsList));
}

class ListsOfFamily : public Lists, public WithParamInterface<Family> {};

TEST_P(ListsOfFamily, MarkedFieldsMoveInOneStrokeWithTheEventsOfTheButtons) {
    const Family which = GetParam();
    showTab(traitsOf(which).tabPage);
    FamilyControls& family = dtc().family(which);
    family.FieldsList.select({0, 1, 2, 3, 4, 5}, 0);
    family.AddField.press();
    editor->controls().takeChanges();
    // The same control, with nobody's window around it.
    QuietHost host;
    OpenControl plain(editor->page().site(), editor->page().file(),
                      editor->page().content()->controls().front(), host.faces());
    plain.dtc().SSTab1.clickTab(traitsOf(which).tabPage);
    FamilyControls& twin = plain.dtc().family(which);

    family.SelectedFieldsList.select({1, 4}, 4);
    settle();
    view(family.SelectedFieldsList).setFocus();
    settle();
    EventRecorder events(dtc().surface);
    EventRecorder expected(plain.dtc().surface);
    twin.SelectedFieldsList.focus();
    expected.take();
    const auto order = itemsOf(family.SelectedFieldsList);

    key(Qt::Key_End, Qt::AltModifier);
    EXPECT_THAT(itemsOf(family.SelectedFieldsList),
                ElementsAre(order[0], order[2], order[3], order[5], order[1], order[4]));
    twin.SelectedFieldsList.select({4}, 4);
    twin.MoveDownCommand.press();
    twin.SelectedFieldsList.select({1}, 1);
    for (int i = 0; i < 3; ++i)
        twin.MoveDownCommand.press();
    twin.SelectedFieldsList.select({4, 5}, 5);
    EXPECT_EQ(expected.take(), events.take());
    EXPECT_EQ(itemsOf(twin.SelectedFieldsList), itemsOf(family.SelectedFieldsList));

    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_THAT(itemsOf(family.SelectedFieldsList),
                ElementsAre(order[0], order[2], order[3], order[1], order[4], order[5]));
    editor->finishEditing();  // the next stroke is a step of its own
    view(family.SelectedFieldsList).setFocus();
    key(Qt::Key_Home, Qt::AltModifier);
    EXPECT_THAT(itemsOf(family.SelectedFieldsList),
                ElementsAre(order[1], order[4], order[0], order[2], order[3], order[5]));
    // At the end there is nothing to do.
    events.take();
    key(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(events.take(), "");
    EXPECT_EQ(2, family.SelectedFieldsList.SelCount());
    // A stroke is one step.
    editor->controls().takeChanges();
    command(Command::Undo);
    EXPECT_THAT(itemsOf(dtc().family(which).SelectedFieldsList),
                ElementsAre(order[0], order[2], order[3], order[1], order[4], order[5]));
}

INSTANTIATE_TEST_SUITE_P(Families, ListsOfFamily, Values(Family::ZEKO, Family::EAI));

}  // namespace headerdtc::qt::lists_test
