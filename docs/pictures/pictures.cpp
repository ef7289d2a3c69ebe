// editor_pictures FOLDER: draws the editor's windows, panels and dialogs, and those of the control,
// as a newcomer meets them in the demo site, into PNG files. For the guide, and for whoever wants
// to see what a change looks like. Scale and platform are Qt's own settings (QT_SCALE_FACTOR,
// QT_QPA_PLATFORM); --dark draws them on a dark palette.

#include "core/header_dtc.h"
#include "qt/editor/page/compare_dialog.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/preview/preview_pane.h"
#include "qt/editor/settings/settings_dialog.h"
#include "qt/editor/site/site_view.h"
#include "qt/editor/source/source_view.h"
#include "qt/editor/start/guide_window.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/message_model.h"
#include "qt/editor/window/opener.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"
#include "qt/editor/workspace/recovery_dialog.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/shades.h"
#include "support/temp_site.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <vector>

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

void draw(QWidget& widget, const QString& name) {
    // The focus shows in the active window only.
    widget.window()->activateWindow();
    settle(150);
    const QString file = folder + QLatin1Char('/') + name + QLatin1String(".png");
    if (!widget.grab().save(file)) std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
}

using Step = std::function<void(QWidget& dialog)>;

// Does what opens a dialog, then one step after the other in whatever dialog is in front by then.
// Dialogs that are still open at the end are closed.
void inDialogs(const std::function<void()>& open, std::vector<Step> steps) {
    std::size_t next = 0;
    std::function<void()> goOn = [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (next == steps.size() && !dialog) return;
        // Before the step, which returns only when the dialogs that it opens are closed.
        QTimer::singleShot(400, goOn);
        if (!dialog) return;
        if (next < steps.size()) {
            steps[next++](*dialog);
        } else {
            dialog->close();
        }
    };
    QTimer::singleShot(400, goOn);
    open();
    while (next < steps.size() || QApplication::activeModalWidget())
        settle(100);
    settle(500);
}

Step drawn(const char* name) {
    return [name](QWidget& dialog) { draw(dialog, QLatin1String(name)); };
}

Step pressed(const char* name) {
    return [name](QWidget& dialog) {
        auto* button = dialog.findChild<QAbstractButton*>(QLatin1String(name));
        if (button) button->click();
    };
}

void drawDialog(const char* name, const std::function<void()>& open) {
    inDialogs(open, {drawn(name)});
}

void waitForSite(MainWindow& window) {
    if (!QTest::qWaitFor([&] { return !window.site().run().isRunning(); }, 20000))
        std::fprintf(stderr, "the site is still being checked\n");
    settle();
}

// ---- the control -------------------------------------------------------------------------------

void drawInPlaceEditors(MainWindow& window, HeaderDTC& dtc) {
    QWidget& page = *window.tabs().current();
    const auto shown = [&](const char* name, int column) {
        page.findChild<QWidget*>(QStringLiteral("ZEKOCriteriaGrid"))->setFocus();
        dtc.ZEKO.CriteriaGrid.clickCell(2, column);
        settle(200);
        draw(window, QLatin1String(name));
    };
    dtc.SSTab1.clickTab(2);
    shown("cell-key", criteria_column::Key);
    auto* combo = page.findChild<QComboBox*>(QStringLiteral("ZEKOKeyFieldsCombo"));
    combo->showPopup();
    draw(*combo->view()->window(), QStringLiteral("cell-key-list"));
    combo->hidePopup();
    shown("cell-operator", criteria_column::Operator);
    shown("cell-value", criteria_column::Value);
    dtc.ZEKO.CriteriaGrid.clickCell(1, criteria_column::Marker);
}

void drawControlDialogs(HeaderDTC& dtc) {
    FamilyControls& zeko = dtc.ZEKO;
    dtc.SSTab1.clickTab(2);
    drawDialog("criterium", [&] { zeko.CriteriaGrid.clickCell(3, criteria_column::Script); });
    drawDialog("message", [&] { zeko.CriteriaGrid.doubleClickCell(1, criteria_column::Value); });
    dtc.SSTab1.clickTab(0);
    drawDialog("file-dialog", [&] { dtc.BrowseForXSLFileCommand.press(); });
    dtc.SSTab1.clickTab(3);
    inDialogs(
        [&] {
            zeko.I18NFieldnamesList.select({0, 1, 2, 3, 5}, 5);
        },
        {drawn("translate-question"), pressed("OKButton"), drawn("translate-name"),
         pressed("AddLabelCommand"), drawn("add-label"), [](QWidget& dialog) { dialog.close(); }});
    drawDialog("translate-values", [&] { zeko.I18NFieldValuesList.select({3}, 3); });
}

