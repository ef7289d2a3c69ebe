#include "host/automation/recording.h"

#include "controls/combo_box.h"
#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/text_box.h"
#include "host/automation/command.h"
#include "host/automation/control_state.h"

#include <algorithm>

namespace headerdtc {
namespace {

using Json = nlohmann::ordered_json;

std::string textOf(const Control* control) {
    if (const auto* box = dynamic_cast<const TextBox*>(control)) return box->Text();
    if (const auto* combo = dynamic_cast<const ComboBox*>(control)) return combo->Text();
    return {};
}

bool isBackTab(const Key& key) {
    return key.kind == Key::Kind::Tab && key.shift;
}

// Items are written by their texts, which other pages have too, perhaps at another place. Where
// texts would name other ones, because some are the same, their places have to do.
template <class ListLike>
Json itemOf(const ListLike& list, int item) {
    const bool isThere = item >= 0 && item < list.ListCount();
    if (isThere && list.find(list.List(item)) == item) return list.List(item);
    return item;
}

template <class ListLike>
void addItem(Json& line, const ListLike& list, int item) {
    Json named = itemOf(list, item);
    const char* const field = named.is_string() ? "text" : "item";
    line[field] = std::move(named);
}

void addItems(Json& line, const ListBox& list, std::vector<int> items, int focus) {
    // The focus goes to the last one.
    std::sort(items.begin(), items.end());
    const auto focused = std::find(items.begin(), items.end(), focus);
    if (focused != items.end()) std::rotate(focused, focused + 1, items.end());
    std::vector<std::string> texts;
    texts.reserve(items.size());
    for (const int item : items)
        texts.push_back(list.ListOrEmpty(item));
    if (list.find(texts) == items) {
        line["texts"] = texts;
    } else {
        line["items"] = items;
    }
    if (items.empty() || items.back() != focus) line["focus"] = itemOf(list, focus);
}

// A key that writes into a text, if it comes to that.
bool editsText(const PersonAction& action) {
    const auto* combo = dynamic_cast<const ComboBox*>(action.control);
    const bool isText =
        dynamic_cast<const TextBox*>(action.control) || (combo && combo->isEditable());
    const Key::Kind kind = action.key.kind;
    return isText && (kind == Key::Kind::Character || kind == Key::Kind::Backspace ||
                      kind == Key::Kind::Delete || kind == Key::Kind::Enter);
}

}  // namespace

Recording::Recording(Desktop& desktop) {
    subscriptions_ += desktop.acting.subscribe(
        [this](Form& form, const PersonAction& action) { begin(form, action); });
    subscriptions_ += desktop.acted.subscribe(
        [this](Form& form, const PersonAction& action, bool done) { end(form, action, done); });
}

std::vector<std::string> Recording::lines() const {
    std::vector<std::string> texts;
    texts.reserve(lines_.size());
    for (const Json& line : lines_)
        texts.push_back(line.dump(-1, ' ', false, Json::error_handler_t::replace));
    return texts;
}

std::string Recording::script() const {
    std::string script;
    for (const std::string& line : lines())
        script += line + '\n';
    return script + R"({"do":"save"})" + '\n';
}

// The answer has to lie ready before the command that asks for it.
void Recording::fileChosen(const std::string& windowsPath) {
    if (windowsPath.empty()) return;
    std::size_t at = lines_.size();
    if (!running_.empty()) at = std::min(at, running_.back().line++);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at),
                  Json({{"do", "pick"}, {"file", windowsPath}}));
    changed.raise();
}

void Recording::add(Json line) {
    lines_.push_back(std::move(line));
    changed.raise();
}

void Recording::addFor(const Control& control, Json line) {
    const std::string name = controlName(control);
    // Every command moves the focus to its control first. Only a grid's cells are entered before
    // the focus comes.
    if (lastIs("focus", name) && !dynamic_cast<const Grid*>(&control)) lines_.pop_back();
    add(std::move(line));
}

bool Recording::lastIs(const char* command, const std::string& control) const {
    if (lines_.empty()) return false;
    const Json& last = lines_.back();
    return last["do"] == command && last.value("control", std::string()) == control;
}

// ---- actions
// --------------------------------------------------------------------------------------

void Recording::begin(Form& form, const PersonAction& action) {
    Running now;
    now.form = &form;
    const auto whole = std::find_if(running_.begin(), running_.end(),
                                    [&](const Running& other) { return other.form == &form; });
    now.isPartOfAnother = whole != running_.end();
    if (now.isPartOfAnother) {
        // A key that leads to another item: to which one is not known to a replay.
        if (action.kind == Kind::Select || action.kind == Kind::Choose) {
            takeBack(*whole);
            write(form, action);
        }
    } else {
        now.focus = form.ActiveControl();
        now.text = textOf(action.control);
        now.linesBefore = lines_.size();
        if (!lines_.empty()) now.lastBefore = lines_.back();
        write(form, action);
    }
    now.line = lines_.empty() ? 0 : lines_.size() - 1;
    running_.push_back(std::move(now));
}

void Recording::end(Form& form, const PersonAction& action, bool done) {
    // The recording may have begun within the action.
    if (running_.empty()) return;
    const Running running = running_.back();
    running_.pop_back();
    if (running.isPartOfAnother) return;
    if (done) return finish(form, action, running);
    // Nothing happened; or all that happened is that the control with the focus has lost it.
    takeBack(running);
    if (form.ActiveControl() != running.focus) writeFocus(form);
    changed.raise();
}

