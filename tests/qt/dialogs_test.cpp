#include "qt/sample_dialogs.h"
#include "qt/surface/qt_file_dialog.h"
#include "qt/surface/qt_message_box.h"
#include "qt/surface/qt_modal_loop.h"
#include "qt/surface_fixture.h"

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTimer>

namespace headerdtc {
namespace {

using ::testing::ElementsAre;

class DialogsTest : public ::testing::Test, protected Person {
  protected:
    // Runs a dialog with somebody before it.
    void show(testing::SampleDialog& dialog, const std::function<void(QWidget&)>& person) {
        QTimer::singleShot(0, [&] {
            QWidget& window = *QApplication::activeModalWidget();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
            person(window);
        });
        dialog.form.ShowModal();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
    template <class Widget = QWidget>
    static Widget& in(QWidget& window, const char* name) {
        return *window.findChild<Widget*>(name);
    }

    qt::QtModalLoop loop;
    Desktop desktop{loop};
};

TEST_F(DialogsTest, EveryDialogFormFitsItsControls) {
    testing::SampleCriteriumDialog criterium(desktop);
    testing::SampleQuestionDialog question(desktop);
    testing::SampleLabelDialog label(desktop);
    testing::SampleFieldnameDialog fieldname(desktop);
    testing::SampleFieldValueDialog values(desktop);
    for (testing::SampleDialog* dialog : std::initializer_list<testing::SampleDialog*>{
             &criterium, &question, &label, &fieldname, &values}) {
        show(*dialog, [&](QWidget& window) {
            EXPECT_EQ(qt::fromQt(window.windowTitle()), dialog->form.caption());
            EXPECT_TRUE(dialog->form.isReachable());
            click(in(window, "OKButton"));
        });
        EXPECT_TRUE(dialog->accepted) << dialog->form.name();
    }
}

TEST_F(DialogsTest, EnterEscapeAndTheWindowsOwnCloseAreTheForms) {
    testing::SampleLabelDialog dialog(desktop);
    show(dialog, [&](QWidget& window) {
        type(window, "SLBDA2001");
        press(window, Qt::Key_Tab);
        press(window, Qt::Key_Return);
    });
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.LabelNameText.Text(), "SLBDA2001");
    testing::EventRecorder events(dialog.form);
    const auto dismissed = [&](const std::function<void(QWidget&)>& person) {
        dialog.accepted = false;
        show(dialog, person);
        const auto raised = events.take();
        EXPECT_EQ(std::count(raised.begin(), raised.end(), "CancelButton.Click"), 1);
        EXPECT_FALSE(dialog.accepted);
    };
    dismissed([&](QWidget& window) { press(window, Qt::Key_Escape); });
    dismissed([](QWidget& window) { window.close(); });
    // A form that does not want to close stays, and its window with it.
    dialog.CancelButton.Enabled(false);
    show(dialog, [&](QWidget& window) {
        window.close();
        EXPECT_TRUE(window.isVisible());
        press(window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        click(in(window, "OKButton"));
    });
}

TEST_F(DialogsTest, AFailureOfAHandlerReachesWhoeverOpenedTheDialog) {
    testing::SampleLabelDialog outer(desktop);
    testing::SampleQuestionDialog inner(desktop);
    inner.subscriptions +=
        inner.OKButton.Click.subscribe([] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    int caught = 0;
    outer.subscriptions += outer.OKButton.GotFocus.subscribe(
        [&] { show(inner, [&](QWidget& window) { click(in(window, "OKButton")); }); });
    // The outer dialog is left too, by the same failure.
    caught = errorOf([&] {
        QTimer::singleShot(0, [&] {
            QWidget& window = *QApplication::activeModalWidget();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
            click(in(window, "OKButton"));
        });
        outer.form.ShowModal();
    });
    EXPECT_EQ(caught, 13);
    EXPECT_TRUE(desktop.modalForms().empty());
}

TEST_F(DialogsTest, ScriptsKeepTheirLineEnds) {
    testing::SampleCriteriumDialog dialog(desktop);
    dialog.ScriptBodyText.Text("a\nb\r\n");
    show(dialog, [&](QWidget& window) {
        auto& body = in<QPlainTextEdit>(window, "ScriptBodyText");
        EXPECT_EQ(body.font().family(), "Courier New");
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
        EXPECT_EQ(dialog.form.ActiveControl(), &dialog.ScriptText);
        type(window, "x");
        EXPECT_EQ(dialog.ScriptText.Text(), "");
        dialog.ScriptText.Enabled(false);
        click(*in<QPlainTextEdit>(window, "ScriptText").viewport(), {3, 3});
        EXPECT_EQ(dialog.form.ActiveControl(), nullptr);
        click(in(window, "LocalScriptOption"));
        press(window, Qt::Key_Up);
        EXPECT_TRUE(dialog.IncludedScriptOption.Value());
        EXPECT_EQ(dialog.form.ActiveControl(), &dialog.IncludedScriptOption);
        press(window, Qt::Key_Escape);
    });
}

TEST_F(DialogsTest, AnEditableComboTakesWhatIsTypedAndChoosesNothing) {
    testing::SampleFieldnameDialog dialog(desktop);
    fill(dialog.LabelsCombo, {"SLBDA1", "SLBDA10"});
    testing::EventRecorder events(dialog.form);
    show(dialog, [&](QWidget& window) {
        auto& combo = in<QComboBox>(window, "LabelsCombo");
        dialog.LabelsCombo.focus();
        settle();
        events.take();
        type(window, "SLBDA1");
        EXPECT_EQ(qt::fromQt(combo.currentText()), "SLBDA1");
        press(window, Qt::Key_Tab);
        EXPECT_EQ(dialog.LabelsCombo.Text(), "SLBDA1");
        EXPECT_EQ(dialog.LabelsCombo.ListIndex(), -1);
        const auto raised = events.take();
        EXPECT_EQ(std::count(raised.begin(), raised.end(), "LabelsCombo.Click"), 0);
        dialog.LabelsCombo.focus();
        press(window, Qt::Key_Down);
        EXPECT_EQ(dialog.LabelsCombo.ListIndex(), 0);
        press(window, Qt::Key_Escape);
    });
}

TEST_F(DialogsTest, MessagesAreShownAsTheyAre) {
    qt::QtMessageBox messages;
    QString title, text;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        title = box->windowTitle();
        text = box->text();
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->buttons().size(), 1);
        box->accept();
    });
    messages.show("Field '<b>'");
    EXPECT_EQ(title, "HeaderDTC");
    EXPECT_EQ(text, "Field '<b>'");
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

}  // namespace
}  // namespace headerdtc