// Where the keys go.
void drawFocus(MainWindow& window) {
    QWidget& page = *window.tabs().current();
    page.findChild<QTabWidget*>(QStringLiteral("SSTab1"))->tabBar()->setFocus(Qt::TabFocusReason);
    for (const char* name : {"text", "list", "button"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        draw(page, QStringLiteral("focus-") + QLatin1String(name));
    }
    page.findChild<QTabWidget*>(QStringLiteral("SSTab1"))->tabBar()->setFocus(Qt::TabFocusReason);
    draw(page, QStringLiteral("focus-tabs"));
}

void drawControl(MainWindow& window) {
    HeaderDTC& dtc = window.tabs().current()->controls().live()->dtc();
    for (int tab = 1; tab <= 5; ++tab) {
        dtc.SSTab1.clickTab(tab);
        settle(300);
        draw(window, QStringLiteral("tab%1").arg(tab));
        draw(*window.tabs().current()->controls().surface(), QStringLiteral("surface%1").arg(tab));
    }
    drawInPlaceEditors(window, dtc);
    drawFocus(window);
    drawControlDialogs(dtc);
    dtc.SSTab1.clickTab(0);
}

// ---- the window around it ----------------------------------------------------------------------

void drawMenus(MainWindow& window) {
    for (QMenu* menu : window.menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        if (menu->title().isEmpty()) continue;
        menu->popup(window.mapToGlobal(QPoint(20, 30)));
        draw(*menu, QStringLiteral("menu-") + menu->title().remove(QLatin1Char('&')).toLower());
        menu->close();
    }
}

void drawCompare(MainWindow& window, PageEditor& editor) {
    std::string theirs = editor.page().saved()->bytes();
    theirs.insert(theirs.find("</head>"), "<!-- written by somebody else -->\r\n");
    const PageContent other(editor.page().file(), theirs, editor.page().content()->codePage());
    CompareDialog dialog(editor.title(), *editor.page().saved(), *editor.page().content(), other,
                         &window);
    drawDialog("compare", [&] { dialog.exec(); });
}

void drawRecovery(MainWindow& window, PageEditor& editor) {
    const RecoveryCopy copy{.page = editor.page().file(),
                            .hasFile = true,
                            .base = {},
                            .bytes = {},
                            .when = QDateTime::currentDateTimeUtc(),
                            .copy = {}};
    RecoveryDialog dialog({copy}, &window);
    drawDialog("recovery", [&] { dialog.exec(); });
}

// A change, and what it would do to the page.
void drawChange(MainWindow& window) {
    PageEditor& editor = *window.tabs().current();
    editor.controls().live()->dtc().EnableExtraFiltersCheck.toggle();
    editor.controls().takeChanges();
    settle(900);
    draw(window, QStringLiteral("changed"));
    draw(editor.preview(), QStringLiteral("changes"));
    drawMenus(window);
    drawDialog("unsaved", [&] { window.tabs().close(&editor); });
    drawCompare(window, editor);
    drawRecovery(window, editor);
    inDialogs([&] { window.commands()[Command::Settings]->trigger(); },
              {pressed("LookAgainButton"), drawn("settings")});
    drawDialog("about", [&] { showAbout(&window); });
    window.activateWindow();
    settle();
    editor.find();
    QTest::keyClicks(editor.findChild<QLineEdit*>(QStringLiteral("FindText")), "Render");
    draw(window, QStringLiteral("find"));
    drawDialog("save-refused", [&] {
        const PageContentPtr content = editor.page().content();
        StoredProperties properties = content->controls().front().properties;
        for (auto& [name, value] : properties) {
            if (name == "DataProvider") value = "Gone";
        }
        editor.page().setProperties(0, properties);
        settle();
        window.commands()[Command::Save]->trigger();
    });
    draw(window, QStringLiteral("doubt"));
}

// Pages with faults: what the messages and the site view tell of them.
void drawFaults(MainWindow& window, const headerdtc::testing::TempFolder& home) {
    std::string page = home.read("demo/orders/list.asp");
    const std::string criterion = "NAME=\"ZEKOCriteria1_2\" VALUE=\"";
    if (const auto at = page.find(criterion); at != std::string::npos)
        page.erase(at + criterion.size(),
                   page.find('"', at + criterion.size()) - at - criterion.size());
    home.write("demo/orders/list.asp", page);
    home.write("demo/orders/broken.asp",
               "<!--METADATA TYPE=\"DesignerControl\" startspan\n<OBJECT>\n");
    home.write("demo/stock.asp", home.read("demo/stock.asp") + "<!-- \xA9 -->");
    home.write(
        "demo/drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP",
        home.read("demo/drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP") + "\r\n' new\r\n");
    window.commands()[Command::CheckSite]->trigger();
    waitForSite(window);
    window.opener().openPage(home / "demo/orders/list.asp");
    settle(800);
    draw(window, QStringLiteral("faults"));
}

}  // namespace

int main(int argc, char** argv) {
    QStandardPaths::setTestModeEnabled(true);
    // The settings show where the site is.
    const headerdtc::testing::TempFolder home("web");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(home.path().string()));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("headerdtc-pictures"));
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    QApplication::setStyle(new ReadableStyle(QStringLiteral("fusion")));
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
    draw(window, QStringLiteral("start"));
    window.opener().openDemo(home / "demo");
    waitForSite(window);
    draw(window, QStringLiteral("page"));
    drawControl(window);
    PageEditor& editor = *window.tabs().current();
    editor.source().setFolded("HeaderDTC1", false);
    window.commands()[Command::ShowSource]->trigger();
    draw(window, QStringLiteral("unfolded"));
    window.commands()[Command::ShowSource]->trigger();
    editor.source().setFolded("HeaderDTC1", true);
    drawChange(window);
    window.opener().openPage(home / "demo" / "orders" / "compare.asp");
    settle(800);
    draw(window, QStringLiteral("two-controls"));
    window.opener().openPage(home / "demo" / "index.asp");
    settle(800);
    draw(window, QStringLiteral("without-control"));
    drawFaults(window, home);

    GuideWindow guide;
    guide.showGuide(QUrl(QStringLiteral("guide.md#the-editor-tab-by-tab")));
    draw(guide, QStringLiteral("guide"));
    guide.follow(QUrl(QStringLiteral("editor.md")));
    draw(guide, QStringLiteral("guide-editor"));
    return 0;
}
