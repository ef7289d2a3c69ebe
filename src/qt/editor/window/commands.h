#pragma once

#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <array>
#include <functional>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
class QWidget;

namespace headerdtc::qt {

class PageEditor;
class PageSaver;
class PageTabs;

// Everything that the main window can be told to do.
enum class Command {
    New,
    Open,
    OpenSite,
    OpenDemo,
    Save,
    SaveAs,
    SaveAll,
    Revert,
    Close,
    Quit,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    Find,
    InsertControl,
    RemoveControl,
    ReplaceField,
    Record,
    ShowSource,
    ShowPreview,
    Refresh,
    NextChange,
    PreviousChange,
    FocusControl,
    FocusSource,
    ToggleFold,
    NextPage,
    PreviousPage,
    CheckSite,
    GenerateAll,
    PageSite,
    Settings,
    Help,
    Guide,
    About,
    Count
};

// The commands as actions, in menus and tool bar.
class Commands : public QObject {
    Q_OBJECT

  public:
    explicit Commands(QMainWindow& window);

    QAction* operator[](Command command) const {
        return actions_[static_cast<std::size_t>(command)];
    }
    // For the window to add entries that are no commands.
    QMenu* recentMenu() const { return recent_; }
    QMenu* viewMenu() const { return view_; }
    // What has the focus, or had it before a menu was opened.
    QWidget* focused() const { return focused_; }

    // Which commands make sense now.
    struct State {
        bool page = false, control = false, site = false;
        QString undo, redo;  // the steps' names; empty: none
    };
    void follow(const State& state);

  private:
    void passOn(const QAction& action);

    std::array<QAction*, static_cast<std::size_t>(Command::Count)> actions_{};
    QMenu* recent_ = nullptr;
    QMenu* view_ = nullptr;
    QPointer<QWidget> focused_;  // last, a menu apart
};

// Runs `act` on the current page whenever the command is given, unless there is no page or it is
// busy.
void onPage(const Commands& commands, Command command, PageTabs& tabs,
            std::function<void(PageEditor&)> act);

// Connects the commands that need nothing but the open pages.
void connectPageCommands(const Commands& commands, PageTabs& tabs, PageSaver& saver);

// Shows and hides the source and the generated text as the commands of these names are checked.
void showParts(const Commands& commands, PageEditor& editor);

}  // namespace headerdtc::qt
