#include "qt/editor/window/main_window.h"

#include "host/site/site_configuration.h"
#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "qt/editor/health/page_health.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/settings/settings_dialog.h"
#include "qt/editor/site/site_view.h"
#include "qt/editor/start/guide_window.h"
#include "qt/editor/start/start_page.h"
#include "qt/editor/window/messages_panel.h"
#include "qt/editor/window/opener.h"
#include "qt/editor/window/page_status.h"
#include "qt/editor/workspace/notice_bar.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"
#include "qt/editor/workspace/recording_dialog.h"
#include "qt/editor/workspace/recovery_dialog.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/shades.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QThreadPool>
#include <utility>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;

constexpr const char* GeometryKey = "window/geometry";
constexpr const char* StateKey = "window/state";

struct RememberedPart {
    Command command;
    const char* key;
    bool otherwise;
};
// The source is seldom needed, and leaves the control half the room.
constexpr RememberedPart RememberedParts[] = {
    {Command::ShowSource, "window/source", false},
    {Command::ShowPreview, "window/generatedText", true},
};

}  // namespace

MainWindow::MainWindow(const Options& options)
    : sites_(options.configuration),
      saver_(*this),
      store_(options.recoveryFolder),
      tabs_(new PageTabs(sites_, saver_)),
      recovery_(store_, [this] { return tabs_->editors(); }),
      guide_(new GuideWindow(this)) {
    setObjectName(QStringLiteral("MainWindow"));
    QApplication::setPalette(withReadableGrey(QApplication::palette()));
    setWindowIcon(applicationIcon());
    setAcceptDrops(true);
    setDockOptions(AnimatedDocks | AllowTabbedDocks);
    commands_ = new Commands(*this);
    auto* start = new StartPage(recent_);
    centre_ = new QStackedWidget;
    centre_->addWidget(start);
    centre_->addWidget(tabs_);
    setCentralWidget(centre_);

    site_ = new SiteView(sites_);
    siteDock_ = addDock(tr("Site"), "SiteDock", site_, Qt::LeftDockWidgetArea, "Ctrl+3");
    auto* panel = new MessagesPanel(messages_);
    messagesDock_ =
        addDock(tr("Messages"), "MessagesDock", panel, Qt::BottomDockWidgetArea, "Ctrl+4");
    status_ = new PageStatus;
    addRecording();
    opener_ = new Opener(sites_, *tabs_, *site_, recent_, *this);
    commands_->viewMenu()->insertSeparator((*commands_)[Command::Refresh]);
    statusBar()->addPermanentWidget(status_);
    statusBar()->addPermanentWidget(new MessageCount(messages_, *messagesDock_));

    connect(panel, &MessagesPanel::activated, this, &MainWindow::activate);
    connect(start, &StartPage::demoRequested, opener_, &Opener::chooseDemoFolder);
    connect(start, &StartPage::newRequested, (*commands_)[Command::New], &QAction::trigger);
    connect(start, &StartPage::openRequested, opener_, &Opener::choosePages);
    connect(start, &StartPage::siteRequested, opener_, &Opener::chooseSite);
    connect(start, &StartPage::guideRequested, (*commands_)[Command::Guide], &QAction::trigger);
    connect(start, &StartPage::pageRequested, this,
            [this](const QString& file) { opener_->openPage(toPath(file)); });
    connectCommands();
    connectParts();

    resize(1360, 860);
    resizeDocks({siteDock_}, {280}, Qt::Horizontal);
    resizeDocks({messagesDock_}, {130}, Qt::Vertical);
    const QSettings settings;
    restoreGeometry(settings.value(GeometryKey).toByteArray());
    restoreState(settings.value(StateKey).toByteArray());
    messagesDock_->hide();
    for (const auto& [command, key, otherwise] : RememberedParts)
        (*commands_)[command]->setChecked(settings.value(key, otherwise).toBool());
    opener_->fillRecentMenu(*commands_->recentMenu());
    follow();
}

