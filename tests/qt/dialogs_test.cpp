#include "i18n/translation_dialogs.h"
#include "i18n/translation_store.h"
#include "qt/surface/qt_faces.h"
#include "qt/surface_fixture.h"
#include "scripts/specify_criterium_dialog.h"

namespace headerdtc::dialogs_test {

class DialogsTest : public Test, protected Person {
  protected:
    DialogsTest() {
        outside.database.execute = [](const std::string&) { return FakeRows(); };
    }

    // Runs a dialog with somebody before it.
    void show(Form& form, const std::function<void(QWidget&)>& person) {
        QTimer::singleShot(0, [&] {
            QWidget& window = *QApplication::activeModalWidget();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&window, Patience));
            person(window);
        });
        form.ShowModal();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
    template <class Widget = QWidget>
    static Widget& in(QWidget& window, const char* name) {
        return *window.findChild<Widget*>(name);
    }

    FakeSurroundings outside;
    Surroundings surroundings = outside.all();
    qt::QtModalLoop loop;
    HeaderDTC dtc{surroundings, loop};
    TranslationStore store{surroundings};
    AddLabelDialog label{dtc.desktop, surroundings, store};
};

TEST_F(DialogsTest, EnterEscapeAndTheWindowsOwnCloseAreTheForms) {
    EventRecorder events(label.form);
    show(label.form, [&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Add label");
        EXPECT_TRUE(in<QPushButton>(window, "OKButton").isDefault());
        type(window, "SLBDA2001");
        press(window, Qt::Key_Tab);
        press(window, Qt::Key_Return);
    });
    EXPECT_THAT(events.take(), EndsWith(", OKButton.GotFocus, OKButton.Click"));
    EXPECT_EQ(label.LabelNameText.Text(), "SLBDA2001");
    show(label.form, [&](QWidget& window) {
        // What the window marks for overwriting the model knows.
        EXPECT_EQ(in<QLineEdit>(window, "LabelNameText").selectedText(), "SLBDA2001");
        EXPECT_EQ(label.LabelNameText.SelLength(), 9);
        press(window, Qt::Key_Escape);
    });
    EXPECT_THAT(events.take(), EndsWith("LostFocus, CancelButton.GotFocus, CancelButton.Click"));
    show(label.form, [](QWidget& window) { window.close(); });
    EXPECT_THAT(events.take(), EndsWith("LostFocus, CancelButton.GotFocus, CancelButton.Click"));
    // A form that does not want to close stays, and its window with it.
    label.CancelButton.Enabled(false);
    show(label.form, [&](QWidget& window) {
        window.close();
        EXPECT_TRUE(window.isVisible());
        press(window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        click(in(window, "OKButton"));
    });
}

// Both dialogs are left by it.
TEST_F(DialogsTest, AFailureOfAHandlerReachesWhoeverOpenedTheDialog) {
    AddI18NFieldQuestionDialog question(dtc.desktop);
    Subscriptions subscriptions;
    subscriptions +=
        question.OKButton.Click.subscribe([] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    const auto pressOk = [](QWidget& window) { click(in(window, "OKButton")); };
    subscriptions += label.OKButton.GotFocus.subscribe([&] { show(question.form, pressOk); });
    EXPECT_EQ(numberOf([&] { show(label.form, pressOk); }), 13);
    EXPECT_TRUE(dtc.desktop.modalForms().empty());
}

TEST_F(DialogsTest, ScriptsKeepTheirLineEnds) {
    SpecifyCriteriumDialog dialog(dtc);
    dialog.ValueType(USERSCRIPT);
    dialog.ScriptBodyText.Text("a\nb\r\n");
    show(dialog.form, [&](QWidget& window) {
        auto& body = in<QPlainTextEdit>(window, "ScriptBodyText");
        EXPECT_EQ(body.font().family(), "Courier New");
        EXPECT_EQ(in<QRadioButton>(window, "LocalScriptOption").text(), "&Local script");
        click(*body.viewport(), {3, 3});
        EXPECT_EQ(dialog.ScriptBodyText.Text(), "a\nb\r\n") << "a click edits nothing";
        press(window, Qt::Key_End, Qt::ControlModifier);
        type(window, "c");
        press(window, Qt::Key_Return, Qt::ShiftModifier);
        type(window, "d");
        EXPECT_EQ(dialog.ScriptBodyText.Text(), "a\nb\r\nc\r\nd");
        EXPECT_EQ(dialog.ScriptBodyText.SelStart(), 9);
        // Enter is the text's, and Tab leads out of it.
        press(window, Qt::Key_Tab);
        EXPECT_FALSE(dialog.ScriptBodyText.hasFocus());
        click(in(window, "LocalScriptOption"));
        press(window, Qt::Key_Up);
        EXPECT_TRUE(dialog.IncludedScriptOption.Value());
        EXPECT_EQ(dialog.form.ActiveControl(), &dialog.IncludedScriptOption);
        press(window, Qt::Key_Escape);
    });
}

TEST_F(DialogsTest, MessagesAreShownAsTheyAre) {
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->windowTitle(), "HeaderDTC");
        EXPECT_EQ(box->text(), "Field '<b>'");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->buttons().size(), 1);
        box->accept();
    });
    qt::QtMessageBox().show("Field '<b>'");
}

TEST_F(DialogsTest, TheFileDialogAsksAndAnswersInWindowsPaths) {
    QTemporaryDir folder;
    QFile(folder.filePath("Extra.asp")).open(QFile::WriteOnly);
    qt::QtFileDialog files(
        [&](const std::string& path) {
            return folder.path() + qt::toQt(path).mid(2).replace('\\', '/');
        },
        [&](const QString& path) {
            return "C:" + qt::fromQt(QString(path.mid(folder.path().size())).replace('/', '\\'));
        });
    const auto ask = [&](const std::function<void(QFileDialog&)>& person) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            person(*dialog);
        });
        // The folder xsl is not there.
        return files.open({"Browse for include ASP", "C:\\/xsl", "ASP files (*.asp)|*.asp"});
    };
    EXPECT_EQ(ask([&](QFileDialog& dialog) {
                  EXPECT_EQ(dialog.windowTitle(), "Browse for include ASP");
                  EXPECT_EQ(dialog.directory(), QDir(folder.path()));
                  EXPECT_EQ(dialog.nameFilters(), QStringList("ASP files (*.asp)"));
                  dialog.selectFile(folder.filePath("Extra.asp"));
                  static_cast<QDialog&>(dialog).accept();
              }),
              "C:\\Extra.asp");
    EXPECT_EQ(ask([](QFileDialog& dialog) { dialog.reject(); }), "");
    EXPECT_EQ(qt::nameFilters("All|*.*|Two|*.a;*.b"), (QStringList{"All (*.*)", "Two (*.a *.b)"}));
}

}  // namespace headerdtc::dialogs_test
