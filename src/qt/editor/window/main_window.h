#pragma once

#include "host/site/site.h"
#include "qt/editor/start/recent_files.h"
#include "qt/editor/window/commands.h"
#include "qt/editor/window/message_model.h"
#include "qt/editor/workspace/file_watcher.h"
#include "qt/editor/workspace/page_saver.h"
#include "qt/editor/workspace/recorder.h"
#include "qt/editor/workspace/recovery_keeper.h"
#include "qt/editor/workspace/recovery_store.h"

#include <QMainWindow>
#include <filesystem>
#include <optional>

class QDockWidget;
class QStackedWidget;

namespace headerdtc::qt {

class GuideWindow;
class Opener;
class PageStatus;
class PageTabs;
class SiteView;

// The window of the page editor: creates the parts and connects them.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    struct Options {
        // The one configuration for every page; none: each page's own is looked for.
        std::optional<std::filesystem::path> configuration;
        // Where copies of unsaved pages are kept.
        std::filesystem::path recoveryFolder;
    };

    explicit MainWindow(const Options& options);
    ~MainWindow() override;

    PageTabs& tabs() { return *tabs_; }
    SiteView& site() { return *site_; }
    MessageModel& messages() { return messages_; }
    Commands& commands() { return *commands_; }
    RecoveryKeeper& recovery() { return recovery_; }
    Recorder& recorder() { return recorder_; }
    Opener& opener() { return *opener_; }

    // Offers what a crashed editor has left behind.
    void offerRecovery();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    QDockWidget* addDock(const QString& title, const char* name, QWidget* content,
                         Qt::DockWidgetArea area, const char* keys);
    void connectCommands();
    void connectParts();
    void addRecording();
    void saveAll();
    void generateAll();
    void editSettings(const std::filesystem::path& place);
    void activate(const Message& message);
    void follow();
    void layDocks(bool atStart);

    Sites sites_;
    MessageModel messages_;
    Recorder recorder_;
    RecentFiles recent_;
    PageSaver saver_;
    RecoveryStore store_;
    FileWatcher watcher_;
    PageTabs* tabs_;
    RecoveryKeeper recovery_;
    Commands* commands_;
    QStackedWidget* centre_;
    SiteView* site_;
    Opener* opener_;
    QDockWidget* siteDock_;
    QDockWidget* messagesDock_;
    // The layout of the docks beside pages, kept while the start page hides them.
    QByteArray docksBesidePages_;
    bool atStart_ = false;
    PageStatus* status_;
    GuideWindow* guide_;
};

}  // namespace headerdtc::qt
