// What an author does to an open page: change, save, take back, write in the source.

#include "host/page/text_property_bag.h"
#include "qt/editor/window/page_status.h"
#include "qt/editor/window_fixture.h"

namespace headerdtc::qt::editing_test {

class Editing : public WindowTest {};

TEST_F(Editing, AChangeAtTheControlIsAStepThatIsSavedAndTakenBack) {
    PageEditor& editor = open("page.asp", ordersPage());
    for (int tab = 5; tab >= 0; --tab)
        dtc(editor).SSTab1.clickTab(tab);
    editor.controls().takeChanges();
    EXPECT_FALSE(window->isWindowModified()) << "looking is no change";
    change(editor);
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ("&Undo: switch extra filters", window->commands()[Command::Undo]->text());

    command(Command::Save);
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_THAT(site.read("page.asp"), HasSubstr("NAME=\"EnableExtraFilters\" VALUE=\"-1\""));
    EXPECT_EQ(GeneratedPage::Verdict::UpToDate, check("page.asp").verdict);

    const auto isMarked = [&] {
        const auto* box = editor.findChild<QCheckBox*>("EnableExtraFiltersCheck");
        return box->toolTip().contains("Differs from the saved page");
    };
    EXPECT_FALSE(isMarked());
    dtc(editor).SSTab1.clickTab(2);
    command(Command::Undo);
    EXPECT_TRUE(isMarked());
    EXPECT_EQ(2, dtc(editor).SSTab1.Tab()) << "the author is led to no other tab";
    EXPECT_EQ(CheckState::Unchecked, dtc(editor).EnableExtraFiltersCheck.Value());
    EXPECT_TRUE(window->isWindowModified());
    command(Command::Save);
    EXPECT_EQ(ordersPage(), site.read("page.asp"));

    command(Command::Redo);
    EXPECT_EQ(CheckState::Checked, dtc(editor).EnableExtraFiltersCheck.Value());
    EXPECT_TRUE(editor.findChild<QCheckBox*>("EnableExtraFiltersCheck")->isChecked());
}

// However the author leaves the editor over a cell, what is in it belongs to the page.
TEST_F(Editing, AValueThatIsStillBeingTypedGetsIntoThePage) {
    const std::vector<std::pair<const char*, std::function<void()>>> ways{
        {"save", [&] { command(Command::Save); }},
        {"close the page", [&] { command(Command::Close); }},
        {"close the window",
         [&] {
             window->close();
             openWindow();
         }},
        {"another page",
         [&] {
             command(Command::NextPage);
             command(Command::SaveAll);
         }},
        {"another tab",
         [&] {
             dtc(*window->tabs().current()).SSTab1.clickTab(0);
             command(Command::SaveAll);
         }},
    };
    for (std::size_t i = 0; i < ways.size(); ++i) {
        SCOPED_TRACE(ways[i].first);
        const std::string name = "page" + std::to_string(i) + ".asp";
        open("other.asp", ordersPage());
        PageEditor& editor =
            open(name, Site::page(Site::ordersParams() +
                                  Site::params("ZEKOCriteria1_1=ORDNO|ZEKOCriteria1_2===")));
        HeaderDTC& control = dtc(editor);
        control.SSTab1.clickTab(2);
        // The warning of the Del key, and what is asked when something is closed.
        answerDialogs([](QWidget& dialog) {
            press(dialog, dialog.objectName() == QLatin1String("UnsavedBox") ? "Save" : "OK");
        });
        control.ZEKO.CriteriaGrid.doubleClickCell(1, criteria_column::Value);
        auto* edit = editor.findChild<QLineEdit*>("ZEKOKeyFieldValueText");
        ASSERT_TRUE(eventually([&] { return !QApplication::activeModalWidget(); }));
        edit->setFocus();
        QTest::keyClicks(edit, "100200");
        ways[i].second();
        EXPECT_TRUE(i > 0 || window->focusWidget()->objectName() == "ZEKOCriteriaGrid");
        EXPECT_THAT(site.read(name), HasSubstr("NAME=\"ZEKOCriteria1_3\" VALUE=\"100200\""));
    }
}

TEST_F(Editing, SourceIsWrittenAroundTheControlByteForByte) {
    const std::string before = "caf\xE9\rone\n\x81 two\r\n";
    const std::string control = Site::control(Site::ordersParams(), Site::ordersText());
    const std::string after = "\nthree\xA0 end";
    PageEditor& editor = open("page.asp", before + control + after);
    SourceView& source = editor.source();
    source.setFocus();
    source.goToLine(3);
    QTest::keyClick(&source, Qt::Key_End);
    QTest::keyClicks(&source, " more");
    QTest::keyClick(&source, Qt::Key_Return);
    settle();
    command(Command::Save);
    EXPECT_EQ("caf\xE9\rone\n\x81 two more\r\n\r\n" + control + after, site.read("page.asp"));
    EXPECT_EQ("&Undo: edit the source", window->commands()[Command::Undo]->text());
}

TEST_F(Editing, TheControlsLinesAreNotWrittenInTheSource) {
    PageEditor& editor = open("page.asp", ordersPage());
    SourceView& source = editor.source();
    source.setFocus();
    source.setFolded("HeaderDTC1", false);
    source.goToLine(5);
    QTest::keyClicks(&source, "xyz");
    settle();
    source.selectAll();
    QTest::keyClick(&source, Qt::Key_Delete);
    settle();
    EXPECT_FALSE(editor.page().isModified());
    EXPECT_EQ(source.lines()->text(), source.toPlainText());
    EXPECT_TRUE(editor.notices().shows("span"));
    // Hidden again, it gives the focus back.
    command(Command::FocusSource);
    QToolButton* hide = editor.notices().findChildren<QToolButton*>().back();
    hide->setFocus();
    hide->click();
    EXPECT_TRUE(source.hasFocus());
}

TEST_F(Editing, ACharacterThatTheCodePageLacksIsShownAsItIsWritten) {
    PageEditor& editor = open("page.asp", "ab\n");
    SourceView& source = editor.source();
    QApplication::clipboard()->setText(QStringLiteral("\u03A9\u00A0"));
    source.setFocus();
    source.paste();
    settle();
    EXPECT_EQ(
        "&#937;\xA0"
        "ab\n",
        editor.page().content()->bytes());
    EXPECT_EQ(QStringLiteral("&#937;\u00A0ab"), source.document()->firstBlock().text());
}

TEST_F(Editing, ATextIsFoundWhileItIsTypedAndFurtherOnRoundTheEnds) {
    PageEditor& editor = open("plain.asp", "one two\ntwo One\n");
    command(Command::Find);
    auto* text = editor.findChild<QLineEdit*>("FindText");
    const auto foundAt = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(text, key, held);
        return editor.source().textCursor().selectionStart();
    };
    for (const Qt::Key letter : {Qt::Key_T, Qt::Key_W, Qt::Key_O})
        EXPECT_EQ(4, foundAt(letter));
    EXPECT_EQ(8, foundAt(Qt::Key_Return));
    EXPECT_EQ(4, foundAt(Qt::Key_Return));
    EXPECT_EQ(8, foundAt(Qt::Key_Return, Qt::ShiftModifier));
    text->setText("One");
    editor.findChild<QCheckBox*>("MatchCase")->setChecked(true);
    EXPECT_EQ(12, foundAt(Qt::Key_Return));
    QTest::keyClicks(text, "!");
    EXPECT_EQ("Not found", editor.findChild<QLabel*>("FindResult")->text());
    foundAt(Qt::Key_Escape);
    EXPECT_FALSE(text->isVisible());
    EXPECT_TRUE(editor.source().hasFocus());
}

