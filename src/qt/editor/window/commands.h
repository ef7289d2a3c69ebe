#pragma once

#include <QKeySequence>
#include <QObject>
#include <array>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace headerdtc::qt {

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
    Find,
    InsertControl,
    RemoveControl,
    ReplaceField,
    Record,
    ShowSource,
    ShowPreview,
    ToggleFold,
    NextChange,
    PreviousChange,
    Refresh,
    FocusControl,
    FocusSource,
    NextPage,
    PreviousPage,
    CheckSite,
    GenerateAll,
    PageSite,
    Settings,
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
    // Where the window puts what it has beside its commands.
    QMenu* recentMenu() const { return recent_; }
    QMenu* viewMenu() const { return view_; }

    // Which commands make sense now.
    struct State {
        bool page = false, control = false, controlless = false, modified = false, site = false;
        QString undo, redo;  // the steps' names; empty: none
    };
    void follow(const State& state);

  private:
    std::array<QAction*, static_cast<std::size_t>(Command::Count)> actions_{};
    QMenu* recent_ = nullptr;
    QMenu* view_ = nullptr;
};

}  // namespace headerdtc::qt
