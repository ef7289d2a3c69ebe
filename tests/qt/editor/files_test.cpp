// What becomes of the files: saving, losses, changes by others, crashes, closing.

#include "qt/editor/page/compare_dialog.h"
#include "qt/editor/window_fixture.h"
#include "qt/editor/workspace/recovery_dialog.h"

namespace headerdtc::qt::files_test {

class Files : public WindowTest {
  protected:
    static std::string lostProvider() { return Site::page(Site::ordersParams("Gone")); }
    PageEditor& openChanged() {
        PageEditor& editor = open("page.asp", ordersPage());
        change(editor);
        mine = editor.page().content()->bytes();
        return editor;
    }

    std::string mine;  // of openChanged()
};

TEST_F(Files, ALossIsRefusedWithItsReasonAndSavedOnDemand) {
    PageEditor& editor = open("page.asp", lostProvider());
    EXPECT_TRUE(eventually([&] { return editor.notices().shows("refusal"); }));
    toggleExtraFilters(editor);
    command(Command::Save, "Cancel");
    EXPECT_THAT(said, HasSubstr("the data provider \"Gone\" is not in the catalogue"));
    EXPECT_EQ(lostProvider(), site.read("page.asp"));
    EXPECT_TRUE(editor.isModified());

    // Undo and redo make the control anew; what it would lose is not forgotten.
    command(Command::Undo);
    command(Command::Redo);
    said.clear();
    command(Command::Save);
    EXPECT_THAT(said, HasSubstr("the data provider"));

    command(Command::Save, "Save anyway");
    EXPECT_THAT(site.read("page.asp"), AllOf(HasSubstr("Gone"), HasSubstr("EnableExtraFilters")));
    EXPECT_FALSE(editor.isModified());
}

// There is no saving anyway: the box names the file, and stays away when it is there again.
TEST_F(Files, WhatCannotBeGeneratedIsNotSaved) {
    for (const char* file : {"c/Suite/Orvane/include/DTC_TEMPLATE.ASP", "catalogue.json"}) {
        SCOPED_TRACE(file);
        const std::string bytes = site.read(file);
        PageEditor& editor = open("page.asp", ordersPage());
        toggleExtraFilters(editor);
        std::filesystem::remove(site / file);
        answerDialogs([](QWidget& dialog) {
            EXPECT_EQ(nullptr, dialog.findChild<QPushButton*>("SaveAnywayButton"));
            press(dialog, "Close");
        });
        said.clear();
        command(Command::Save);
        EXPECT_THAT(said, HasSubstr((site / file).string()));
        EXPECT_EQ(ordersPage(), site.read("page.asp"));
        site.write(file, bytes);
        command(Command::Save);
        EXPECT_THAT(site.read("page.asp"), HasSubstr("EnableExtraFilters"));
        command(Command::Close);
    }
}

// In whatever way the cause goes, the refusal goes with it, and what the author did meanwhile
// stays.
TEST_F(Files, AControlThatLackedSomethingIsMadeAnewWhenItIsThere) {
    const auto move = [&](const char* from, const char* to) {
        std::filesystem::rename(site / from, site / to);
    };
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"noticed.asp", [] {}},
        {"looked-again.asp", [&] { command(Command::Refresh); }},
        {"reloaded.asp", [&] { command(Command::Revert); }},
        {"changed.asp", [&] { site.write("changed.asp", "<!-- new -->" + ordersPage()); }},
    };
    for (const auto& [name, way] : ways) {
        SCOPED_TRACE(name);
        move("catalogue.json", "away.json");
        PageEditor& editor = open(name, ordersPage());
        ASSERT_TRUE(eventually([&] { return editor.notices().shows("refusal"); }));
        EXPECT_EQ("", dtc(editor).DataProvidersCombo.Text());
        const bool isChanged = name == ways[0].first;
        if (isChanged) change(editor);
        move("away.json", "catalogue.json");
        way();
        ASSERT_TRUE(eventually([&] {
            return dtc(editor).DataProvidersCombo.Text() == "Orders" &&
                   !editor.notices().shows("refusal");
        }));
        if (!isChanged) change(editor);
        command(Command::Save);
        EXPECT_THAT(site.read(name), AllOf(HasSubstr("NAME=\"DataProvider\" VALUE=\"Orders\""),
                                           HasSubstr("EnableExtraFilters")));
        EXPECT_EQ(GeneratedPage::Verdict::UpToDate, check(name).verdict);
    }
}

