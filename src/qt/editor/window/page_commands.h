#pragma once

#include <functional>

namespace headerdtc::qt {

class Commands;
class PageEditor;
class PageSaver;
class PageTabs;
enum class Command;

// Has an act done on the page in front whenever a command is given, unless there is none or it is
// busy.
void onPage(const Commands& commands, Command command, PageTabs& tabs,
            std::function<void(PageEditor&)> act);

// Connects the commands that need nothing but the open pages.
void connectPageCommands(const Commands& commands, PageTabs& tabs, PageSaver& saver);

// Shows and hides the source and the generated text as the commands of these names are checked.
void showParts(const Commands& commands, PageEditor& editor);

}  // namespace headerdtc::qt
