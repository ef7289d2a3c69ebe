#include "host/automation/automation.h"

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/text_box.h"
#include "core/header_dtc.h"
#include "core/property_table.h"
#include "host/automation/command.h"
#include "host/automation/control_state.h"
#include "platform/nearest_name.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <utility>

namespace headerdtc {
namespace {

constexpr const char* Verbs[] = {"tab",        "click",       "select",  "dblclick", "choose",
                                 "type",       "cell",        "dblcell", "key",      "focus",
                                 "pick",       "read",        "get",     "set",      "controls",
                                 "properties", "runtimeText", "save",    "quit"};

std::string everyVerb() {
    std::string list;
    for (const char* const verb : Verbs)
        list += list.empty() ? verb : ", " + std::string(verb);
    return list;
}

template <class Kind>
Kind& as(Control& control, const char* kind) {
    if (auto* found = dynamic_cast<Kind*>(&control)) return *found;
    throw CommandError("'" + control.name() + "' is no " + kind);
}

void click(Control& control) {
    if (auto* button = dynamic_cast<Button*>(&control)) return button->press();
    if (auto* box = dynamic_cast<CheckBox*>(&control)) return box->toggle();
    as<OptionButton>(control, "button, check box or option").pick();
}

void typeText(Control& control, const std::string& text) {
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) return combo->type(text);
    as<TextBox>(control, "text box or combo box").type(text);
}

// The items that texts name, each by its whole text. A text that is given twice names the first and
// the second item of that text.
std::vector<int> itemsNamed(const ListBox& list, const std::vector<std::string>& texts) {
    list.requireReachable();
    std::vector<int> items = list.find(texts);
    const auto lacking = std::find(items.begin(), items.end(), -1);
    if (lacking == items.end()) return items;
    const std::string& text = texts[static_cast<std::size_t>(lacking - items.begin())];
    NearestName nearest(text);
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) != text) nearest.offer(list.List(i));
    }
    throw CommandError("'" + list.name() + "' has no item \"" + text + "\"" + nearest.question());
}

void doubleClick(ListBox& list, const Automation::Command& command) {
    if (!command.has("item") && !command.has("text")) return list.doubleClickEmptyArea();
    list.doubleClick(command.oneOf("item", "text") == "item"
                         ? command.integer("item")
                         : itemsNamed(list, {command.text("text")}).front());
}

nlohmann::ordered_json jsonOf(const PublicValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
    nlohmann::ordered_json scripts = nlohmann::ordered_json::object();
    for (const auto& [name, script] : *std::get<std::shared_ptr<ScriptDictionary>>(value))
        scripts[name] = script;
    return scripts;
}

PublicValue publicValueOf(const nlohmann::ordered_json& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_number_integer()) return value.get<std::int64_t>();
    if (!value.is_object()) throw CommandError("\"value\" must be a text, an integer or an object");
    auto scripts = std::make_shared<ScriptDictionary>();
    for (const auto& [name, script] : value.items()) {
        if (!script.is_string()) throw CommandError("a script must be a text");
        scripts->Add(name, script.get<std::string>());
    }
    return scripts;
}

std::string withNumber(const RuntimeError& error) {
    return error.description() + " (" + std::to_string(error.number()) + ")";
}

// "; did you mean ...", where it is the name of a property that was not found.
std::string questionFor(const RuntimeError& error, const std::string& property) {
    if (error.number() != static_cast<int>(ErrorNumber::NoSuchProperty)) return {};
    NearestName nearest(property);
    for (const PropertyInfo& info : publicProperties())
        nearest.offer(info.name);
    return nearest.question();
}

}  // namespace

std::string EventLog::open(const FileDialogRequest& request) {
    events_.push_back({{"fileDialog",
                        {{"title", request.title},
                         {"initialDirectory", request.initialDirectory},
                         {"filter", request.filter}}}});
    if (files_.empty()) return {};
    std::string file = std::move(files_.front());
    files_.pop_front();
    return file;
}

nlohmann::ordered_json EventLog::take() {
    return std::exchange(events_, nlohmann::ordered_json::array());
}

void EventLog::add(const char* kind, std::string_view text) {
    nlohmann::ordered_json event = nlohmann::ordered_json::object();
    event[kind] = text;
    events_.push_back(std::move(event));
}

