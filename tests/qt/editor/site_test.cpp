// The site around the pages: its tree, its runs, its configuration, the demo.

#include "qt/editor/settings/settings_dialog.h"
#include "qt/editor/start/demo_site.h"
#include "qt/editor/window_fixture.h"

namespace headerdtc::qt::site_test {

using Verdict = GeneratedPage::Verdict;

class SiteWindow : public WindowTest {
  protected:
    SiteWindow() {
        site.write("current.asp", ordersPage());
        site.write("sub/stale.asp", Site::page(Site::ordersParams(), "old\r\n"));
        site.write("sub/plain.inc", "<html>\n");
        site.write("lost.asp", Site::page(Site::ordersParams("Gone")));
        window->opener().openAnything(site.path());
        finish();
    }
    void finish() {
        EXPECT_TRUE(eventually([&] { return !window->site().run().isRunning(); }));
        settle();
    }
    static std::string state(const QModelIndex& row) {
        return row.siblingAtColumn(SiteModel::State).data().toString().toStdString();
    }
    std::string stateOf(const std::string& page) {
        return state(window->site().model().indexOf(site / page));
    }
    std::string stateOfFolder(const std::string& folder) {
        const SiteModel& model = window->site().model();
        return state(model.match(model.index(0, 0), Qt::DisplayRole, folder.c_str()).at(0));
    }
    std::string summary() {
        return window->findChild<QLabel*>("SiteSummary")->text().toStdString();
    }
};

TEST_F(SiteWindow, ShowsWhatACheckFindsAndWritesNothing) {
    EXPECT_EQ("up to date", stateOf("current.asp"));
    EXPECT_EQ("out of date", stateOf("sub/stale.asp"));
    EXPECT_EQ("no control", stateOf("sub/plain.inc"));
    EXPECT_EQ("would lose something", stateOf("lost.asp"));
    EXPECT_EQ("1 up to date, 1 out of date, 1 not done", summary());
    EXPECT_EQ("1 out of date", stateOfFolder("sub"));
    EXPECT_THAT(site.read("sub/stale.asp"), HasSubstr("old"));
}

TEST_F(SiteWindow, ShowsOnlyThePagesAskedFor) {
    auto* tree = window->findChild<QTreeView*>("SiteTree");
    EXPECT_EQ(3, tree->model()->rowCount()) << "without the template's folder";
    window->findChild<QComboBox*>("SiteShow")->setCurrentIndex(SiteFilter::NeedingWork);
    EXPECT_EQ(2, tree->model()->rowCount());
    window->findChild<QLineEdit*>("SiteSearch")->setText("lost");
    EXPECT_EQ(1, tree->model()->rowCount());
}

TEST_F(SiteWindow, GeneratesAllAndLeadsFromAMessageToThePage) {
    // An open page without changes follows what the run writes into its file.
    window->opener().openPage(site / "sub/stale.asp");
    press(*window, "Generate all pages");
    finish();
    EXPECT_EQ("up to date", stateOf("sub/stale.asp"));
    EXPECT_EQ("", stateOfFolder("sub"));
    EXPECT_EQ("1 written, 2 up to date, 1 not done", summary());
    EXPECT_EQ(Verdict::UpToDate, check("sub/stale.asp").verdict);
    EXPECT_EQ(site.read("sub/stale.asp"), window->tabs().current()->page().content()->bytes());

    int row = 0;
    while (row < window->messages().rowCount() &&
           window->messages().message(row).page != site / "lost.asp")
        ++row;
    ASSERT_LT(row, window->messages().rowCount());
    auto* view = window->findChild<QTreeView*>("MessagesView");
    Q_EMIT view->activated(window->messages().index(row, 0));
    settle();
    EXPECT_EQ(site / "lost.asp", window->tabs().current()->page().file());
}

TEST_F(SiteWindow, ChangesAreSavedBeforeGeneratingIfTheAuthorWants) {
    window->opener().openPage(site / "current.asp");
    toggleExtraFilters(*window->tabs().current());
    command(Command::GenerateAll, "Save All");
    finish();
    EXPECT_THAT(site.read("current.asp"), HasSubstr("EnableExtraFilters"));
}

TEST_F(SiteWindow, ASavedPageIsCheckedAgain) {
    window->opener().openPage(site / "sub/stale.asp");
    settle();
    command(Command::Save);
    finish();
    EXPECT_EQ("up to date", stateOf("sub/stale.asp"));
    EXPECT_EQ("2 up to date, 1 not done", summary());
}

TEST_F(SiteWindow, ARunCanBeStopped) {
    for (int i = 0; i < 300; ++i)
        site.write("many/" + std::to_string(i) + ".asp", Site::page(Site::ordersParams()));
    window->site().generateAll();
    window->site().run().cancel();
    finish();
    EXPECT_THAT(summary(), HasSubstr("Stopped."));
    EXPECT_EQ(Verdict::Stale, check("many/299.asp").verdict);
}

// ---- settings -----------------------------------------------------------------------------------

class Settings : public SiteWindow {
  protected:
    static void set(QWidget& dialog, const char* field, const char* value) {
        dialog.findChild<QLineEdit*>(QLatin1String(field))->setText(QLatin1String(value));
    }
};

TEST_F(Settings, ChangesAValueAndKeepsTheFilesComments) {
    const std::string before = "# ours\n" + site.read("headerdtc.toml") + "# the end\n";
    site.write("headerdtc.toml", before);
    answerDialogs([](QWidget& dialog) {
        set(dialog, "datasource.catalogue", "other.json");
        press(dialog, "Save");
    });
    command(Command::Settings);
    std::string expected = before;
    const std::string old = "catalogue = \"catalogue.json\"";
    expected.replace(expected.find(old), old.size(), "catalogue = \"other.json\"");
    EXPECT_EQ(expected, site.read("headerdtc.toml"));
}

TEST_F(Settings, WhatCannotBeReadAgainIsNotWritten) {
    const std::string before = site.read("headerdtc.toml");
    answerDialogs([&](QWidget& dialog) {
        if (dialog.objectName() != "SettingsDialog") return press(dialog, "OK");
        dialog.findChild<QComboBox*>("CodePageCombo")->setEditText("windows-12520");
        press(dialog, "Save");
        press(dialog, "Cancel");
    });
    command(Command::Settings);
    EXPECT_THAT(said, HasSubstr("windows-12520"));
    EXPECT_EQ(before, site.read("headerdtc.toml"));
}

// Of what the form says, not the file.
TEST_F(Settings, TellWhatIsNotFoundAndLeadToWhereItIsMended) {
    SettingsDialog dialog(site / "headerdtc.toml");
    set(dialog, "translations.connect_string", "DSN=NoSuchSource");
    auto* again = dialog.findChild<QPushButton*>("LookAgainButton");
    ASSERT_TRUE(eventually([&] { return again->isEnabled(); }));
    again->click();
    ASSERT_TRUE(eventually([&] { return again->isEnabled(); }));
    auto& list = *dialog.findChild<QTreeWidget*>("SetupList");
    const auto found = list.findItems("data source", Qt::MatchExactly);
    ASSERT_EQ(1, found.size());
    EXPECT_THAT(found[0]->text(1).toStdString(), HasSubstr("NoSuchSource"));
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog, Patience));
    static_cast<QPushButton*>(list.itemWidget(found[0], 2))->click();
    EXPECT_TRUE(dialog.findChild<QLineEdit*>("translations.connect_string")->hasFocus());
}

