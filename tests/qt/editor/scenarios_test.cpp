// Every scenario of the automation, played by a person at the window: the same page, byte for byte,
// and once more from what was recorded meanwhile.

#include "host/automation/automation_session.h"
#include "host/page/new_control.h"
#include "qt/editor/scenario_player.h"
#include "qt/editor/window_fixture.h"

namespace headerdtc::qt::scenarios_test {

// A scenario and its page, which is a new one where the demo has none of that name.
using Scenario = std::pair<const char*, const char*>;

// A copy of the demo site with the page of a scenario.
class DemoCopy {
  public:
    explicit DemoCopy(const Scenario& scenario) : page_(folder_ / "site" / scenario.second) {
        fs::copy(HEADERDTC_SOURCE_DIR "/demo", folder_ / "site", fs::copy_options::recursive);
        fs::remove(folder_ / "site/translations.sqlite");
        if (!fs::exists(page_)) {
            const auto site = Sites().forPage(page_);
            std::ofstream(page_, std::ios::binary) << newPage(page_, site->configuration->codePage);
        }
        run("site/make-translations");
    }

    const fs::path& page() const { return page_; }
    std::string bytes() const { return readWholeFile(page_).bytes; }
    // The translation database, as statements.
    std::string translations() const {
        run("sqlite3 site/translations.sqlite .dump");
        return folder_.read("said");
    }

  private:
    void run(const std::string& command) const {
        const std::string folder = "cd '" + folder_.path().string() + "' && ";
        if (std::system((folder + command + " >said 2>&1").c_str()) != 0)
            throw std::runtime_error(command + ": " + folder_.read("said"));
    }

    TempFolder folder_;
    fs::path page_;
};

// The lines of a script but for the saving at its end.
std::vector<std::string> withoutSaving(const std::string& script) {
    std::istringstream stream(script);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    EXPECT_EQ(R"({"do":"save"})", lines.back());
    lines.pop_back();
    return lines;
}

std::vector<std::string> scenarioLines(const Scenario& scenario) {
    const fs::path file = fs::path(HEADERDTC_SOURCE_DIR "/tests/scenarios") /
                          (std::string(scenario.first) + ".jsonl");
    return withoutSaving(readWholeFile(file).bytes);
}

// Does the lines by automation, and saves; the texts of the boxes that came.
std::vector<std::string> automate(const fs::path& page, const std::vector<std::string>& lines) {
    std::string script;
    for (const std::string& line : lines)
        script += line + '\n';
    std::istringstream in(script + R"({"do":"save"})");
    std::ostringstream out;
    Sites sites;
    EXPECT_TRUE(automatePage(sites, page, {}, in, out));
    std::vector<std::string> messages;
    std::istringstream replies(out.str());
    for (std::string reply; std::getline(replies, reply);) {
        const auto json = nlohmann::ordered_json::parse(reply);
        EXPECT_TRUE(json["ok"].get<bool>()) << reply;
        for (const auto& event : json["events"]) {
            if (event.contains("message")) messages.push_back(event["message"]);
        }
    }
    return messages;
}

class ScenarioTest : public WindowTest, public WithParamInterface<Scenario> {};

TEST_P(ScenarioTest, MakesAtTheWindowWhatItMakesByAutomation) {
    const Scenario& scenario = GetParam();
    const DemoCopy automated(scenario);
    const DemoCopy played(scenario);
    const DemoCopy recorded(scenario);
    const std::vector<std::string> lines = scenarioLines(scenario);
    const std::vector<std::string> messages = automate(automated.page(), lines);

    window->opener().openPage(played.page());
    settle();
    PageEditor* editor = window->tabs().current();
    ASSERT_NE(nullptr, editor);
    const auto toLocal = [&](const std::string& file) {
        const WindowsPaths& drives = editor->page().site()->configuration->drives;
        return QFile::decodeName(drives.toLocal(file).c_str());
    };
    const std::string start = editor->page().content()->bytes();
    dtc(*editor).SSTab1.clickTab(2);  // before the recording, and no part of it
    command(Command::Record);
    ScenarioPlayer player(*window, toLocal);
    player.play(lines);
    EXPECT_THAT(player.messages(), ElementsAreArray(messages));

    command(Command::Save);
    const std::string automatedPage = automated.bytes();
    EXPECT_EQ(automatedPage, played.bytes());

    const std::string script = window->recorder().script().toStdString();
    // Whatever was done, undone fully it gives the page of the start, and redone the same pages
    // again.
    const auto& page = editor->page();
    std::vector<std::string> states;
    for (; page.history().undoStep(); command(Command::Undo))
        states.push_back(page.content()->bytes());
    EXPECT_EQ(start, page.content()->bytes());
    EXPECT_GE(states.size(), 2U);
    for (; !states.empty(); states.pop_back()) {
        command(Command::Redo);
        ASSERT_EQ(states.back(), page.content()->bytes());
    }

    automate(recorded.page(), withoutSaving(script));
    EXPECT_EQ(automatedPage, recorded.bytes()) << script;
    EXPECT_EQ(automated.translations(), played.translations());
    EXPECT_EQ(automated.translations(), recorded.translations());
}

INSTANTIATE_TEST_SUITE_P(, ScenarioTest,
                         Values(Scenario("full_configuration", "orders/mine.asp"),
                                Scenario("corrections", "customers/regions/overview.asp"),
                                Scenario("translations", "customers/regions/overview.asp")),
                         [](const auto& scenario) { return scenario.param.first; });

}  // namespace headerdtc::qt::scenarios_test