TEST_F(Editing, TheControlsSpanIsFoldedAndShownOnDemand) {
    PageEditor& editor = open("page.asp", ordersPage());
    SourceView& source = editor.source();
    const auto isVisible = [&](int line) {
        return source.document()->findBlockByNumber(line - 1).isVisible();
    };
    EXPECT_TRUE(isVisible(3));
    EXPECT_FALSE(isVisible(4));
    source.goToLine(4);
    EXPECT_TRUE(isVisible(4));
    command(Command::ToggleFold);
    EXPECT_FALSE(isVisible(4));
}

// A control's text is script, and a page's directive has to come before all script.
TEST_F(Editing, AControlIsInsertedBehindTheDirectiveOrWhereTheCaretWasPut) {
    const std::string directive = "<%@ LANGUAGE=\"VBScript\" %>\r\n";
    PageEditor& editor = open("page.asp", directive + "<html>\r\n</html>\r\n");
    const auto before = [&](const char* text) {
        const std::string& page = editor.page().content()->bytes();
        return page.substr(0, page.find(text));
    };
    press(editor.controls(), "Insert control");
    EXPECT_EQ(directive, before("<!--METADATA"));
    EXPECT_FALSE(editor.notices().shows("insert"));
    command(Command::Undo);
    QTest::keyClick(&editor.source(), Qt::Key_Right);
    command(Command::InsertControl);
    EXPECT_EQ(directive, before("<!--METADATA"));
    EXPECT_TRUE(editor.notices().shows("insert"));
    command(Command::Undo);
    editor.source().goToLine(3);
    command(Command::InsertControl);
    EXPECT_EQ(directive + "<html>\r\n", before("<!--METADATA"));
    EXPECT_FALSE(editor.notices().shows("insert"));
}

