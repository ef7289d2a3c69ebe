// killed_editor save|recovery KILLS: kills the editor at random moments while it saves a page again
// and again, or while a configuration is being edited. The killed one is this program itself, with
// the editor's page or its whole window.

#include "core/header_dtc.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/live_control.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/opener.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"
#include "reliability/killing.h"
#include "support/temp_site.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

namespace fs = std::filesystem;
using namespace headerdtc;
using namespace headerdtc::qt;
using namespace headerdtc::testing;

namespace {

// A page says which change was its last by the name of its stylesheet.
std::string stylesheet(int number) {
    return "xsl/" + std::to_string(number) + ".xsl";
}

std::string pageWith(int number) {
    std::string params = TempSite::ordersParams();
    const std::string name = "xsl/Generic.xsl";
    params.replace(params.find(name), name.size(), stylesheet(number));
    return TempSite::page(params, TempSite::ordersText());
}

int numberOf(const std::string& page) {
    const auto place = page.find("xsl/");
    return place == std::string::npos ? -1 : std::atoi(page.c_str() + place + 4);
}

std::string wholeFile(const fs::path& file) {
    return fs::exists(file) ? readWholeFile(file).bytes : std::string();
}

// ---- what is killed -----------------------------------------------------------------------------

void saveForever(const fs::path& site, int times) {
    Sites sites;
    const auto page = EditedPage::open(sites, site / "page.asp");
    for (int number = numberOf(page->content()->bytes()) + 1; times != 0; ++number, --times) {
        auto properties = page->content()->controls().front().properties;
        for (auto& [name, value] : properties) {
            if (name == "XSLFilename") value = stylesheet(number);
        }
        page->setProperties(0, properties);
        page->save(EditedPage::Guard::RefuseLosses);
    }
}

MainWindow::Options optionsOf(const fs::path& site) {
    return {.configuration = {}, .recoveryFolder = site / "recovery"};
}

// An author who types another name ten times a second; which one is written down.
int editForever(const fs::path& site) {
    MainWindow window(optionsOf(site));
    window.show();
    window.opener().openPage(site / "page.asp");
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
int recover(const fs::path& site) {
    MainWindow window(optionsOf(site));
    window.show();
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

// ---- who kills ----------------------------------------------------------------------------------

std::vector<std::string> self(const char* role, const fs::path& site, int times = -1) {
    return {fs::read_symlink("/proc/self/exe"), role, site, std::to_string(times)};
}

void killSaving(int kills) {
    const TempSite site;
    site.write("page.asp", pageWith(0));
    const auto page = site / "page.asp";
    chmod(page.c_str(), 0640);
    const auto filesBeside = [&] {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(site.path()))
            count += entry.path().filename().native().starts_with(".headerdtc") ? 1 : 0;
        return count;
    };
    RandomMoments moments{Microseconds(8000)};
    int leftFiles = 0, last = 0;
    for (int kill = 0; kill < kills; ++kill) {
        StartedProgram editor(self("save-forever", site.path()));
        if (!editor.killAfter(moments.next(), [&] { return numberOf(wholeFile(page)) > last + 2; }))
            fail("the editor ended by itself");
        const std::string bytes = site.read("page.asp");
        const int number = numberOf(bytes);
        if (bytes != pageWith(number)) fail("the page is neither the old nor the new one");
        if (number < last) fail("a save was lost");
        last = number;
        struct stat status {};
        if (stat(page.c_str(), &status) != 0 || (status.st_mode & 07777) != 0640)
            fail("the page's mode was not kept");
        if (filesBeside() > 1) fail("what an earlier kill left is still there");
        leftFiles += filesBeside();
    }
    if (StartedProgram(self("save-forever", site.path(), 1)).finish() != 0) fail("the last save");
    if (site.read("page.asp") != pageWith(last + 1)) fail("the last save is not in the page");
    if (filesBeside() > 0) fail("a temporary file is left after the next save");
    std::printf(
        "%d kills within %d saves of the editor: %d left a temporary file; the page was "
        "whole after each, no file was left by the next save\n",
        kills, last, leftFiles);
}

void killEditing(int kills) {
    // A change is copied within a second.
    constexpr int TypedMeanwhile = 10 + 5;
    RandomMoments moments{Microseconds(2'000'000)};
    int mostLost = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const TempSite site;
        site.write("page.asp", pageWith(0));
        const auto hasCopy = [&] {
            std::error_code failure;
            for (const auto& entry : fs::recursive_directory_iterator(site / "recovery", failure)) {
                if (entry.path().extension() == ".page") return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            return false;
        };
        StartedProgram editor(self("edit-forever", site.path()));
        if (!editor.killAfter(moments.next(), hasCopy)) fail("the editor ended by itself");
        const int typed = std::atoi(site.read("typed").c_str());
        if (StartedProgram(self("recover", site.path()), site / "said").finish() != 0)
            fail("the editor did not start again: " + site.read("said"));
        const std::string recovered = site.read("recovered");
        if (recovered.empty()) fail("nothing was offered");
        const int number = numberOf(recovered);
        if (recovered != pageWith(number)) fail("the recovered page is not whole: " + recovered);
        if (number < 1 || number > typed + 1 || typed - number > TypedMeanwhile)
            fail("change " + std::to_string(number) + " of " + std::to_string(typed) +
                 " was recovered");
        if (site.read("page.asp") != pageWith(0)) fail("the page itself was written");
        mostLost = std::max(mostLost, typed - number);
    }
    std::printf(
        "%d kills of the editor while a configuration was edited: the page was offered "
        "and complete each time, at most the last %.1f s were missing\n",
        kills, mostLost / 10.0);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const std::string role = argv[1];
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (role == "save") return reporting([&] { killSaving(std::atoi(argv[2])); });
    if (role == "recovery") return reporting([&] { killEditing(std::atoi(argv[2])); });

    const fs::path site = argv[2];
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString((site / "settings").string()));
    QApplication application(argc, argv);
    if (role == "edit-forever") return editForever(site);
    if (role == "recover") return recover(site);
    return reporting([&] { saveForever(site, std::atoi(argv[3])); });
}
