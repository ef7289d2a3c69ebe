// editor_timings: how long the editor takes until its window can be used, with the demo's fullest
// page, with a page of as many available fields as a list can hold, and with a site of 2,000 pages.

#include "core/header_dtc.h"
#include "host/automation/automation_session.h"
#include "host/page/new_control.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/preview/preview_pane.h"
#include "qt/editor/site/site_view.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/opener.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"
#include "support/temp_site.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <numeric>

using namespace headerdtc;
using namespace headerdtc::qt;

namespace {

namespace fs = std::filesystem;

constexpr int MostFields = 32767;
constexpr int ManyPages = 2000;

class Stopwatch {
  public:
    Stopwatch() { clock_.start(); }
    void tell(const char* what) {
        std::printf("  %-52s %6lld ms\n", what, static_cast<long long>(clock_.restart()));
    }

  private:
    QElapsedTimer clock_;
};

void paint(MainWindow& window) {
    (void)QTest::qWaitForWindowExposed(&window);
    window.repaint();
    QApplication::processEvents();
}

void timePage(const char* title, const fs::path& page, const fs::path& recovery) {
    std::printf("%s\n", title);
    Stopwatch watch;
    MainWindow window({.configuration = {}, .recoveryFolder = recovery});
    window.show();
    paint(window);
    watch.tell("empty window");
    window.opener().openPage(page);
    paint(window);
    watch.tell("page opened and painted");
    PageEditor& editor = *window.tabs().current();
    (void)QTest::qWaitFor([&] { return !editor.preview().text().toPlainText().isEmpty(); }, 60000);
    watch.tell("generated text there (its delay of 200 ms included)");
    HeaderDTC& dtc = editor.controls().live()->dtc();
    dtc.SSTab1.clickTab(2);
    paint(window);
    watch.tell("ZEKO tab entered");
    dtc.ZEKO.FieldsList.select({dtc.ZEKO.FieldsList.ListCount() - 1},
                               dtc.ZEKO.FieldsList.ListCount() - 1);
    paint(window);
    watch.tell("last field selected and scrolled to");
    dtc.ZEKO.AddField.press();
    editor.controls().takeChanges();
    paint(window);
    watch.tell("field added, and taken into page and source");
    editor.undo();
    paint(window);
    watch.tell("and undone");
    HeaderDTC& again = editor.controls().live()->dtc();
    std::vector<int> all(static_cast<std::size_t>(again.ZEKO.FieldsList.ListCount()));
    std::iota(all.begin(), all.end(), 0);
    again.ZEKO.FieldsList.select(all, 0);
    again.ZEKO.AddField.press();
    paint(window);
    watch.tell("all fields selected and added");
    window.site().run().cancel();
}

void timeSite(const fs::path& site, const fs::path& recovery) {
    std::printf("A site of %d pages\n", ManyPages);
    Stopwatch watch;
    MainWindow window({.configuration = {}, .recoveryFolder = recovery});
    window.show();
    window.opener().openAnything(site);
    paint(window);
    watch.tell("window usable, pages being looked for");
    QElapsedTimer longest;
    longest.start();
    qint64 longestPause = 0;
    while (window.site().run().isRunning()) {
        QApplication::processEvents();
        longestPause = std::max(longestPause, longest.restart());
    }
    watch.tell("all pages listed and checked, in the background");
    std::printf("  %-52s %6lld ms\n", "longest time without an answer meanwhile",
                static_cast<long long>(longestPause));
}

fs::path makeWideSite(const headerdtc::testing::TempSite& site) {
    nlohmann::json fields = nlohmann::json::array();
    for (int i = 1; i <= MostFields; ++i)
        fields.push_back({{"number", i}, {"name", "FIELD" + std::to_string(i)}});
    const nlohmann::json provider = {{"name", "Wide"},
                                     {"zeko", {{"fields", fields}, {"keyFields", {"FIELD1"}}}}};
    site.write("catalogue.json", nlohmann::json{{"providers", {provider}}}.dump());
    const fs::path page = site / "wide.asp";
    Sites sites;
    site.write("wide.asp", newPage(page, sites.forPage(page)->configuration->codePage));
    std::istringstream script(
        R"({"do":"choose","control":"DataProvidersCombo","text":"Wide"}
{"do":"tab","index":2}
{"do":"tab","index":0}
{"do":"save"})");
    std::ostringstream replies;
    automatePage(sites, page, {}, script, replies);
    return page;
}

void makeManyPages(const fs::path& site) {
    fs::copy(HEADERDTC_SOURCE_DIR "/demo", site, fs::copy_options::recursive);
    const fs::path page = site / "customers/regions/overview.asp";
    for (int i = 0; i < ManyPages; ++i) {
        const fs::path folder = site / "many" / std::to_string(i / 100) / "pages";
        fs::create_directories(folder);
        fs::copy(page, folder / ("page" + std::to_string(i) + ".asp"));
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QStandardPaths::setTestModeEnabled(true);
    const headerdtc::testing::TempFolder home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(home.path().string()));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("headerdtc-timings"));

    fs::copy(HEADERDTC_SOURCE_DIR "/demo", home / "demo", fs::copy_options::recursive);
    timePage("The demo's fullest page", home / "demo/customers/regions/overview.asp",
             home / "recovery");
    const headerdtc::testing::TempSite wide;
    timePage("A page with 32,767 available fields", makeWideSite(wide), home / "recovery");
    makeManyPages(home / "many");
    timeSite(home / "many", home / "recovery");
    return 0;
}
