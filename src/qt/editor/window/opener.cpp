#include "qt/editor/window/opener.h"

#include "host/setup/site_setup.h"
#include "qt/editor/base/words.h"
#include "qt/editor/page/page_changes.h"
#include "qt/editor/site/site_view.h"
#include "qt/editor/start/demo_site.h"
#include "qt/editor/start/recent_files.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"
#include "qt/surface/text.h"

#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <optional>

namespace headerdtc::qt {

namespace fs = std::filesystem;

Opener::Opener(Sites& sites, PageTabs& tabs, SiteView& site, RecentFiles& recent, QWidget& window)
    : QObject(&window), sites_(sites), tabs_(tabs), site_(site), recent_(recent), window_(window) {}

void Opener::openPage(const fs::path& file) {
    tabs_.open(file);
    Q_EMIT pageOpened();
}

void Opener::fillRecentMenu(QMenu& menu) {
    menu.clear();
    for (const QString& file : recent_.files()) {
        QString text = file;
        menu.addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")), this,
                       [this, file] { openPage(toPath(file)); });
    }
    menu.addSeparator();
    menu.addAction(tr("&Clear list"), &recent_, &RecentFiles::clear);
    menu.setEnabled(!recent_.files().isEmpty());
}

// A wrong configuration is one all the same; what is wrong is said when the page is opened.
bool Opener::isSite(const fs::path& folder) {
    if (folder.empty()) return false;
    try {
        const SiteConfiguration& found = *sites_.forPage(folder)->configuration;
        std::error_code failure;
        return !found.file.empty() || fs::exists(found.catalogue, failure);
    } catch (const ConfigurationError&) {
        return true;
    }
}

void Opener::newPage() {
    fs::path folder = workFolder();
    if (!isSite(folder)) {
        QMessageBox box(QMessageBox::Question, tr("New page"),
                        tr("Which site is the new page for?\n\nThe data providers come from the "
                           "site's catalogue, the script from its template."),
                        QMessageBox::Cancel, &window_);
        box.setObjectName(QStringLiteral("SiteNeededBox"));
        const QAbstractButton* open = box.addButton(tr("&Open a site..."), QMessageBox::AcceptRole);
        const QAbstractButton* make =
            box.addButton(tr("&Set up a site..."), QMessageBox::AcceptRole);
        const QAbstractButton* demo =
            box.addButton(tr("Try the &demo..."), QMessageBox::AcceptRole);
        box.exec();
        const QAbstractButton* answer = box.clickedButton();
        if (answer == demo) return chooseDemoFolder();
        if (answer == open) {
            chooseSite();
            folder = site_.folder();
        } else if (answer == make) {
            folder = toPath(QFileDialog::getExistingDirectory(
                &window_, tr("Folder of the new site"), toName(folder)));
            if (!folder.empty()) Q_EMIT setupRequested(folder);
        }
        if (!isSite(folder)) return;
    }
    tabs_.openNew(folder);
}

bool Opener::offerSetup(const fs::path& folder) {
    QMessageBox box(QMessageBox::Question, tr("No site yet"),
                    tr("Set up a site in %1?").arg(toName(folder)), QMessageBox::Cancel, &window_);
    box.setObjectName(QStringLiteral("SetupBox"));
    box.setInformativeText(tr(
        "It gets its settings in headerdtc.toml, and what they name: a catalogue with an example, "
        "a database for translations, a template and a stylesheet. What is there stays as it "
        "is."));
    box.setTextFormat(Qt::PlainText);
    const QAbstractButton* make = box.addButton(tr("&Set up"), QMessageBox::AcceptRole);
    const QAbstractButton* write = box.addButton(tr("S&ettings only..."), QMessageBox::ActionRole);
    box.exec();
    if (box.clickedButton() != make) return box.clickedButton() == write;
    SiteSetup setup;
    setup.folder = folder;
    QStringList problems;
    for (const SetupPart& part : setUpSite(setup)) {
        if (!part.problem.empty())
            problems += toQt(part.part) + QLatin1String(": ") + toQt(part.problem);
    }
    if (!problems.isEmpty())
        QMessageBox::warning(
            &window_, box.windowTitle(),
            tr("Not all of the site could be made.\n\n%1").arg(bulleted(problems)));
    Q_EMIT siteMade();
    openAnything(folder);
    return true;
}

void Opener::openAnything(const fs::path& path) {
    std::error_code failure;
    if (fs::is_directory(path, failure)) {
        site_.openFolder(fs::absolute(path).lexically_normal());
        Q_EMIT siteOpened();
    } else {
        openPage(path);
    }
}

void Opener::openDemo(const fs::path& folder) {
    const auto demo = findDemoSite();
    if (!demo) {
        QMessageBox::warning(&window_, tr("Demo site"),
                             tr("The demo site is not installed. It belongs to the package "
                                "headerdtc."));
        return;
    }
    try {
        const QString remark = copyDemoSite(*demo, folder);
        openAnything(folder);
        openPage(demoPage(folder));
        if (!remark.isEmpty()) QMessageBox::information(&window_, tr("Demo site"), remark);
    } catch (const std::exception& error) {
        QMessageBox::warning(&window_, tr("Demo site"),
                             tr("The demo site could not be copied to %1.\n\n%2")
                                 .arg(toName(folder), QString::fromStdString(error.what())));
    }
}

void Opener::choosePages() {
    const QStringList files =
        QFileDialog::getOpenFileNames(&window_, tr("Open pages"), toName(workFolder()),
                                      tr("ASP pages (*.asp *.inc *.ASP *.INC);;All files (*)"));
    for (const QString& file : files)
        openPage(toPath(file));
}

void Opener::chooseSite() {
    const QString folder =
        QFileDialog::getExistingDirectory(&window_, tr("Open site folder"), toName(workFolder()));
    if (!folder.isEmpty()) openAnything(toPath(folder));
}

void Opener::chooseDemoFolder() {
    const QString folder = QFileDialog::getSaveFileName(
        &window_, tr("Folder for the copy of the demo site"),
        QDir::homePath() + QLatin1String("/headerdtc-demo"), tr("Folders (*)"), nullptr,
        QFileDialog::ShowDirsOnly | QFileDialog::DontConfirmOverwrite);
    if (!folder.isEmpty()) openDemo(toPath(folder));
}

fs::path Opener::workFolder() const {
    if (PageEditor* editor = tabs_.current()) return editor->page().file().parent_path();
    if (!site_.folder().empty()) return site_.folder();
    const QStringList recent = recent_.files();
    const QString folder = recent.isEmpty() ? QString() : QFileInfo(recent.first()).path();
    return toPath(QFile::exists(folder) ? folder : QDir::homePath());
}

}  // namespace headerdtc::qt