TEST_F(Files, ARenewalWaitsUntilTheControlsDialogIsClosed) {
    const std::string catalogue = site.read("catalogue.json");
    site.write("catalogue.json", "{");
    PageEditor& editor = open("page.asp", ordersPage());
    const QPointer<LiveControl> live = editor.controls().live();
    answerDialogs([&](QWidget& dialog) {
        site.write("catalogue.json", catalogue);
        command(Command::Refresh);
        EXPECT_EQ(live, editor.controls().live());
        press(dialog, "OK");
    });
    // The control complains in a box of its own about what it is not given.
    dtc(editor).SSTab1.clickTab(2);
    EXPECT_TRUE(eventually([&] { return dtc(editor).DataProvidersCombo.Text() == "Orders"; }));
    EXPECT_NE(live, editor.controls().live());
}

TEST_F(Files, APageWithoutChangesFollowsItsFile) {
    PageEditor& editor = open("page.asp", ordersPage());
    site.write("page.asp", "<!-- new -->" + ordersPage());
    window->tabs().checkDisk();
    EXPECT_EQ("<!-- new -->" + ordersPage(), editor.page().content()->bytes());
    EXPECT_FALSE(editor.isModified());
    command(Command::Undo);
    EXPECT_EQ(ordersPage(), editor.page().content()->bytes());
}

TEST_F(Files, AChangeByAnotherIsNoticedAndNeverOverwrittenUnasked) {
    PageEditor& editor = openChanged();
    const std::string theirs = "<!-- theirs -->" + ordersPage();
    site.write("page.asp", theirs);
    ASSERT_TRUE(eventually([&] { return editor.notices().shows("disk"); }));

    command(Command::Save, "Decide later");
    EXPECT_EQ(theirs, site.read("page.asp"));
    EXPECT_TRUE(editor.isModified());

    command(Command::Save, "Take theirs");
    EXPECT_EQ(theirs, editor.page().content()->bytes());
    EXPECT_FALSE(editor.isModified());
    command(Command::Undo);
    EXPECT_EQ(CheckState::Checked, dtc(editor).EnableExtraFiltersCheck.Value());

    site.write("page.asp", "<!-- again -->" + theirs);
    command(Command::Save, "Keep mine");
    EXPECT_THAT(site.read("page.asp"), Not(HasSubstr("theirs")));
    EXPECT_THAT(site.read("page.asp"), HasSubstr("EnableExtraFilters"));
}

