// What an author does in the window, recorded and replayed.

#include "host/automation/replay.h"
#include "qt/editor/recording/recorder.h"
#include "qt/editor/window_fixture.h"
#include "qt/surface/selection_list.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

namespace headerdtc::qt {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RecordingInTheWindow : public WindowTest {
  protected:
    template <class Widget>
    Widget& widget(const char* name) {
        return *editor->controls().surface()->findChild<Widget*>(name);
    }
    void clickTab(int page) {
        auto& bar = *widget<QTabWidget>("SSTab1").tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(page).center());
        settle();
    }
    void clickItem(const char* list, int item) {
        auto& view = widget<SelectionList>(list);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.visualRect(view.model()->index(item, 0)).center());
        settle();
    }
    void clickButton(const char* name) {
        QTest::mouseClick(&widget<QPushButton>(name), Qt::LeftButton);
        settle();
    }
    void clickCell(int row, int column) {
        auto& table = widget<QTableView>("ZEKOCriteriaGrid");
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualRect(table.model()->index(row - 1, column)).center());
        settle();
    }
    void typeText(const char* text) {
        for (const char* c = text; *c; ++c) {
            // A box that a key has opened took the window's place.
            window->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
            ASSERT_NE(nullptr, QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), *c);
        }
        settle();
    }
    std::string script() {
        settle();
        return window->recorder().script().toStdString();
    }

    PageEditor* editor = nullptr;
};

TEST_F(RecordingInTheWindow, ReplaysToTheSamePage) {
    editor = &open("page.asp", ordersPage());
    site.write("other.asp", ordersPage());
    clickTab(2);  // before, which is no part of it
    command(Command::Record);
    ASSERT_TRUE(window->recorder().isRecording());
    toggleExtraFilters(*editor);
    auto& stylesheet = widget<QLineEdit>("XSLFilenameText");
    stylesheet.setFocus();
    stylesheet.selectAll();
    typeText("xsl/New.xsl");
    clickTab(2);
    clickItem("ZEKOSelectedFieldsList", 0);
    clickButton("ZEKORemoveField");
    clickButton("ZEKOAddCriteriumCommand");
    clickCell(1, criteria_column::Key);
    clickCell(1, criteria_column::Value);
    answerDialogs([](QWidget& dialog) { press(dialog, "OK"); });  // the warning of the Del key
    typeText("100");
    typeText("200");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    clickCell(2, criteria_column::Script);
    settle();
    command(Command::Save);
    const std::string saved = site.read("page.asp");
    EXPECT_THAT(saved, HasSubstr("100200"));
    EXPECT_THAT(saved, HasSubstr("xsl/New.xsl"));
    command(Command::Record);
    EXPECT_FALSE(window->recorder().isRecording());
    EXPECT_THAT(script(),
                HasSubstr(R"({"do":"type","control":"XSLFilenameText","text":"xsl/New.xsl"})"));

    Sites sites;
    const ReplayedPage replayed = replayOnPage(sites, site / "other.asp", "", script());
    EXPECT_THAT(replayed.failures, IsEmpty()) << script();
    EXPECT_EQ(saved, replayed.after) << script();
}

TEST_F(RecordingInTheWindow, UndoEndsItAndIsSaid) {
    editor = &open("page.asp", ordersPage());
    command(Command::Record);
    toggleExtraFilters(*editor);
    ASSERT_TRUE(eventually([&] { return editor->page().isModified(); }));
    command(Command::Undo);
    EXPECT_FALSE(window->recorder().isRecording());
    EXPECT_FALSE(window->commands()[Command::Record]->isChecked());
    EXPECT_TRUE(editor->notices().shows("recording"));
    EXPECT_EQ("{\"do\":\"click\",\"control\":\"EnableExtraFiltersCheck\"}\n{\"do\":\"save\"}\n",
              script());
}

}  // namespace
}  // namespace headerdtc::qt
