#include "qt/editor/window/commands.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/health/page_health.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/preview/preview_pane.h"
#include "qt/editor/source/source_view.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_saver.h"
#include "qt/editor/workspace/page_tabs.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <algorithm>
#include <optional>
#include <utility>

namespace headerdtc::qt {
namespace {

enum class Menu { File, Edit, View, Site, Help, GoTo };

constexpr const char* MenuTitles[] = {
    QT_TRANSLATE_NOOP("Commands", "&File"), QT_TRANSLATE_NOOP("Commands", "&Edit"),
    QT_TRANSLATE_NOOP("Commands", "&View"), QT_TRANSLATE_NOOP("Commands", "&Site"),
    QT_TRANSLATE_NOOP("Commands", "&Help"), QT_TRANSLATE_NOOP("Commands", "Go &to")};

// When a command can be given.
enum class Needs { Nothing, Page, Control, Site, Own };

// Keys that are "passed on" are those of the widget with the focus.
enum : unsigned { Plain = 0, Separated = 1, InToolBar = 2, Checkable = 4, PassedOn = 8 };

struct Info {
    Command command;
    Menu menu;
    const char* text;
    const char* icon;
    const char* keys;  // portable
    Needs needs;
    unsigned flags;
    const char* tip;
};

#define TEXT(words) QT_TRANSLATE_NOOP("Commands", words)
// clang-format off
constexpr Info Table[] = {
    {Command::New, Menu::File, TEXT("&New page"), "document-new", "Ctrl+N", Needs::Nothing, Plain, TEXT("Begin a page with one new control")},
    {Command::Open, Menu::File, TEXT("&Open..."), "document-open", "Ctrl+O", Needs::Nothing, Plain, TEXT("Open pages")},
    {Command::OpenSite, Menu::File, TEXT("Open s&ite folder..."), "folder-open", "Ctrl+Shift+O", Needs::Nothing, Plain, TEXT("Show the pages of a site")},
    {Command::OpenDemo, Menu::File, TEXT("Try the &demo site..."), "system-run", "", Needs::Nothing, Plain, TEXT("Copy the demo site and open a page of it")},
    {Command::Save, Menu::File, TEXT("&Save"), "document-save", "Ctrl+S", Needs::Page, Separated | InToolBar, TEXT("Generate the page's controls and save it")},
    {Command::SaveAs, Menu::File, TEXT("Save &as..."), "document-save-as", "Ctrl+Shift+S", Needs::Page, Plain, TEXT("Save the page under another name")},
    {Command::SaveAll, Menu::File, TEXT("Save a&ll"), "", "Ctrl+Alt+S", Needs::Page, Plain, TEXT("Save all open pages that have changes")},
    {Command::Revert, Menu::File, TEXT("Re&load from disk"), "document-revert", "", Needs::Page, Plain, TEXT("Read the page again; undo brings it back as it was")},
    {Command::Close, Menu::File, TEXT("&Close"), "window-close", "Ctrl+W", Needs::Page, Separated, TEXT("Close the page")},
    {Command::Quit, Menu::File, TEXT("&Quit"), "application-exit", "Ctrl+Q", Needs::Nothing, Plain, TEXT("Close all pages and end")},
    {Command::Undo, Menu::Edit, TEXT("&Undo"), "edit-undo", "Ctrl+Z", Needs::Own, InToolBar, TEXT("Take the last change of the page back; what was written to the translation database stays")},
    {Command::Redo, Menu::Edit, TEXT("&Redo"), "edit-redo", "Ctrl+Shift+Z", Needs::Own, InToolBar, TEXT("Make the change again")},
    {Command::Cut, Menu::Edit, TEXT("Cu&t"), "edit-cut", "Ctrl+X", Needs::Own, Separated | PassedOn, TEXT("Move the selected text to the clipboard")},
    {Command::Copy, Menu::Edit, TEXT("&Copy"), "edit-copy", "Ctrl+C", Needs::Own, PassedOn, TEXT("Copy what is selected to the clipboard")},
    {Command::Paste, Menu::Edit, TEXT("&Paste"), "edit-paste", "Ctrl+V", Needs::Own, PassedOn, TEXT("Insert the text of the clipboard")},
    {Command::SelectAll, Menu::Edit, TEXT("Select &all"), "", "Ctrl+A", Needs::Own, PassedOn, TEXT("Select everything in the text or list")},
    {Command::Find, Menu::Edit, TEXT("&Find in source..."), "edit-find", "Ctrl+F", Needs::Page, Separated, TEXT("Find text in the page's source")},
    {Command::InsertControl, Menu::Edit, TEXT("&Insert control"), "list-add", "Ctrl+I", Needs::Page, Separated, TEXT("Insert a new control before the line of the caret, or at the head of the page where you have chosen none")},
    {Command::RemoveControl, Menu::Edit, TEXT("Remove c&ontrol"), "list-remove", "", Needs::Control, Plain, TEXT("Take the shown control out of the page")},
    {Command::ReplaceField, Menu::Edit, TEXT("Replace &missing field..."), "", "Ctrl+Shift+R", Needs::Own, Plain, TEXT("Put another field in the place of one that the catalogue no longer offers")},
    {Command::Record, Menu::Edit, TEXT("R&ecord what I do"), "media-record", "Ctrl+R", Needs::Own, Separated | Checkable, TEXT("Write down what is done at the control, as a script that does it again on any page")},
    {Command::ShowSource, Menu::View, TEXT("&Source"), "", "Ctrl+1", Needs::Nothing, Checkable, TEXT("Show the page's source beside the control")},
    {Command::ShowPreview, Menu::View, TEXT("&Generated text"), "", "Ctrl+2", Needs::Nothing, Checkable, TEXT("Show what would be generated")},
    {Command::Refresh, Menu::View, TEXT("&Refresh"), "view-refresh", "F5", Needs::Page, Plain, TEXT("Look again at files, template and catalogue")},
    {Command::NextChange, Menu::GoTo, TEXT("&Next change of the generated text"), "go-down", "F8", Needs::Control, Plain, TEXT("Go to the next line that saving would change")},
    {Command::PreviousChange, Menu::GoTo, TEXT("&Previous change of the generated text"), "go-up", "Shift+F8", Needs::Control, Plain, TEXT("Go to the previous line that saving would change")},
    {Command::FocusControl, Menu::GoTo, TEXT("&Control"), "", "F6", Needs::Control, Separated, TEXT("Move the focus to the control")},
    {Command::FocusSource, Menu::GoTo, TEXT("&Source"), "", "Shift+F6", Needs::Page, Plain, TEXT("Move the focus to the source")},
    {Command::ToggleFold, Menu::GoTo, TEXT("&Fold or unfold the control in the source"), "", "Ctrl+Shift+F", Needs::Control, Plain, TEXT("Hide or show the lines of the control in the source")},
    {Command::NextPage, Menu::GoTo, TEXT("Ne&xt page"), "", "Ctrl+Tab", Needs::Page, Separated, TEXT("Show the next open page")},
    {Command::PreviousPage, Menu::GoTo, TEXT("Pre&vious page"), "", "Ctrl+Shift+Tab", Needs::Page, Plain, TEXT("Show the previous open page")},
    {Command::CheckSite, Menu::Site, TEXT("&Check all pages"), "view-refresh", "Ctrl+F5", Needs::Site, Plain, TEXT("Find out which pages are out of date; writes nothing")},
    {Command::GenerateAll, Menu::Site, TEXT("&Generate all pages"), "system-run", "Ctrl+G", Needs::Site, InToolBar, TEXT("Write every page of the site that is out of date")},
    {Command::PageSite, Menu::Site, TEXT("Show the site of this &page"), "folder", "", Needs::Page, Plain, TEXT("Show the site that the page belongs to")},
    {Command::Settings, Menu::Site, TEXT("&Settings..."), "preferences-system", "", Needs::Own, Separated, TEXT("Folders, catalogue and database of the site")},
    {Command::Help, Menu::Help, TEXT("&Help on this part"), "", "F1", Needs::Nothing, Plain, TEXT("Open the guide at the chapter on what has the focus")},
    {Command::Guide, Menu::Help, TEXT("&Guide"), "help-contents", "", Needs::Nothing, Plain, TEXT("Open the guide at its beginning")},
    {Command::About, Menu::Help, TEXT("&About"), "help-about", "", Needs::Nothing, Separated, TEXT("What this program is")},
};
// clang-format on
#undef TEXT

// "&" is a letter in the name of a file.
QString ofMenu(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString withKeys(const QString& text, const QAction& action) {
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, keys);
}

constexpr bool isComplete() {
    for (std::size_t i = 0; i < std::size(Table); ++i) {
        if (static_cast<std::size_t>(Table[i].command) != i) return false;
    }
    return std::size(Table) == static_cast<std::size_t>(Command::Count);
}
static_assert(isComplete(), "one row for each command, in their order");

}  // namespace

Commands::Commands(QMainWindow& window) : QObject(&window) {
    std::array<QMenu*, std::size(MenuTitles)> menus{};
    for (std::size_t i = 0; i < menus.size(); ++i)
        menus[i] = new QMenu(tr(MenuTitles[i]), window.menuBar());
    QMenu* goTo = menus.back();
    for (QMenu* menu : menus) {
        if (menu != goTo) window.menuBar()->addMenu(menu);
    }
    view_ = menus[static_cast<std::size_t>(Menu::View)];
    auto* toolBar = window.addToolBar(tr("Tools"));
    toolBar->setObjectName(QStringLiteral("ToolBar"));
    toolBar->setMovable(false);
    toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    for (const Info& info : Table) {
        auto* action = new QAction(tr(info.text), &window);
        if (*info.icon) action->setIcon(editorIcon(info.icon));
        if (*info.keys) action->setShortcut(QKeySequence(QLatin1String(info.keys)));
        action->setStatusTip(tr(info.tip));
        action->setToolTip(withKeys(tr(info.tip), *action));
        action->setCheckable((info.flags & Checkable) != 0);
        if ((info.flags & PassedOn) != 0) {
            action->setShortcutContext(Qt::WidgetShortcut);
            connect(action, &QAction::triggered, this, [this, action] { passOn(*action); });
        }
        QMenu* menu = menus[static_cast<std::size_t>(info.menu)];
        if ((info.flags & Separated) != 0 && !menu->isEmpty()) menu->addSeparator();
        menu->addAction(action);
        if ((info.flags & InToolBar) != 0) {
            // There it stays short where the menu says more, as of undo.
            action->setIconText(action->iconText());
            toolBar->addAction(action);
        }
        if (info.command == Command::Open) {
            recent_ = menu->addMenu(tr("Open &recent"));
        }
        actions_[static_cast<std::size_t>(info.command)] = action;
    }
    view_->addMenu(goTo);
    connect(qApp, &QApplication::focusChanged, this, [this, &window](QWidget*, QWidget* now) {
        if (now && now->window() == &window && !qobject_cast<QMenuBar*>(now)) focused_ = now;
    });
    connect(menus[static_cast<std::size_t>(Menu::Edit)], &QMenu::aboutToShow, this, [this] {
        const bool writes = focused_ && focused_->testAttribute(Qt::WA_InputMethodEnabled);
        (*this)[Command::Cut]->setEnabled(writes);
        (*this)[Command::Paste]->setEnabled(writes);
    });
    // Redo has two usual keys.
    (*this)[Command::Redo]->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
}

// To a view that has a use of its own for the keys, or else as if they had been pressed.
void Commands::passOn(const QAction& action) {
    if (!focused_) return;
    const auto own = focused_->actions();
    const auto uses = std::find_if(own.begin(), own.end(), [&](const QAction* each) {
        return each->shortcut() == action.shortcut();
    });
    if (uses != own.end()) return (*uses)->trigger();
    const QKeyCombination key = action.shortcut()[0];
    QKeyEvent press(QEvent::KeyPress, key.key(), key.keyboardModifiers());
    QCoreApplication::sendEvent(focused_, &press);
}

void Commands::follow(const State& state) {
    for (const Info& info : Table) {
        bool enabled = true;
        switch (info.needs) {
            case Needs::Nothing:
                break;
            case Needs::Page:
                enabled = state.page;
                break;
            case Needs::Control:
                enabled = state.control;
                break;
            case Needs::Site:
                enabled = state.site;
                break;
            case Needs::Own:
                continue;
        }
        (*this)[info.command]->setEnabled(enabled);
    }
    (*this)[Command::Settings]->setEnabled(state.page || state.site);
    const auto name = [](QAction* action, const QString& words, const QString& step) {
        action->setEnabled(!step.isEmpty());
        action->setText(step.isEmpty() ? words : tr("%1: %2").arg(words, ofMenu(step)));
        action->setToolTip(withKeys(step.isEmpty() ? action->statusTip() : step, *action));
    };
    name((*this)[Command::Undo], tr("&Undo"), state.undo);
    name((*this)[Command::Redo], tr("&Redo"), state.redo);
}

// ---- on the page in front -----------------------------------------------------------------------

void onPage(const Commands& commands, Command command, PageTabs& tabs,
            std::function<void(PageEditor&)> act) {
    QObject::connect(commands[command], &QAction::triggered, &tabs, [&tabs, act = std::move(act)] {
        PageEditor* editor = tabs.current();
        if (editor && !editor->isBusy()) act(*editor);
    });
}

void showParts(const Commands& commands, PageEditor& editor) {
    editor.showParts(commands[Command::ShowSource]->isChecked(),
                     commands[Command::ShowPreview]->isChecked());
}

namespace {

void reload(PageEditor& editor) {
    if (!editor.page().hasFile()) return;
    editor.finishEditing();
    try {
        editor.page().takeTheirs(editor.page().readTheirs());
    } catch (const FileError& error) {
        QMessageBox::critical(editor.window(), Commands::tr("Reload from disk"),
                              QString::fromStdString(error.what()));
    }
}

}  // namespace

void connectPageCommands(const Commands& commands, PageTabs& tabs, PageSaver& saver) {
    const auto on = [&](Command command, std::function<void(PageEditor&)> act) {
        onPage(commands, command, tabs, std::move(act));
    };
    on(Command::Save, [&saver](PageEditor& editor) { saver.save(editor); });
    on(Command::SaveAs, [&saver](PageEditor& editor) { saver.saveAs(editor); });
    on(Command::Revert, reload);
    on(Command::Close, [&tabs](PageEditor& editor) { tabs.close(&editor); });
    on(Command::Undo, [](PageEditor& editor) { editor.undo(); });
    on(Command::Redo, [](PageEditor& editor) { editor.redo(); });
    on(Command::Find, [](PageEditor& editor) { editor.find(); });
    on(Command::InsertControl, [](PageEditor& editor) { editor.insertControl(); });
    on(Command::RemoveControl, [](PageEditor& editor) { editor.removeControl(); });
    on(Command::ReplaceField,
       [](PageEditor& editor) { editor.health().chooseReplacement(std::nullopt); });
    on(Command::ToggleFold, [](PageEditor& editor) { editor.toggleFold(); });
    on(Command::NextChange, [](PageEditor& editor) { editor.preview().goToNextChange(); });
    on(Command::PreviousChange, [](PageEditor& editor) { editor.preview().goToPreviousChange(); });
    on(Command::FocusControl, [](PageEditor& editor) { editor.controls().focusControl(); });
    on(Command::FocusSource, [](PageEditor& editor) { editor.focusSource(); });
    const auto turn = [&tabs](int by) {
        tabs.setCurrentIndex((tabs.currentIndex() + by + tabs.count()) % tabs.count());
    };
    on(Command::NextPage, [turn](PageEditor&) { turn(1); });
    on(Command::PreviousPage, [turn](PageEditor&) { turn(-1); });

    const auto showPartsOfAll = [&commands, &tabs] {
        for (PageEditor* editor : tabs.editors())
            showParts(commands, *editor);
    };
    for (const Command command : {Command::ShowSource, Command::ShowPreview})
        QObject::connect(commands[command], &QAction::triggered, &tabs, showPartsOfAll);
}

}  // namespace headerdtc::qt