MainWindow::~MainWindow() {
    // The pages emit signals while they are deleted.
    tabs_->disconnect(this);
    recorder_.disconnect(this);
    // What checks pages goes before the sites that it checks them against.
    delete tabs_;
    delete site_;
    QThreadPool::globalInstance()->waitForDone();
}

QDockWidget* MainWindow::addDock(const QString& title, const char* name, QWidget* content,
                                 Qt::DockWidgetArea area, const char* keys) {
    auto* dock = new QDockWidget(title);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(content);
    addDockWidget(area, dock);
    QAction* toggle = dock->toggleViewAction();
    toggle->setShortcut(QKeySequence(QLatin1String(keys)));
    commands_->viewMenu()->insertAction((*commands_)[Command::Refresh], toggle);
    return dock;
}

void MainWindow::connectCommands() {
    const auto on = [this](Command command, auto act) {
        connect((*commands_)[command], &QAction::triggered, this, act);
    };
    on(Command::New, [this] { opener_->newPage(); });
    on(Command::Open, [this] { opener_->choosePages(); });
    on(Command::OpenSite, [this] { opener_->chooseSite(); });
    on(Command::OpenDemo, [this] { opener_->chooseDemoFolder(); });
    on(Command::SaveAll, [this] { saveAll(); });
    on(Command::Quit, [this] { close(); });
    on(Command::Refresh, [this] {
        tabs_->checkDisk();
        tabs_->refreshSites();
    });
    on(Command::CheckSite, [this] { site_->checkAll(); });
    on(Command::GenerateAll, [this] { generateAll(); });
    connectPageCommands(*commands_, *tabs_, saver_);
    onPage(*commands_, Command::PageSite, *tabs_, [this](PageEditor& editor) {
        site_->openFolder(editor.page().site()->configuration->projectRoot);
        siteDock_->show();
    });
    on(Command::Settings, [this] {
        PageEditor* editor = tabs_->current();
        editSettings(editor ? editor->page().file() : site_->folder());
    });
    on(Command::Help, [this] { guide_->showGuide(chapterOn(commands_->focused())); });
    on(Command::Guide, [this] { guide_->showGuide(); });
    on(Command::About, [this] { showAbout(this); });
}

void MainWindow::connectParts() {
    connect(tabs_, &PageTabs::opened, this, [this](PageEditor* editor) {
        showParts(*commands_, *editor);
        connect(editor, &PageEditor::messagesChanged, this,
                [this, editor](const std::vector<Message>& messages) {
                    // What the open page reports replaces what the last run over the site found.
                    messages_.setMessages(toName(editor->page().file()), {});
                    messages_.setMessages(editor->messageSource(), messages);
                });
        connect(editor, &PageEditor::settingsRequested, this,
                [this, editor] { editSettings(editor->page().file()); });
        connect(editor, &PageEditor::sourceRequested, this, [this] {
            QAction* source = (*commands_)[Command::ShowSource];
            if (!source->isChecked()) source->trigger();
        });
        if (editor->page().hasFile()) recent_.add(toName(editor->page().file()));
        const SiteConfiguration& configuration = *editor->page().site()->configuration;
        if (site_->folder().empty() && !configuration.file.empty())
            site_->openFolder(configuration.projectRoot);
    });
    connect(tabs_, &PageTabs::closed, this, [this](PageEditor* editor) {
        recovery_.forget(editor);
        messages_.setMessages(editor->messageSource(), {});
        // What stands in its file is the site's again.
        if (editor->page().hasFile()) site_->recheck(editor->page().file());
    });
    connect(tabs_, &PageTabs::stateChanged, this, &MainWindow::follow);
    connect(tabs_, &PageTabs::stateChanged, &recovery_, &RecoveryKeeper::keepSoon);
    connect(&saver_, &PageSaver::saved, this, [this](PageEditor* editor) {
        recovery_.forget(editor);
        recent_.add(toName(editor->page().file()));
        site_->recheck(editor->page().file());
        statusBar()->showMessage(tr("%1 is saved.").arg(editor->title()), 4000);
    });
    connect(opener_, &Opener::setupRequested, this, &MainWindow::editSettings);
    connect(opener_, &Opener::siteMade, tabs_, &PageTabs::refreshSites);
    connect(opener_, &Opener::pageOpened, this, &MainWindow::follow);
    connect(opener_, &Opener::siteOpened, this, [this] {
        follow();
        siteDock_->show();
    });
    connect(&watcher_, &FileWatcher::mayHaveChanged, tabs_, qOverload<>(&PageTabs::checkDisk));
    connect(tabs_, &PageTabs::siteFileChanged, site_, &SiteView::checkAll);
    connect(&recent_, &RecentFiles::changed, this,
            [this] { opener_->fillRecentMenu(*commands_->recentMenu()); });
    connect(site_, &SiteView::pageActivated, this,
            [this](const QString& file) { opener_->openPage(toPath(file)); });
    connect(site_, &SiteView::folderRequested, opener_, &Opener::chooseSite);
    connect(site_, &SiteView::runFinished, this, [this] {
        tabs_->checkDisk();
        follow();
    });
    connect(site_, &SiteView::pageMessages, this,
            [this](const fs::path& page, const std::vector<Message>& messages) {
                if (!tabs_->find(page)) messages_.setMessages(toName(page), messages);
            });
}