Automation::Automation(std::istream& in, std::ostream& out, EventLog& events)
    : in_(in), out_(out), events_(events) {}

Automation::~Automation() = default;

void Automation::converse(AutomationPage& page) {
    page_ = &page;
    auto& desktop = page.control.desktop;
    const auto opened =
        desktop.opened.subscribe([this](Form& form) { events_.formOpened(form.name()); });
    const auto closed =
        desktop.closed.subscribe([this](Form& form) { events_.formClosed(form.name()); });
    succeed();
    answer();
    try {
        converseWhile([] { return true; }, false);
    } catch (const EndOfConversation&) {
        // The end of input leaves all open dialogs as they are: nothing of them is stored.
    }
    page_ = nullptr;
}

void Automation::refuseOpening(const std::string& error) {
    fail(error);
    answer();
}

void Automation::run(Form& form) {
    answer();
    converseWhile([&form] { return form.Visible(); }, true);
}

void Automation::converseWhile(const std::function<bool()>& goOn, bool nested) {
    std::string line;
    while (std::getline(in_, line)) {
        executeLine(line, nested);
        // The command that closed the dialog is answered by the loop behind it.
        if (!goOn()) return;
        answer();
    }
    throw EndOfConversation{};
}

void Automation::executeLine(const std::string& line, bool nested) {
    succeed();
    try {
        execute(Command(line));
    } catch (const ActionRefused& refusal) {
        fail(refusal.what());
    } catch (const CommandError& error) {
        fail(error.what());
    } catch (const RuntimeError& error) {
        // Inside a dialog a failure goes to the handler that opened it.
        if (nested) throw;
        events_.show("Run-time error '" + std::to_string(error.number()) +
                     "': " + error.description());
    }
}

void Automation::execute(const Command& command) {
    if (actOnPage(command) || actOnControl(command)) return;
    NearestName nearest(command.verb);
    for (const char* const verb : Verbs)
        nearest.offer(verb);
    throw CommandError(
        "there is no command \"" + command.verb + "\"" +
        (nearest.found().empty() ? "; there are " + everyVerb() : nearest.question()));
}

bool Automation::actOnPage(const Command& command) {
    const std::string& verb = command.verb;
    if (verb == "quit") {
        answer();
        throw EndOfConversation{};
    }
    if (verb == "tab") {
        page_->control.SSTab1.clickTab(command.integer("index"));
    } else if (verb == "pick") {
        events_.queueFile(command.text("file"));
    } else if (verb == "get") {
        getProperty(command);
    } else if (verb == "set") {
        setProperty(command);
    } else if (verb == "controls") {
        listControls();
    } else if (verb == "properties") {
        reply_["properties"] = page_->properties();
    } else if (verb == "runtimeText") {
        reply_["text"] = page_->runtimeText();
    } else if (verb == "save") {
        save(command);
    } else {
        return false;
    }
    return true;
}

bool Automation::actOnControl(const Command& command) {
    const std::string& verb = command.verb;
    const auto control = [&]() -> Control& { return findControl(command.text("control")); };
    if (verb == "click") {
        click(control());
    } else if (verb == "select") {
        select(command);
    } else if (verb == "dblclick") {
        doubleClick(as<ListBox>(control(), "list"), command);
    } else if (verb == "choose") {
        auto& combo = as<ComboBox>(control(), "combo box");
        command.oneOf("item", "text") == "item" ? combo.choose(command.integer("item"))
                                                : combo.choose(command.text("text"));
    } else if (verb == "type") {
        typeText(control(), command.text("text"));
    } else if (verb == "cell") {
        as<Grid>(control(), "grid").clickCell(command.integer("row"), command.integer("column"));
    } else if (verb == "dblcell") {
        as<Grid>(control(), "grid")
            .doubleClickCell(command.integer("row"), command.integer("column"));
    } else if (verb == "key") {
        pressKey(command);
    } else if (verb == "focus") {
        control().focus();
    } else if (verb == "read") {
        reply_["state"] = controlState(control());
    } else {
        return false;
    }
    return true;
}

