// What assistive technology reads aloud of the windows around the control.

#include "qt/editor/window_fixture.h"
#include "qt/surface/shades.h"

namespace headerdtc::qt::names_test {

class Names : public WindowTest {
  protected:
    // The widgets that take the focus and have nothing to be called by, or lack the icon that their
    // form asks for.
    static std::vector<std::string> nameless(QWidget& window) {
        std::vector<std::string> found;
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            const QString icon = widget->property("iconName").toString();
            if (button && !icon.isEmpty() && button->icon().isNull())
                found.push_back("no icon " + icon.toStdString());
            const bool isReached = (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() &&
                                   !widget->focusProxy() && widget->window() == &window;
            // Parts of other widgets, which are known by those; the main window's own bar of docks.
            const bool isPart = widget->objectName().startsWith(QLatin1String("qt_")) ||
                                qobject_cast<QComboBox*>(widget->parentWidget()) ||
                                qobject_cast<QMainWindow*>(widget->parentWidget());
            if (!isReached || isPart) continue;
            const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
            if (face && !face->text(QAccessible::Name).isEmpty()) continue;
            found.push_back(std::string(widget->metaObject()->className()) + " " +
                            widget->objectName().toStdString());
        }
        return found;
    }
};

TEST_F(Names, EveryWidgetOfTheWindowHasAName) {
    EXPECT_THAT(nameless(*window), IsEmpty()) << "at the start";
    PageEditor& editor = open("page.asp", ordersPage());
    editor.insertControl();  // for the choice between two
    editor.find();
    for (int tab = 0; tab < 6; ++tab) {
        dtc(editor).SSTab1.clickTab(tab);
        settle();
        EXPECT_THAT(nameless(*window), IsEmpty()) << "tab " << tab;
    }
    open("plain.asp", "<html>\n</html>\n");
    EXPECT_THAT(nameless(*window), IsEmpty()) << "without a control";
}

// Menus, docks, the tabs of the control and what stands on each of them.
TEST_F(Names, NoTwoThingsInTheWindowHaveTheSameLetter) {
    PageEditor& editor = open("page.asp", ordersPage());
    editor.insertControl();
    editor.find();
    auto& tabs = *editor.findChild<QTabWidget*>("SSTab1");
    for (int tab = 0; tab < 6; ++tab) {
        dtc(editor).SSTab1.clickTab(tab);
        settle();
        QStringList texts;
        for (const QAction* menu : window->menuBar()->actions())
            texts += menu->text();
        for (int each = 0; each < tabs.count(); ++each)
            texts += tabs.tabText(each);
        for (const QString& text : texts)
            EXPECT_TRUE(text.contains('&')) << text.toStdString();
        for (const auto* button : window->findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || qobject_cast<const QToolButton*>(button)) continue;
            texts += button->text();
            EXPECT_FALSE(button->text() == "Add" || button->text() == "Delete") << tab;
        }
        for (const auto* label : window->findChildren<QLabel*>()) {
            if (label->buddy() && label->isVisible()) texts += label->text();
        }
        QStringList letters;
        for (const QString& text : texts) {
            if (const auto key = QKeySequence::mnemonic(text); !key.isEmpty())
                letters += key.toString();
        }
        EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(' ').toStdString();
    }
}

TEST_F(Names, EveryWidgetOfTheDialogsHasAName) {
    PageEditor& editor = open("page.asp", ordersPage());
    answerDialogs([](QWidget& dialog) {
        EXPECT_THAT(nameless(dialog), IsEmpty()) << dialog.objectName().toStdString();
        dialog.close();
    });
    command(Command::Settings);
    command(Command::About);
    change(editor);
    site.write("page.asp", "<!-- theirs -->" + ordersPage());
    command(Command::Save);
    command(Command::Close);
}

// A desktop that names no such grey leaves a dark window with 1.6.
TEST(Shades, AGreyThatCannotBeReadIsMixedAnewAndOthersAreKept) {
    EXPECT_NEAR(21, contrast(Qt::black, Qt::white), 0.01);
    QPalette dark(QColor(0x40, 0x44, 0x49));
    dark.setColor(QPalette::PlaceholderText, QColor(0x20, 0x22, 0x24));
    const QPalette readable = withReadableGrey(dark);
    for (const auto ground : {QPalette::Window, QPalette::Base})
        EXPECT_GE(contrast(readable.color(QPalette::PlaceholderText), readable.color(ground)), 4.5);
    EXPECT_EQ(readable, withReadableGrey(readable));
}

}  // namespace headerdtc::qt::names_test
