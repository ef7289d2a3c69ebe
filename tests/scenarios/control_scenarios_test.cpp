// Plays the scenarios in control/ by automation, on a control over stand-ins for all that it asks
// of its surroundings. A line is an action in automation's words, and beside it what comes of it:
//
//     "events"   what happens, each as kind and text; left out: nothing
//     "error"    a part of the reason for which the action is refused; left out: it is done
//     "then"     controls and their states: a list's items, a grid's rows, a text, true for a
//                control that can be used, or members of the state as automation has it
//     "focused"  the control with the focus
//     "stored"   properties as a page would store them, null for one that it would not
//     "asked"    what was asked of data sources since the last line that says so
//
// Other lines: "scenario" begins a new one, "page" has a page's properties read, "outside" changes
// the surroundings. A scenario with "{F}" is played for each family: that is its prefix, "{O}" the
// other's, "{T}" and "{L}" the numbers of its two tabs. "events" and "then" may differ:
// {"EAI":...,"ZEKO":...}; an "only" names the family of a line.

#include "core/header_dtc.h"
#include "editor/editor.h"
#include "host/automation/automation.h"
#include "host/automation/control_state.h"
#include "i18n/field_translation.h"
#include "links/links.h"
#include "platform/text.h"
#include "runtime/runtime_text.h"
#include "scripts/scripts.h"
#include "support/fake_surroundings.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

struct Line {
    std::string place;
    Json json;
};
using Lines = std::vector<Line>;

// "Orders" with twelve ZEKO fields, the eleventh first, and two EAI groups; "Stock" with little.
std::vector<testing::FakeProvider> providers() {
    testing::FakeProvider orders{
        .name = "Orders",
        .zekoKeyFields = {"ORDNO", "CUSTNO"},
        .eaiGroups = {{"HEAD", {"ORDNO", "CUSTNO"}}, {"LINE", {"ITEM", "ORDNO"}}},
        .eaiKeyFields = {"ORDNO", "CUSTNO"}};
    for (int number = 1; number <= 12; ++number)
        orders.zekoFields.emplace_back(std::to_string(number), "F" + std::to_string(number));
    std::swap(orders.zekoFields[0], orders.zekoFields[10]);
    return {orders,
            {.name = "Stock",
             .zekoFields = {{"1", "ITEM"}},
             .zekoKeyFields = {"ITEM", "PLACE"},
             .eaiGroups = {{"ITEMS", {"ITEM"}}},
             .eaiKeyFields = {"ITEM", "PLACE"}}};
}

// The translation tables: rows that a scenario gives. What is written is told and has no effect.
struct TranslationTables {
    std::map<std::string, std::vector<std::string>> texts;
    std::vector<std::vector<std::string>> names, values;
    std::map<std::string, std::string> failing;  // beginning of a statement: the failure's text
    std::int32_t affected = 1;

    testing::FakeRows answer(const std::string& sql) const {
        for (const auto& [beginning, reason] : failing) {
            if (sql.starts_with(beginning)) throw RuntimeError(9, reason);
        }
        if (sql.starts_with("SELECT * FROM I18NFIELDNAMES")) return {{"LABEL"}, names};
        if (sql.starts_with("SELECT * FROM I18NFIELDVALUES"))
            return {{"FIELDVALUE", "LABEL", "TEXT"}, values};
        testing::FakeRows rows{{"TEXT", "LABEL"}, {}, affected};
        for (const auto& [label, text] : texts) {
            if (sql.starts_with("SELECT *") || sql.ends_with("LABEL = '" + label + "'"))
                rows.rows.push_back({text.front(), label});
        }
        return rows;
    }
};

// Tells what is written.
struct ToldTextFiles : testing::MemoryTextFiles {
    explicit ToldTextFiles(EventLog& log) : events(log) {}
    void writeText(const std::string& path, const std::string& text) override {
        MemoryTextFiles::writeText(path, text);
        events.wrote(path + ": " + text);
    }
    EventLog& events;
};

class Player : private std::streambuf, private PropertyChangeSink {
  public:
    explicit Player(const Lines& lines) : lines_(lines) {
        outside_.dataSources.providers = providers();
        outside_.database.execute = [this](const std::string& sql) {
            if (!sql.starts_with("SELECT")) events_.wrote(sql);
            return tables_.answer(sql);
        };
        outside_.site.entries = {{2, "/Site"}, {6, "/Site/a/page.asp"}};
        change({{"installDir", "C:\\Sites\\Main"}});
        provideRuntimeText(dtc_);
        dtc_.site = &outside_.site;
    }

