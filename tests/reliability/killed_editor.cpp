// What killed.py kills: the editor's page or its whole window, with somebody who never stops.

#include "core/header_dtc.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/live_control.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/opener.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"

#include <QtWidgets>
#include <fstream>

namespace fs = std::filesystem;
using namespace headerdtc;
using namespace headerdtc::qt;

namespace {

// A page says which change was its last by the name of its stylesheet.
std::string stylesheet(int number) {
    return "xsl/" + std::to_string(number) + ".xsl";
}

int saveForever(const fs::path& site, int times) {
    Sites sites;
    const auto page = EditedPage::open(sites, site / "stock.asp");
    const std::string& bytes = page->content()->bytes();
    for (int number = std::atoi(bytes.c_str() + bytes.find("xsl/") + 4) + 1; times != 0;
         ++number, --times) {
        auto properties = page->content()->controls().front().properties;
        for (auto& [name, value] : properties) {
            if (name == "XSLFilename") value = stylesheet(number);
        }
        page->setProperties(0, properties);
        page->save(EditedPage::Guard::RefuseLosses);
    }
    return 0;
}

// An author who types another name ten times a second; which one is written down.
int editForever(MainWindow& window, const fs::path& site) {
    window.opener().openPage(site / "stock.asp");
    int number = 0;
    QTimer author;
    QObject::connect(&author, &QTimer::timeout, [&] {
        HeaderDTC& dtc = window.tabs().current()->controls().live()->dtc();
        dtc.XSLFilenameText.type(stylesheet(++number));
        std::ofstream(site / "typed.new") << number;
        fs::rename(site / "typed.new", site / "typed");
    });
    author.start(100);
    return QApplication::exec();
}

// Starts again and takes what is offered; what the page is then is written down.
int recover(MainWindow& window, const fs::path& site) {
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        const QString wanted = dialog->objectName() == QLatin1String("RecoveryDialog")
                                   ? QStringLiteral("Recover")
                                   : QStringLiteral("Discard");
        for (auto* button : dialog->findChildren<QAbstractButton*>()) {
            if (button->text().remove(QLatin1Char('&')) == wanted) return button->click();
        }
    });
    person.start(20);
    window.offerRecovery();
    if (PageEditor* editor = window.tabs().current())
        std::ofstream(site / "recovered", std::ios::binary) << editor->page().content()->bytes();
    window.close();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const std::string role = argv[1];
    const fs::path site = argv[2];
    if (role == "save-forever") return saveForever(site, std::atoi(argv[3]));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString((site / "settings").string()));
    QApplication application(argc, argv);
    MainWindow window({.configuration = {}, .recoveryFolder = site / "recovery"});
    window.show();
    return role == "recover" ? recover(window, site) : editForever(window, site);
}