// While it runs, a recording only says so; what was recorded is shown at its end.
void MainWindow::addRecording() {
    auto* state = new QLabel;
    state->setObjectName(QStringLiteral("RecordingState"));
    statusBar()->addPermanentWidget(state);
    connect(&recorder_, &Recorder::changed, state, [this, state] {
        state->setVisible(recorder_.isRecording());
        state->setText(
            tr("Recording %1: %2")
                .arg(recorder_.subject(), counted(recorder_.lineCount(), "line", "lines")));
    });
    const auto showScript = [this] { RecordingDialog(recorder_, this).exec(); };
    connect((*commands_)[Command::Record], &QAction::triggered, this, [this, showScript] {
        PageEditor* editor = tabs_->current();
        if (recorder_.isRecording()) {
            recorder_.stop();
            follow();
            showScript();
        } else if (editor && !editor->isBusy()) {
            recorder_.start(*editor);
        }
        follow();
    });
    connect(&recorder_, &Recorder::ended, this, [this, showScript](const QString& reason) {
        if (PageEditor* editor = tabs_->current())
            editor->notices().show(QStringLiteral("recording"), Message::Severity::Note, reason,
                                   {{tr("Show script..."), showScript}});
        follow();
    });
}

void MainWindow::offerRecovery() {
    const auto copies = store_.leftBehind();
    if (copies.empty()) return;
    RecoveryDialog dialog(copies, this);
    dialog.exec();
    if (dialog.answer() == RecoveryDialog::Answer::Later) return;
    for (const RecoveryCopy& copy : dialog.chosen()) {
        if (dialog.answer() == RecoveryDialog::Answer::Recover) {
            // This editor keeps a copy of its own before the old one is deleted.
            PageEditor* editor = tabs_->recover(copy);
            if (!editor || !recovery_.keepSafely(editor)) continue;
        }
        RecoveryStore::discard(copy);
    }
}

// Another palette of the desktop's may have another grey.
void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        const QPalette readable = withReadableGrey(QApplication::palette());
        if (readable != QApplication::palette()) QApplication::setPalette(readable);
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) opener_->openAnything(toPath(url.toLocalFile()));
    }
}

// ---- saving, generating, closing ----------------------------------------------------------------

void MainWindow::saveAll() {
    for (PageEditor* editor : tabs_->editors()) {
        editor->finishEditing();
        if (editor->isModified() && !saver_.save(*editor)) return;
    }
}