    void play() {
        change(lines_.front().json.value("outside", Json::object()));
        dtc_.UserControl_Initialize();
        read(lines_.front().json.value("page", Json()));
        AutomationPage page{
            dtc_, {}, [this] { return dtc_.IProvideRuntimeText_GetRuntimeText(); }, {}};
        automation_.converse(page);
        EXPECT_EQ(next_, lines_.size());
    }

  private:
    // The next line is asked for when the one before has been answered.
    int_type underflow() override {
        check(Json::parse(replies_.str()));
        replies_.str("");
        while (next_ < lines_.size()) {
            const Json& line = lines_[next_++].json;
            if (line.contains("outside")) change(line["outside"]);
            read(line.value("page", Json()));
            if (line.contains("do")) {
                command_ = line.dump() + "\n";
                setg(command_.data(), command_.data(), command_.data() + command_.size());
                return traits_type::to_int_type(*gptr());
            }
            check({{"ok", true}, {"events", events_.take()}});
        }
        return traits_type::eof();
    }

    void propertyChanged(std::string_view property) override {
        events_.propertyChanged(property);
        if (noticesFail_) throw RuntimeError(ErrorNumber::DeviceIoError);
    }

    // A list of values belongs to the name with 0, 1, ... behind it.
    void read(const Json& page) {
        if (page.is_null()) return;
        testing::OrderedPropertyBag bag;
        for (const auto& [name, value] : page.items()) {
            if (value.is_string()) bag.set(name, value.get<std::string>());
            for (std::size_t i = 0; value.is_array() && i < value.size(); ++i)
                bag.set(name + std::to_string(i), value[i].get<std::string>());
        }
        dtc_.UserControl_ReadProperties(bag);
    }

    void change(const Json& outside) {
        for (const auto& [what, how] : outside.items()) {
            if (what == "noData") outside_.dataSources.missing = how;
            if (what == "failingRequest") outside_.dataSources.failingRequest = how;
            if (what == "noticesFail") noticesFail_ = how;
            if (what == "texts") how.get_to(tables_.texts);
            if (what == "names") how.get_to(tables_.names);
            if (what == "values") how.get_to(tables_.values);
            if (what == "failing") how.get_to(tables_.failing);
            if (what == "affected") how.get_to(tables_.affected);
            if (what == "installDir") outside_.registry.values[std::string(InstallDirValue)] = how;
            if (what == "noRegistry") outside_.registry.values.clear();
            if (what == "files") {
                for (const auto& [path, text] : how.items())
                    files_.files[path] = text;
            }
            if (what == "failingFile") files_.failures[how] = ErrorNumber::PathNotFound;
        }
    }

    void check(const Json& reply) {
        const auto& [place, line] = lines_[next_ - 1];
        SCOPED_TRACE(place);
        Json events = Json::array();
        for (const Json& event : reply["events"]) {
            for (const auto& [kind, what] : event.items()) {
                std::string text = kind;
                for (const Json& part : what.is_object() ? what : Json::array({what}))
                    text += (text == kind ? " " : " | ") + part.get<std::string>();
                events.push_back(text);
            }
        }
        EXPECT_EQ(events, line.value("events", Json::array()));
        const std::string error = reply.value("error", "");
        EXPECT_EQ(error.empty(), !line.contains("error")) << error;
        EXPECT_NE(error.find(line.value("error", "")), std::string::npos) << error;
        for (const char* result : {"value", "text"}) {
            if (!reply.contains(result)) continue;
            EXPECT_EQ(reply[result], line.value(result, Json()));
        }
        const Json then = line.value("then", Json::object());
        for (const auto& [name, state] : then.items())
            EXPECT_EQ(stateOf(name, state), state) << name;
        if (line.contains("focused")) {
            const Control* control = front().ActiveControl();
            EXPECT_EQ(control ? Json(controlName(*control)) : Json(), line["focused"]);
        }
        if (line.contains("stored")) checkStored(line["stored"]);
        if (line.contains("asked")) {
            EXPECT_EQ(Json(std::exchange(outside_.dataSources.requests, {})), line["asked"]);
        }
    }

    Form& front() {
        const auto& modal = dtc_.desktop.modalForms();
        return modal.empty() ? dtc_.surface : *modal.back();
    }

