// What assistive technology reads aloud of the windows around the control.

#include "qt/editor/start/guide_window.h"
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

// Menus, docks, the tabs of the control and what stands on each of them.
TEST_F(Names, EveryWidgetHasANameAndNoTwoThingsTheSameLetter) {
    EXPECT_THAT(nameless(*window), IsEmpty()) << "at the start";
    PageEditor& editor = open("page.asp", ordersPage());
    editor.insertControl();  // for the choice between two
    editor.find();
    auto& tabs = *editor.findChild<QTabWidget*>("SSTab1");
    for (int tab = 0; tab < 6; ++tab) {
        dtc(editor).SSTab1.clickTab(tab);
        settle();
        EXPECT_THAT(nameless(*window), IsEmpty()) << "tab " << tab;
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
    open("plain.asp", "<html>\n</html>\n");
    EXPECT_THAT(nameless(*window), IsEmpty()) << "without a control";
}

TEST_F(Names, HelpIsTheChapterOnWhatHasTheFocus) {
    PageEditor& editor = open("page.asp", ordersPage());
    auto& guide = *window->findChild<GuideWindow*>();
    const auto chapter = [&] {
        return guide.findChild<QTextBrowser*>()->textCursor().block().text().toStdString();
    };
    const std::pair<const char*, const char*> chapters[] = {{"DataProvidersCombo", "General"},
                                                            {"ZEKOFieldsList", "EAI and ZEKO"},
                                                            {"SSTab1", "EAI and ZEKO"},
                                                            {"SiteSearch", "The site"},
                                                            {"PreviewText", "Generated text"}};
    for (const auto& [part, expected] : chapters) {
        guide.close();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), Patience));
        dtc(editor).SSTab1.clickTab(*part == 'D' ? 0 : 2);
        window->findChild<QWidget*>(part)->setFocus();
        command(Command::Help);
        EXPECT_EQ(expected, chapter());
    }
    for (const char* each : {"Back", "Back", "Contents", "Back"})
        press(guide, each);
    EXPECT_EQ("EAI and ZEKO", chapter());
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

TEST(Shades, WhatCanBeMarkedHasAFrameThatShowsOnEveryGround) {
    const ReadableStyle style(QStringLiteral("fusion"));
    for (const QColor ground : {QColor(0xef, 0xef, 0xef), QColor(0x2b, 0x2d, 0x30)}) {
        for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
            QStyleOptionButton option;
            option.palette = QPalette(ground);
            option.rect = {0, 0, 16, 16};
            QImage drawn(option.rect.size(), QImage::Format_RGB32);
            drawn.fill(ground);
            QPainter painter(&drawn);
            style.drawPrimitive(element, &option, &painter, nullptr);
            double best = 0;
            for (int x = 0; x < drawn.width(); ++x)
                best = std::max(best, contrast(drawn.pixelColor(x, 8), ground));
            EXPECT_GE(best, 3) << element << " on " << ground.name().toStdString();
        }
    }
}

}  // namespace headerdtc::qt::names_test
