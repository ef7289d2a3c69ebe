#include "qt/editor/window/page_commands.h"

#include "qt/editor/health/page_health.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/preview/preview_pane.h"
#include "qt/editor/source/source_view.h"
#include "qt/editor/window/commands.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_saver.h"
#include "qt/editor/workspace/page_tabs.h"

#include <QAction>
#include <optional>
#include <utility>

namespace headerdtc::qt {

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

void connectPageCommands(const Commands& commands, PageTabs& tabs, PageSaver& saver) {
    const auto on = [&](Command command, std::function<void(PageEditor&)> act) {
        onPage(commands, command, tabs, std::move(act));
    };
    on(Command::Save, [&saver](PageEditor& editor) { saver.save(editor); });
    on(Command::SaveAs, [&saver](PageEditor& editor) { saver.saveAs(editor); });
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
    on(Command::FocusSource, [](PageEditor& editor) { editor.source().setFocus(); });
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