TEST_F(Files, ChangesOfBothAreToldInWordsAndTakenTogether) {
    PageEditor& editor = openChanged();
    site.write("page.asp", "<title>New</title>" + ordersPage());
    answerDialogs([](QWidget& dialog) {
        EXPECT_FALSE(dialog.findChild<QPlainTextEdit*>("ComparePane0")->isVisible());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    command(Command::Save);
    EXPECT_THAT(said, AllOf(HasSubstr("extra filters of HeaderDTC1"), HasSubstr("title: + New")));
    EXPECT_EQ(mine, editor.page().content()->bytes()) << "Enter decides later";

    command(Command::Save, "Theirs, with my control");
    EXPECT_THAT(site.read("page.asp"), AllOf(HasSubstr("EnableExtraFilters"), HasSubstr("New")));
    EXPECT_EQ(GeneratedPage::Verdict::UpToDate, check("page.asp").verdict);
    command(Command::Undo);
    EXPECT_EQ(mine, editor.page().content()->bytes());
}

// Somebody writes while the author is asked about a loss: after the look at the file.
TEST_F(Files, AWriterBetweenTheLookAndTheSaveIsAskedAbout) {
    PageEditor& editor = open("page.asp", lostProvider());
    toggleExtraFilters(editor);
    const std::string theirs = "<!-- theirs -->" + lostProvider();
    answerDialogs([&](QWidget& dialog) {
        if (dialog.objectName() == "CompareDialog") return press(dialog, "Decide later");
        site.write("page.asp", theirs);
        press(dialog, "Save anyway");
    });
    command(Command::Save);
    EXPECT_EQ(theirs, site.read("page.asp"));
    EXPECT_TRUE(editor.isModified());
    EXPECT_THAT(said, HasSubstr("Theirs, on disk"));
}

TEST_F(Files, WhereOnlyAControlDiffersItsSpanIsCompared) {
    const auto shown = [&](const std::string& mine, const std::string& theirs) {
        const auto content = [&](const std::string& bytes) {
            return PageContent(site / "page.asp", bytes, CodePage("windows-1252"));
        };
        const PageContent base = content(ordersPage()), ours = content(mine),
                          other = content(theirs);
        const CompareDialog dialog("page.asp", base, ours, other);
        return dialog.findChild<QPlainTextEdit*>("ComparePane1")->toPlainText().toStdString();
    };
    std::string changed = ordersPage();
    changed.replace(changed.find("Generic"), 7, "Special");
    EXPECT_THAT(shown(changed, ordersPage()),
                AllOf(Not(HasSubstr("<html>")), HasSubstr("Special")));
    EXPECT_THAT(shown(changed, "<!-- theirs -->" + ordersPage()), HasSubstr("<html>"));
}

TEST_F(Files, AFileThatIsGoneIsMadeAnew) {
    PageEditor& editor = open("page.asp", ordersPage());
    std::filesystem::remove(site / "page.asp");
    ASSERT_TRUE(eventually([&] { return editor.notices().shows("disk"); }));
    press(editor.notices(), "Save again");
    EXPECT_EQ(ordersPage(), site.read("page.asp"));
    EXPECT_FALSE(editor.isModified());
}

TEST_F(Files, ClosingAsksAndSaysWhatWouldBeLost) {
    PageEditor& editor = open("page.asp", ordersPage());
    toggleExtraFilters(editor);
    dtc(editor).SSTab1.clickTab(2);
    dtc(editor).ZEKO.SelectedFieldsList.select({0}, 0);
    dtc(editor).ZEKO.RemoveField.press();
    dtc(editor).ZEKO.SelectedFieldsList.AddItem("2 - CUSTNO");
    command(Command::Close, "Cancel");
    EXPECT_THAT(said, AllOf(HasSubstr("extra filters of HeaderDTC1"),
                            HasSubstr("ZEKO return fields of HeaderDTC1: + 2 - CUSTNO, "
                                      "\xE2\x88\x92 1 - ORDNO"),
                            Not(HasSubstr("text of the page"))));
    EXPECT_EQ(&editor, window->tabs().current());
    EXPECT_FALSE(window->close());

    command(Command::Close, "Save");
    EXPECT_EQ(nullptr, window->tabs().current());
    EXPECT_THAT(site.read("page.asp"), HasSubstr("EnableExtraFilters"));
}

TEST_F(Files, ANewPageIsSavedUnderTheNameThatIsGiven) {
    open("sub/page.asp", ordersPage());
    command(Command::New);
    PageEditor& editor = *window->tabs().current();
    EXPECT_FALSE(editor.isModified());
    EXPECT_EQ("page1.asp", editor.title());
    editor.page().saveAs(site / "fresh.asp", EditedPage::Guard::RefuseLosses);
    settle();
    EXPECT_EQ("fresh.asp", editor.title());
    EXPECT_EQ(GeneratedPage::Verdict::UpToDate, check("fresh.asp").verdict);
}

TEST_F(Files, SeveralUnsavedPagesAreOneQuestionAtTheEnd) {
    change(open("one.asp", ordersPage()));
    change(open("two.asp", ordersPage()));
    for (const char* button : {"Cancel", "Save all"}) {
        answerDialogs([&](QWidget& dialog) { press(dialog, button); });
        EXPECT_EQ(window->close(), button == std::string_view("Save all"));
    }
    EXPECT_THAT(said, HasSubstr("one.asp\n\u2022 two.asp"));
    for (const char* page : {"one.asp", "two.asp"})
        EXPECT_THAT(site.read(page), HasSubstr("EnableExtraFilters"));
}

// ---- recovery -----------------------------------------------------------------------------------

class Recovery : public Files {
  protected:
    // What a crash leaves: the running editor's copies, without anybody who holds their lock.
    void crash() {
        const auto own = site / "recovery";
        ASSERT_TRUE(eventually([&] { return copies() > 0; }));
        std::filesystem::copy(own, site / "crashed", std::filesystem::copy_options::recursive);
        answerDialogs([](QWidget& dialog) { press(dialog, "Discard"); });
        window->close();
        window.reset();
        EXPECT_EQ(0, copies());
        for (const auto& session : std::filesystem::directory_iterator(site / "crashed")) {
            std::filesystem::remove(session.path() / "lock");
            std::filesystem::create_directories(own);
            std::filesystem::rename(session.path(), own / session.path().filename());
        }
        said.clear();
    }
    void offerRecovery(const char* answer) {
        answerDialogs([answer](QWidget& dialog) { press(dialog, answer); });
        window->offerRecovery();
    }
    int copies() const {
        int count = 0;
        std::error_code failure;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(site / "recovery", failure))
            count += entry.path().extension() == ".page" ? 1 : 0;
        return count;
    }
};

TEST_F(Recovery, UnsavedChangesAreOfferedAfterACrash) {
    openChanged();
    // Copies of an editor that runs are nobody else's.
    ASSERT_TRUE(eventually([&] { return copies() > 0; }));
    EXPECT_TRUE(RecoveryStore(site / "recovery").leftBehind().empty());
    crash();

    openWindow();
    offerRecovery("Decide later");
    EXPECT_EQ(1, copies());
    offerRecovery("Recover");
    PageEditor& recovered = *window->tabs().current();
    EXPECT_EQ(mine, recovered.page().content()->bytes());
    EXPECT_TRUE(recovered.isModified());
    EXPECT_EQ(ordersPage(), site.read("page.asp"));
    EXPECT_EQ(CheckState::Checked, dtc(recovered).EnableExtraFiltersCheck.Value());
    EXPECT_EQ(1, copies()) << "kept by this editor now";
    command(Command::Undo);
    EXPECT_EQ(ordersPage(), recovered.page().content()->bytes());
}

TEST_F(Recovery, WhatSomebodySavedSinceThenIsComparedBeforeItIsOverwritten) {
    openChanged();
    crash();
    const std::string theirs = "<!-- later -->" + ordersPage();
    site.write("page.asp", theirs);
    openWindow();
    offerRecovery("Recover");
    PageEditor& recovered = *window->tabs().current();
    EXPECT_EQ(mine, recovered.page().content()->bytes());
    EXPECT_TRUE(recovered.notices().shows("disk"));
    answerDialogs([&](QWidget& dialog) {
        EXPECT_EQ("CompareDialog", dialog.objectName().toStdString());
        press(dialog, "Decide later");
    });
    command(Command::Save);
    EXPECT_EQ(theirs, site.read("page.asp"));
    EXPECT_EQ(ordersPage(), recovered.page().saved()->bytes()) << "what both began from";
    command(Command::Undo);
    EXPECT_EQ(theirs, recovered.page().content()->bytes());
    EXPECT_EQ(1, copies()) << "nothing was decided";
}

TEST_F(Recovery, AChangeOfTheFileSinceThenIsSaidAndDiscardedCopiesAreGone) {
    openChanged();
    crash();
    site.write("page.asp", "<!-- later -->" + ordersPage());
    openWindow();
    answerDialogs([this](QWidget& dialog) {
        if (auto* list = dialog.findChild<QTreeWidget*>("RecoveryList"))
            said += list->topLevelItem(0)->text(2).toStdString();
        press(dialog, dialog.objectName() == "RecoveryDialog" ? "Discard..." : "Discard");
    });
    window->offerRecovery();
    EXPECT_THAT(said, HasSubstr("changed since"));
    EXPECT_EQ(0, copies());
    EXPECT_EQ(nullptr, window->tabs().current());
}

}  // namespace headerdtc::qt::files_test