TEST_F(Editing, ControlsAreInsertedChosenAndTakenOut) {
    PageEditor& editor = open("page.asp", "<html>\r\n</html>\r\n");
    EXPECT_EQ(nullptr, editor.controls().surface());
    editor.source().goToLine(2);
    command(Command::InsertControl);
    ASSERT_NE(nullptr, editor.controls().surface());
    EXPECT_EQ("HeaderDTC1", editor.controls().live()->id());
    editor.source().goToLine(1);
    command(Command::InsertControl);
    EXPECT_EQ("HeaderDTC2", editor.controls().live()->id());
    EXPECT_EQ(0U, editor.controls().current());

    auto* selector = editor.findChild<QComboBox*>("ControlSelector");
    EXPECT_TRUE(selector->isVisible());
    command(Command::Undo);
    EXPECT_FALSE(selector->isVisible()) << "there is one control";
    command(Command::Redo);
    QTest::keyClick(selector, Qt::Key_Down);
    EXPECT_EQ("HeaderDTC1", editor.controls().live()->id());
    command(Command::RemoveControl);
    EXPECT_EQ("HeaderDTC2", editor.controls().live()->id());
    command(Command::RemoveControl);
    EXPECT_EQ("<html>\r\n</html>\r\n", editor.page().content()->bytes());
    command(Command::Undo);
    EXPECT_EQ("HeaderDTC2", editor.controls().live()->id());
}

TEST_F(Editing, MarkupThatCannotBeReadIsSaidAndMendedInTheSource) {
    site.write("xsl/Generic.xsl", "");
    PageEditor& editor = open("page.asp", ordersPage() +
                                              "<!--METADATA TYPE=\"DesignerControl\" "
                                              "startspan\n<OBJECT ID=\"X\">\n");
    EXPECT_EQ(nullptr, editor.controls().surface());
    ASSERT_TRUE(eventually([&] { return window->messages().rowCount() > 0; }));
    EXPECT_GT(window->messages().message(0).place.line, 3);
    const auto size = editor.page().content()->bytes().size();
    editor.page().replaceText({ordersPage().size(), size}, "", {});
    settle();
    EXPECT_NE(nullptr, editor.controls().surface());
    EXPECT_TRUE(eventually([&] { return window->messages().rowCount() == 0; }));
}