void Automation::select(const Command& command) {
    auto& list = as<ListBox>(findControl(command.text("control")), "list");
    const std::vector<int> items = command.oneOf("items", "texts") == "items"
                                       ? command.integers("items")
                                       : itemsNamed(list, command.texts("texts"));
    int focus = items.empty() ? list.ListIndex() : items.back();
    if (command.has("focus")) {
        focus = command.value("focus").is_string()
                    ? itemsNamed(list, {command.text("focus")}).front()
                    : command.integer("focus");
    }
    list.select(items, focus);
}

// While a dialog is open, the command that opened it is only half done.
void Automation::save(const Command& command) {
    const bool forced = command.flag("force");
    HeaderDTC& dtc = page_->control;
    if (const auto& modal = dtc.desktop.modalForms(); !modal.empty())
        throw CommandError("the page cannot be saved while the dialog '" + modal.back()->name() +
                           "' is open");
    try {
        dtc.surface.finishEditing();
        const std::string file = page_->save(forced ? PageDocument::Guard::SaveAnyway
                                                    : PageDocument::Guard::RefuseLosses);
        if (!file.empty()) events_.wrote(file);
    } catch (const RuntimeError& error) {
        fail(error.description());
    } catch (const std::exception& error) {
        fail(error.what());
    }
}

void Automation::listControls() {
    HeaderDTC& dtc = page_->control;
    std::vector<const Form*> forms = {&dtc.surface};
    forms.insert(forms.end(), dtc.desktop.modalForms().begin(), dtc.desktop.modalForms().end());
    Json& list = reply_["controls"] = Json::array();
    for (const Form* form : forms) {
        for (Control* control : form->controls())
            list.push_back(controlEntry(*control));
    }
}

Form* Automation::findForm(const std::string& name) const {
    HeaderDTC& dtc = page_->control;
    if (name == dtc.surface.name()) return &dtc.surface;
    const auto& modal = dtc.desktop.modalForms();
    for (auto form = modal.rbegin(); form != modal.rend(); ++form) {
        if ((*form)->name() == name) return *form;
    }
    return nullptr;
}

Control& Automation::findControl(const std::string& name) const {
    const auto dot = name.find('.');
    const std::string formName = dot == std::string::npos ? "" : name.substr(0, dot);
    Form* form = dot == std::string::npos ? &page_->control.surface : findForm(formName);
    if (!form) throw CommandError("form '" + formName + "' is not open");
    Control* control = form->find(dot == std::string::npos ? name : name.substr(dot + 1));
    if (control) return *control;
    NearestName nearest(name);
    for (const Control* each : form->controls())
        nearest.offer(controlName(*each));
    throw CommandError("there is no control '" + name + "'" + nearest.question());
}

void Automation::pressKey(const Command& command) {
    const Key key = command.key();
    const std::string name = command.text("control");
    if (Form* form = findForm(name)) return form->press(key);
    findControl(name).press(key);
}

void Automation::getProperty(const Command& command) {
    const std::string property = command.text("property");
    try {
        reply_["value"] = jsonOf(
            headerdtc::getProperty(page_->control, property, command.integerIfGiven("index")));
    } catch (const RuntimeError& error) {
        fail(withNumber(error) + questionFor(error, property));
    }
}

void Automation::setProperty(const Command& command) {
    const std::string property = command.text("property");
    try {
        headerdtc::setProperty(page_->control, property, command.integerIfGiven("index"),
                               publicValueOf(command.value("value")));
    } catch (const RuntimeError& error) {
        fail(withNumber(error) + questionFor(error, property));
    }
}

void Automation::succeed() {
    reply_ = Json::object();
    reply_["ok"] = true;
}

void Automation::fail(const std::string& error) {
    reply_ = Json::object();
    reply_["ok"] = false;
    reply_["error"] = error;
}

void Automation::answer() {
    // The events stand before the result, which may be long.
    Json line = Json::object();
    for (const char* head : {"ok", "error"}) {
        if (reply_.contains(head)) line[head] = std::move(reply_[head]);
    }
    line["events"] = events_.take();
    for (auto& [name, value] : reply_.items()) {
        if (!line.contains(name)) line[name] = std::move(value);
    }
    out_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
}

}  // namespace headerdtc
