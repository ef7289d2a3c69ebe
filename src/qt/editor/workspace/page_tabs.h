#pragma once

#include "host/site/site.h"
#include "qt/editor/page/edited_page.h"
#include "qt/editor/workspace/recovery_store.h"

#include <QTabWidget>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace headerdtc::qt {

class PageEditor;
class PageSaver;

// The open pages, a tab each.
class PageTabs : public QTabWidget {
    Q_OBJECT

  public:
    PageTabs(Sites& sites, PageSaver& saver, QWidget* parent = nullptr);
    ~PageTabs() override;

    PageEditor* current() const;
    std::vector<PageEditor*> editors() const;
    PageEditor* find(const std::filesystem::path& file) const;

    // Opens a page, or shows its tab when it is open. A page that cannot be opened is told of in a
    // box; nullptr then.
    PageEditor* open(const std::filesystem::path& file);
    // A new page that has no file yet, below a folder.
    PageEditor* openNew(const std::filesystem::path& folder);
    // Opens a page with the changes that a copy has of it; nullptr when it cannot be opened.
    PageEditor* recover(const RecoveryCopy& copy);
    // Closes after asking about changes, of several pages at once. Each tells whether it is closed
    // now.
    bool close(PageEditor* editor);
    bool closeAll();
    // Checks whether files have changed: pages without changes are read again, others show a
    // notice; a changed file of a site concerns every page.
    void checkDisk();
    // The files to watch: pages, and the sites' configurations, catalogues and templates.
    std::set<std::filesystem::path> filesToWatch();
    // Reads the sites' configurations again.
    void refreshSites();

  Q_SIGNALS:
    void opened(headerdtc::qt::PageEditor* editor);
    void closed(headerdtc::qt::PageEditor* editor);
    // Title, modified mark, undo or redo of a page have changed, or another page is current.
    void stateChanged();
    // A file of a site has changed.
    void siteFileChanged();

  private:
    PageEditor* add(std::unique_ptr<EditedPage> page);
    void showTitle(PageEditor* editor);
    void remove(PageEditor* editor);
    void checkDisk(PageEditor& editor);

    Sites& sites_;
    PageSaver& saver_;
    PageEditor* left_ = nullptr;                            // the tab that was current last
    std::map<std::filesystem::path, FileStamp> siteFiles_;  // as they were last looked at
};

}  // namespace headerdtc::qt