void MainWindow::generateAll() {
    bool unsaved = false;
    for (PageEditor* editor : tabs_->editors()) {
        editor->finishEditing();
        unsaved = unsaved || editor->isModified();
    }
    if (unsaved) {
        const auto answer = QMessageBox::question(
            this, tr("Generate all pages"),
            tr("Some open pages have unsaved changes. Save them first?\n\nPages are generated from "
               "what is in their files."),
            QMessageBox::SaveAll | QMessageBox::Ignore | QMessageBox::Cancel, QMessageBox::SaveAll);
        if (answer == QMessageBox::Cancel) return;
        if (answer == QMessageBox::SaveAll) saveAll();
    }
    siteDock_->show();
    site_->generateAll();
}

// Of the site of a page or folder; where it has no configuration, there will be one.
void MainWindow::editSettings(const fs::path& place) {
    try {
        fs::path file;
        if (PageEditor* editor = tabs_->find(place))
            file = editor->page().site()->configuration->file;
        std::error_code failure;
        const fs::path folder = fs::is_directory(place, failure) ? place : place.parent_path();
        if (file.empty()) file = findSiteConfiguration(folder).value_or(folder / "headerdtc.toml");
        if (!fs::exists(file, failure) && !opener_->offerSetup(folder)) return;
        SettingsDialog dialog(file, this);
        if (dialog.exec() != QDialog::Accepted) return;
    } catch (const FileError& error) {
        return void(QMessageBox::critical(this, tr("Site settings"), toQt(error.what())));
    }
    tabs_->refreshSites();
    site_->checkAll();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!tabs_->closeAll()) {
        event->ignore();
        return;
    }
    site_->run().cancel();
    QSettings settings;
    settings.setValue(GeometryKey, saveGeometry());
    settings.setValue(StateKey, atStart_ ? docksBesidePages_ : saveState());
    for (const RememberedPart& part : RememberedParts)
        settings.setValue(part.key, (*commands_)[part.command]->isChecked());
    guide_->close();
    event->accept();
}

// ---- the rest -----------------------------------------------------------------------------------

void MainWindow::activate(const Message& message) {
    if (message.isOfSite) return editSettings(message.page);
    if (std::error_code failure; fs::is_directory(message.page, failure)) return;
    if (PageEditor* editor = tabs_->open(message.page)) editor->goTo(message.place);
}

// Without a page or a site the docks would be empty.
void MainWindow::layDocks(bool atStart) {
    if (atStart == std::exchange(atStart_, atStart)) return;
    if (!atStart) return void(restoreState(docksBesidePages_));
    docksBesidePages_ = saveState();
    siteDock_->hide();
    messagesDock_->hide();
}

void MainWindow::follow() {
    PageEditor* editor = tabs_->current();
    layDocks(!editor && site_->folder().empty());
    centre_->setCurrentWidget(editor ? static_cast<QWidget*>(tabs_) : centre_->widget(0));
    Commands::State state;
    state.site = !site_->folder().empty() && !site_->run().isRunning();
    watcher_.watch(tabs_->filesToWatch());
    if (editor) {
        const EditedPage& page = editor->page();
        state.page = true;
        state.control = editor->controls().current().has_value();
        if (const Step* step = page.history().undoStep()) state.undo = step->name;
        if (const Step* step = page.history().redoStep()) state.redo = step->name;
        setWindowTitle(editor->title() + QStringLiteral("[*] \u2013 HeaderDTC"));
        setWindowFilePath(toName(page.file()));
    } else {
        setWindowTitle(QStringLiteral("HeaderDTC[*]"));
        setWindowFilePath({});
    }
    setWindowModified(editor && editor->isModified());
    status_->follow(editor);
    commands_->follow(state);
    (*commands_)[Command::ReplaceField]->setEnabled(editor && editor->health().hasVanished());
    QAction* record = (*commands_)[Command::Record];
    record->setEnabled(state.control || recorder_.isRecording());
    record->setChecked(recorder_.isRecording());
}

}  // namespace headerdtc::qt
