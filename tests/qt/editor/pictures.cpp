// pictures FOLDER: draws the editor's windows, panels and dialogs as a newcomer meets them in the
// demo site, into PNG files. For the guide, and for whoever wants to see what a change looks like.
// Scale and platform are Qt's own settings (QT_SCALE_FACTOR, QT_QPA_PLATFORM); --dark draws them on
// a dark palette.

#include "core/header_dtc.h"
#include "qt/editor/files/compare_dialog.h"
#include "qt/editor/messages/message_model.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/page_editor.h"
#include "qt/editor/recovery/recovery_dialog.h"
#include "qt/editor/settings/settings_dialog.h"
#include "qt/editor/site/site_view.h"
#include "qt/editor/source/source_view.h"
#include "qt/editor/start/about_dialog.h"
#include "qt/editor/start/guide_window.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/page_tabs.h"
#include "support/temp_site.h"

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTest>
#include <QTimer>
#include <cstdio>

using namespace headerdtc;
using namespace headerdtc::qt;

namespace {

QString folder;

void useDarkPalette() {
    QPalette dark;
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor base(0x1e, 0x1f, 0x22);
    const QColor text(0xdf, 0xe1, 0xe5);
    const QColor faint(0x80, 0x84, 0x8a);
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::AlternateBase})
        dark.setColor(role, window);
    dark.setColor(QPalette::Base, base);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        dark.setColor(role, text);
    dark.setColor(QPalette::ToolTipBase, window);
    dark.setColor(QPalette::PlaceholderText, faint);
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x7f, 0xb2, 0xf0));
    dark.setColor(QPalette::Light, window.lighter(140));
    dark.setColor(QPalette::Mid, window.darker(140));
    dark.setColor(QPalette::Dark, window.darker(170));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, faint);
    QApplication::setPalette(dark);
}

void settle(int milliseconds = 500) {
    QTest::qWait(milliseconds);
}

void draw(QWidget& widget, const char* name) {
    settle(150);
    const QString file = folder + QLatin1Char('/') + QLatin1String(name) + QLatin1String(".png");
    if (!widget.grab().save(file)) std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
}

// Draws the dialog that `open` opens, and closes it.
template <class Open>
void drawDialog(const char* name, Open open, const char* press = nullptr) {
    QTimer::singleShot(400, [name, press] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        if (press) {
            if (auto* button = dialog->findChild<QPushButton*>(QLatin1String(press))) {
                button->click();
                settle(800);
            }
        }
        draw(*dialog, name);
        dialog->close();
    });
    open();
}

void waitForSite(MainWindow& window) {
    if (!QTest::qWaitFor([&] { return !window.site().run().isRunning(); }, 20000))
        std::fprintf(stderr, "the site is still being checked\n");
    settle();
}

}  // namespace

int main(int argc, char** argv) {
    QStandardPaths::setTestModeEnabled(true);
    const headerdtc::testing::TempFolder home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(home.path().string()));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("headerdtc-pictures"));
    QApplication::setApplicationDisplayName(QStringLiteral("HeaderDTC page editor"));
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("dark"), QStringLiteral("On a dark palette.")});
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where they go."));
    parser.process(application);
    if (parser.isSet(QStringLiteral("dark"))) useDarkPalette();
    folder = parser.positionalArguments().value(0, QStringLiteral("."));
    QDir().mkpath(folder);

    MainWindow window({.configuration = {}, .recoveryFolder = home / "recovery"});
    window.resize(1360, 860);
    window.show();
    draw(window, "start");

    QElapsedTimer clock;
    clock.start();
    window.openDemo(home / "demo");
    const qint64 opened = clock.elapsed();
    QApplication::processEvents();
    std::printf("demo copied and opened in %lld ms, painted after %lld ms\n", opened,
                clock.elapsed());
    waitForSite(window);
    draw(window, "page");

    PageEditor& editor = *window.tabs().current();
    for (int tab = 1; tab <= 5; ++tab) {
        editor.controls().live()->dtc().SSTab1.clickTab(tab);
        settle(300);
        draw(window, ("tab" + std::to_string(tab)).c_str());
    }
    editor.controls().live()->dtc().SSTab1.clickTab(0);
    editor.source().setFolded("HeaderDTC1", false);
    draw(window, "unfolded");
    editor.source().setFolded("HeaderDTC1", true);

    // A change, and what it would do to the page.
    editor.controls().live()->dtc().EnableExtraFiltersCheck.toggle();
    editor.controls().takeChanges();
    settle(900);
    draw(window, "changed");
    const auto menus = window.menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
    for (QMenu* menu : menus) {
        menu->popup(window.mapToGlobal(QPoint(20, 30)));
        draw(*menu,
             ("menu-" + menu->title().remove(QLatin1Char('&')).toLower().toStdString()).c_str());
        menu->close();
    }
    drawDialog("unsaved", [&] { window.tabs().close(&editor); });
    drawDialog("save-refused", [&] {
        editor.page().noteDoubt("HeaderDTC1",
                                "a stored property would come back different: "
                                "DataProvider is \"Gone\" and would be gone");
        (*window.commands().operator[](Command::Save)).trigger();
    });
    draw(window, "doubt");
    drawDialog("compare", [&] {
        std::string theirs = editor.page().saved()->bytes();
        const auto at = theirs.find("</head>");
        theirs.insert(at, "<!-- written by somebody else -->\r\n");
        const PageContent other(editor.page().file(), theirs, editor.page().content()->codePage());
        CompareDialog dialog(editor.title(), *editor.page().saved(), *editor.page().content(),
                             other, &window);
        dialog.exec();
    });
    drawDialog(
        "settings", [&] { window.commands()[Command::Settings]->trigger(); },
        "TestConnectionButton");
    drawDialog("about", [&] { showAbout(&window); });
    drawDialog("recovery", [&] {
        const RecoveryCopy copy{.page = editor.page().file(),
                                .hasFile = true,
                                .stamp = editor.page().stamp(),
                                .bytes = {},
                                .when = QDateTime::currentDateTimeUtc(),
                                .copy = {}};
        RecoveryDialog dialog({copy}, &window);
        dialog.exec();
    });
    editor.find();
    draw(window, "find");

    window.tabs().openNew(home / "demo");
    settle(800);
    draw(window, "new");
    window.open(home / "demo" / "index.asp");
    settle(800);
    draw(window, "without-control");

    GuideWindow guide;
    guide.showGuide(QStringLiteral("the-editor-tab-by-tab"));
    draw(guide, "guide");
    return 0;
}