void Recording::write(Form& form, const PersonAction& action) {
    const auto add = [&](Json line) { addFor(*action.control, std::move(line)); };
    const std::string name = action.control ? controlName(*action.control) : form.name();
    switch (action.kind) {
        case Kind::Focus:
            return add({{"do", "focus"}, {"control", name}});
        case Kind::Press:
            return add({{"do", "click"}, {"control", name}});
        case Kind::Select: {
            Json line = {{"do", "select"}, {"control", name}};
            addItems(line, dynamic_cast<const ListBox&>(*action.control), *action.items,
                     action.index);
            return add(std::move(line));
        }
        case Kind::DoubleClick: {
            Json line = {{"do", "dblclick"}, {"control", name}};
            addItem(line, dynamic_cast<const ListBox&>(*action.control), action.index);
            return add(std::move(line));
        }
        case Kind::DoubleClickEmptyArea:
            return add({{"do", "dblclick"}, {"control", name}});
        case Kind::Choose: {
            Json line = {{"do", "choose"}, {"control", name}};
            addItem(line, dynamic_cast<const ComboBox&>(*action.control), action.index);
            return add(std::move(line));
        }
        case Kind::ClickTab:
            return add({{"do", "tab"}, {"index", action.index}});
        case Kind::ClickCell:
            return add({{"do", "cell"},
                        {"control", name},
                        {"row", action.index},
                        {"column", action.column}});
        case Kind::DoubleClickCell:
            return add({{"do", "dblcell"},
                        {"control", name},
                        {"row", action.index},
                        {"column", action.column}});
        case Kind::Edit:
            if (*action.text == textOf(action.control)) return;
            return writeText(*action.control, textOf(action.control), *action.text);
        case Kind::Key:
            // Back by Tab has no name; where it leads is written when it has led there.
            if (action.control && isBackTab(action.key))
                return add({{"do", "focus"}, {"control", name}});
            return writeKey(form, action);
        case Kind::ClickAgain: {
            const auto& grid = dynamic_cast<const Grid&>(*action.control);
            if (!isSecondPress(grid)) return;
            lines_.back()["do"] = "dblcell";
            return changed.raise();
        }
        case Kind::Scroll:
        case Kind::KeyStep:
            return;  // what comes of them is written
    }
}

void Recording::writeKey(Form& form, const PersonAction& action) {
    const std::string key = nameOfKey(action.key);
    if (action.control) {
        addFor(*action.control,
               {{"do", "key"}, {"control", controlName(*action.control)}, {"key", key}});
    } else {
        add({{"do", "key"}, {"control", form.name()}, {"key", key}});
    }
}

// Letter by letter is one text, unless it is the one that was there before: to type that is no
// change, and two were made.
void Recording::writeText(const Control& control, const std::string& before,
                          const std::string& text) {
    const std::string name = controlName(control);
    const bool goesOn = lastIs("type", name) && text != typedOver_;
    if (!goesOn) typedOver_ = before;
    if (goesOn) {
        lines_.back()["text"] = text;
        changed.raise();
    } else {
        addFor(control, {{"do", "type"}, {"control", name}, {"text", text}});
    }
}

void Recording::takeBack(const Running& running) {
    lines_.resize(running.linesBefore);
    if (!lines_.empty()) lines_.back() = running.lastBefore;
}

// What an action came to that could not be known before.
void Recording::finish(Form& form, const PersonAction& action, const Running& running) {
    const bool focusMoved = form.ActiveControl() != running.focus;
    switch (action.kind) {
        case Kind::Key:
            if (action.control && isBackTab(action.key)) {
                writeFocus(form);
            } else if (editsText(action) && action.control->hasFocus()) {
                // Where in the text a key writes is not known to a replay.
                takeBack(running);
                const std::string now = textOf(action.control);
                if (now != running.text) {
                    writeText(*action.control, running.text, now);
                } else if (focusMoved) {
                    writeFocus(form);
                }
            }
            return;
        case Kind::KeyStep:
            if (focusMoved || textOf(action.control) != running.text) writeKey(form, action);
            return;
        case Kind::ClickAgain:
            return finishClickAgain(form, action, running);
        case Kind::Scroll:
            // An editor that lay over a cell was left.
            if (focusMoved) writeFocus(form);
            return;
        default:
            return;
    }
}

// The focus as it is now. Where it is nowhere, a key that reaches the form itself takes it away and
// does nothing else.
void Recording::writeFocus(Form& form) {
    if (const Control* active = form.ActiveControl()) {
        add({{"do", "focus"}, {"control", controlName(*active)}});
    } else {
        add({{"do", "key"}, {"control", form.name()}, {"key", "Left"}});
    }
}

// The last line is the first press of a double click, which nothing has come between.
bool Recording::isSecondPress(const Grid& grid) const {
    return grid.hasFocus() && lastIs("cell", controlName(grid)) &&
           lines_.back()["row"] == grid.Row() && lines_.back()["column"] == grid.Col();
}

// The first press has opened something: an editor over the cell, which the second one leaves, or a
// dialog. What it opens again a click opens too.
void Recording::finishClickAgain(Form& form, const PersonAction& action, const Running& running) {
    const auto& grid = dynamic_cast<const Grid&>(*action.control);
    if (running.linesBefore > 0 && running.lastBefore != lines_[running.linesBefore - 1]) return;
    const std::string name = controlName(grid);
    const bool opened = lines_.size() > running.linesBefore || form.ActiveControl() != &grid;
    auto at = lines_.begin() + static_cast<std::ptrdiff_t>(running.linesBefore);
    if (opened)
        at = lines_.insert(
            at,
            Json({{"do", "cell"}, {"control", name}, {"row", grid.Row()}, {"column", grid.Col()}}));
    if (running.focus != &grid) lines_.insert(at, Json({{"do", "focus"}, {"control", name}}));
    changed.raise();
}

}  // namespace headerdtc
