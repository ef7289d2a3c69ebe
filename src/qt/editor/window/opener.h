#pragma once

#include "host/site/site.h"

#include <QObject>
#include <filesystem>

class QMenu;
class QWidget;

namespace headerdtc::qt {

class PageTabs;
class RecentFiles;
class SiteView;

// Opens pages and sites, named or asked for.
class Opener : public QObject {
    Q_OBJECT

  public:
    // All of them outlive it; dialogs open over the window.
    Opener(Sites& sites, PageTabs& tabs, SiteView& site, RecentFiles& recent, QWidget& window);

    void openPage(const std::filesystem::path& file);
    // A page in the work folder; where that belongs to no site, one is asked for first.
    void newPage();
    // A folder is a site, anything else a page.
    void openAnything(const std::filesystem::path& path);
    // Asks whether a folder is to become a site, with all that one needs; false: no, and it needs
    // no settings either.
    bool offerSetup(const std::filesystem::path& folder);
    // Copies the demo to a folder and opens it.
    void openDemo(const std::filesystem::path& folder);

    void choosePages();
    void chooseSite();
    void chooseDemoFolder();
    // The pages that were opened lately, as entries that open them again.
    void fillRecentMenu(QMenu& menu);

    // Where a person is likely to look for the next page.
    std::filesystem::path workFolder() const;

  Q_SIGNALS:
    void pageOpened();
    void siteOpened();
    // A folder is to become a site.
    void setupRequested(const std::filesystem::path& folder);
    void siteMade();

  private:
    bool isSite(const std::filesystem::path& folder);

    Sites& sites_;
    PageTabs& tabs_;
    SiteView& site_;
    RecentFiles& recent_;
    QWidget& window_;
};

}  // namespace headerdtc::qt