// Asked for where there is none: nothing of a page could be made.
TEST_F(WindowTest, ANewPageWithoutASiteAsksForOne) {
    EXPECT_EQ("No site open", window->findChild<QLabel*>("SiteTitle")->text());
    EXPECT_FALSE(window->findChild<QWidget*>("SiteProgress")->isVisible());
    std::filesystem::remove(site / "headerdtc.toml");
    std::filesystem::remove(site / "catalogue.json");
    open("plain.asp", "<html>");
    answerDialogs([](QWidget& dialog) { press(dialog, "Cancel"); });
    command(Command::New);
    EXPECT_THAT(said, HasSubstr("Which site"));
    EXPECT_EQ(1, window->tabs().count());
}

TEST_F(WindowTest, TheDemoIsCopiedAndOpenedWithoutComplaints) {
    const auto demo = findDemoSite();
    ASSERT_TRUE(demo);
    EXPECT_THROW(copyDemoSite(*demo, site.path()), std::runtime_error);
    window->opener().openDemo(site / "demo");
    ASSERT_NE(nullptr, window->tabs().current());
    EXPECT_TRUE(eventually([&] { return !window->site().run().isRunning(); }));
    EXPECT_GT(window->site().model().count(Verdict::UpToDate), 5);
    EXPECT_GT(dtc(*window->tabs().current()).ZEKO.SelectedFieldsList.ListCount(), 3);
    QTest::qWait(400);
    EXPECT_EQ(0, window->messages().rowCount());
    EXPECT_FALSE(window->tabs().current()->isModified());
}

}  // namespace headerdtc::qt::site_test