    // As much of a control's state as is expected, and as it is expected.
    Json stateOf(const std::string& name, const Json& expected) {
        Control* control = front().find(name.substr(name.find('.') + 1));
        if (!control) return "not there";
        const Json state = controlState(*control);
        if (expected.is_boolean()) return state["enabled"] && state["visible"];
        if (expected.is_string()) return state.contains("text") ? state["text"] : state["caption"];
        if (expected.is_object()) {
            Json members = expected;
            for (const auto& [member, value] : expected.items())
                members[member] = state.value(member, Json());
            return members;
        }
        if (!state.contains("cells")) return state["items"];
        Json rows = Json::array();
        for (std::size_t row = 1; row < state["cells"].size(); ++row) {
            std::string text;
            for (const Json& cell : state["cells"][row])
                text +=
                    (&cell == &state["cells"][row].front() ? "" : "|") + cell.get<std::string>();
            rows.push_back(text);
        }
        return rows;
    }

    void checkStored(const Json& expected) {
        testing::OrderedPropertyBag bag;
        dtc_.UserControl_WriteProperties(bag);
        for (const auto& [name, value] : expected.items()) {
            const auto text = bag.text(name);
            EXPECT_EQ(text ? Json(*text) : Json(), value) << name;
        }
    }

    const Lines& lines_;
    std::size_t next_ = 1;
    std::string command_;
    std::istream commands_{this};
    std::ostringstream replies_;
    testing::FakeSurroundings outside_;
    TranslationTables tables_;
    bool noticesFail_ = false;
    EventLog events_;
    ToldTextFiles files_{events_};
    Automation automation_{commands_, replies_, events_};
    HeaderDTC dtc_{{events_, events_, outside_.registry, outside_.dataSources, outside_.database,
                    files_, outside_.clock, *this},
                   automation_};
    Editor editor_{dtc_};
    Links links_{dtc_};
    Scripts scripts_{dtc_};
    FieldTranslation translation_{dtc_};
};

class ControlScenario : public ::testing::Test {
  public:
    explicit ControlScenario(Lines lines) : lines_(std::move(lines)) {}
    void TestBody() override { Player(lines_).play(); }

  private:
    Lines lines_;
};

// The lines for one family.
Lines linesFor(Family family, const Lines& raw) {
    const FamilyTraits& traits = traitsOf(family);
    Lines lines;
    for (const auto& [place, text] : raw) {
        std::string line = text.get<std::string>();
        for (const auto& [mark, value] :
             {std::pair{"{F}", std::string(traits.prefix)},
              {"{O}", std::string(traitsOf(otherFamily(family)).prefix)},
              {"\"{T}\"", std::to_string(traits.tabPage)},
              {"\"{L}\"", std::to_string(traits.linkTabPage)}})
            line = replaceAll(line, mark, value);
        Json json = Json::parse(line);
        for (const char* outcome : {"events", "then"}) {
            if (json.contains(outcome) && json[outcome].contains(traits.prefix))
                json[outcome] = Json(json[outcome][traits.prefix]);
        }
        if (json.value("only", traits.prefix) == traits.prefix) lines.push_back({place, json});
    }
    return lines;
}

void registerScenario(const fs::path& file, const Lines& raw) {
    std::string name = Json::parse(raw.front().json.get<std::string>())["scenario"];
    std::replace(name.begin(), name.end(), ' ', '_');
    const bool forBoth = std::any_of(raw.begin(), raw.end(), [](const Line& line) {
        return line.json.get<std::string>().find("{F}") != std::string::npos;
    });
    for (const Family family : BothFamilies) {
        if (!forBoth && family == Family::EAI) continue;
        const std::string suffix = forBoth ? "/" + std::string(traitsOf(family).prefix) : "";
        ::testing::RegisterTest(
            file.stem().c_str(), (name + suffix).c_str(), nullptr, nullptr, file.c_str(), 1,
            [lines = linesFor(family, raw)] { return new ControlScenario(lines); });
    }
}

const bool registered = [] {
    for (const auto& entry :
         fs::directory_iterator(HEADERDTC_SOURCE_DIR "/tests/scenarios/control")) {
        std::ifstream file(entry.path());
        Lines raw;
        int number = 0;
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with("{\"scenario\"") && !raw.empty())
                registerScenario(entry.path(), std::exchange(raw, {}));
            raw.push_back(
                {entry.path().filename().string() + ":" + std::to_string(++number), line});
        }
        registerScenario(entry.path(), raw);
    }
    return true;
}();

}  // namespace
}  // namespace headerdtc