// An expansion may show boxes, and its look-ups add to the dictionaries of the control that
// expands: never to the author's.
TEST_F(Editing, ThePreviewFollowsAtOnceAndTheAuthorsControlStaysAsItIs) {
    site.writeTemplate("<% ' <DATAPROVIDER>\n<SPECIFY_ZEKO_CRITERIA>\n%>\n");
    PageEditor& editor = open(
        "page.asp",
        Site::page(
            Site::ordersParams() +
                Site::params("ZEKOCriteria1_1=ORDNO|ZEKOCriteria1_2=<>|ZEKOCriteria1_3=Unlisted"),
            Site::ordersText()));
    const auto shows = [&](const char* line) {
        return editor.preview().text().toPlainText().contains(QLatin1String(line));
    };
    ASSERT_TRUE(eventually([&] { return shows("' Orders"); }));
    auto* summary = editor.findChild<QLabel*>("PreviewSummary");
    const auto bag = [&] {
        CollectingPropertyBag written;
        dtc(editor).UserControl_WriteProperties(written);
        return written.asStored();
    };
    const StoredProperties before = bag();
    dtc(editor).DataProvidersCombo.choose("Stock");
    ASSERT_TRUE(eventually([&] { return shows("' Stock"); }));
    EXPECT_TRUE(shows("mReturnFields.Add 1, \"ORDNO\"\n<% ' Stock\n"));
    EXPECT_EQ("Saving adds 2 lines and removes 2 lines.", summary->text());
    for (const Command way : {Command::NextChange, Command::PreviousChange}) {
        editor.preview().text().moveCursor(QTextCursor::End);
        command(way);
        EXPECT_EQ("<% ' Orders", editor.preview().text().textCursor().block().text());
    }
    command(Command::FocusSource);
    EXPECT_TRUE(editor.source().hasFocus());
    command(Command::FocusControl);
    EXPECT_TRUE(editor.controls().surface()->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(nullptr, QApplication::activeModalWidget());
    EXPECT_TRUE(eventually([&] {
        return Value(messages(),
                     Contains(HasSubstr("the operator \"<>\" of criterion 1 is unknown")));
    }));
    dtc(editor).DataProvidersCombo.choose("Orders");
    EXPECT_TRUE(eventually([&] { return !shows("' Stock"); }));
    EXPECT_EQ(before, bag());
}

TEST_F(Editing, TheStatusLineSaysHowThePageIsWritten) {
    PageEditor& editor = open("page.asp", "\xEF\xBB\xBF" + Site::page(Site::ordersParams()));
    auto* status = window->findChild<PageStatus*>();
    const auto says = [&](const char* words) {
        return eventually([&] { return status->text().contains(QLatin1String(words)); });
    };
    EXPECT_TRUE(says("utf-8 with byte-order mark   CR LF   1 control   out of date"))
        << status->text().toStdString();
    EXPECT_TRUE(status->toolTip().contains("ZEKO fields: ORDNO"));
    command(Command::Save);
    EXPECT_TRUE(says("up to date"));
    EXPECT_FALSE(editor.isModified());
}

TEST_F(Editing, UndoEndsARecordingAndIsSaid) {
    PageEditor& editor = open("page.asp", ordersPage());
    command(Command::Record);
    change(editor);
    command(Command::Undo);
    EXPECT_FALSE(window->recorder().isRecording());
    EXPECT_FALSE(window->commands()[Command::Record]->isChecked());
    EXPECT_TRUE(editor.notices().shows("recording"));
    EXPECT_EQ("{\"do\":\"click\",\"control\":\"EnableExtraFiltersCheck\"}\n{\"do\":\"save\"}\n",
              window->recorder().script());
}

TEST_F(Editing, MessagesStandInThePanelAndLeadToTheirPlace) {
    site.write("xsl/Generic.xsl", "");
    PageEditor& editor = open(
        "page.asp", Site::page(Site::ordersParams() + Site::param("ZEKOCriteria1_1", "ORDNO")));
    ASSERT_TRUE(eventually([&] { return window->messages().rowCount() > 0; }));
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("criterion 1 has no operator")));
    auto* panel = window->findChild<QWidget*>("MessagesDock");
    auto* count = window->findChild<QToolButton*>("MessageCount");
    EXPECT_EQ("1 warning", count->text());
    EXPECT_FALSE(panel->isVisible());
    count->click();
    EXPECT_TRUE(panel->isVisible());
    dtc(editor).SSTab1.clickTab(0);
    editor.goTo(window->messages().message(0).place);
    EXPECT_EQ(2, dtc(editor).SSTab1.Tab());
    EXPECT_EQ(1, dtc(editor).ZEKO.CriteriaGrid.Row());
    EXPECT_TRUE(said.empty());
    // Where the page is closed, what the site finds in it stays.
    command(Command::Close);
    EXPECT_TRUE(eventually([&] { return messages().size() == 1; }));
}

}  // namespace headerdtc::qt::editing_test
